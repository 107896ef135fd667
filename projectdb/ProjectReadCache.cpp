#include "projectdb/ProjectReadCache.h"

#include "projectdb/ProjectLayerSnapshot.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/StoredDataFilter.h"
#include "projectdb/StoredDesign.h"
#include "projectdb/StoredModelDefinition.h"
#include "projectdb/StoredRecordGroup.h"
#include "projectdb/StoredSurvey.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

void ProjectReadCache::Forget() {
  designs_.reset();
  surveys_.reset();
  data_filters_.reset();
  model_definitions_.reset();
  layers_.clear();
}

void ProjectReadCache::FollowTheFile() {
  const int64_t version = connection_.DataVersion();
  if (version == data_version_) return;
  Forget();
  data_version_ = version;
}

std::shared_ptr<RecordGroup<DesignRecord>> ProjectReadCache::Designs(
    const Reader<GeoPackageProject::DesignInfo>& read) {
  FollowTheFile();
  if (!designs_) {
    std::vector<std::shared_ptr<DesignRecord>> stored;
    for (auto& info : read()) stored.push_back(std::make_shared<StoredDesign>(std::move(info)));
    designs_ = std::make_shared<StoredRecordGroup<DesignRecord>>(std::move(stored));
  }
  return designs_;
}

std::shared_ptr<RecordGroup<SurveyRecord>> ProjectReadCache::Surveys(
    const Reader<GeoPackageProject::SurveyInfo>& read) {
  FollowTheFile();
  if (!surveys_) {
    std::vector<std::shared_ptr<SurveyRecord>> stored;
    for (auto& info : read()) stored.push_back(std::make_shared<StoredSurvey>(std::move(info)));
    surveys_ = std::make_shared<StoredRecordGroup<SurveyRecord>>(std::move(stored));
  }
  return surveys_;
}

std::vector<std::shared_ptr<DataFilter>> ProjectReadCache::DataFilters(
    const Reader<GeoPackageProject::DataFilterInfo>& read) {
  FollowTheFile();
  if (!data_filters_) {
    std::vector<std::shared_ptr<DataFilter>> filters;
    for (auto& info : read()) filters.push_back(std::make_shared<StoredDataFilter>(std::move(info)));
    data_filters_ = std::move(filters);
  }
  return *data_filters_;
}

std::vector<std::shared_ptr<ModelDefinition>> ProjectReadCache::ModelDefinitions(
    const Reader<GeoPackageProject::ModelDefinitionInfo>& read) {
  FollowTheFile();
  if (!model_definitions_) {
    std::vector<std::shared_ptr<ModelDefinition>> models;
    for (auto& info : read()) {
      models.push_back(std::make_shared<StoredModelDefinition>(std::move(info)));
    }
    model_definitions_ = std::move(models);
  }
  return *model_definitions_;
}

std::shared_ptr<ProjectLayerSnapshot> ProjectReadCache::Layer(const std::string& name) {
  FollowTheFile();
  const std::string key = ToLowerAscii(name);
  const auto known = layers_.find(key);
  if (known != layers_.end()) return known->second;
  std::shared_ptr<ProjectLayerSnapshot> snapshot = ProjectLayerSnapshot::Load(connection_, name);
  layers_.emplace(key, snapshot);
  return snapshot;
}

}  // namespace zrsimprp
