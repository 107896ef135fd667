#include "zrsimprp/host/ForwardingProjectDatabase.h"

#include <utility>

namespace zrsimprp {

ForwardingProjectDatabase::ForwardingProjectDatabase(std::shared_ptr<ProjectDatabase> project)
    : project_(std::move(project)) {}

std::shared_ptr<LayerCatalogue> ForwardingProjectDatabase::Companion() { return project_->Companion(); }

std::shared_ptr<zrsimprp::EngineDefaults> ForwardingProjectDatabase::EngineDefaults() {
  return project_->EngineDefaults();
}

std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> ForwardingProjectDatabase::DesignGroups() {
  return project_->DesignGroups();
}

std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> ForwardingProjectDatabase::SurveyGroups() {
  return project_->SurveyGroups();
}

std::vector<std::shared_ptr<DataFilter>> ForwardingProjectDatabase::DataFilters() {
  return project_->DataFilters();
}

std::vector<std::shared_ptr<ModelDefinition>> ForwardingProjectDatabase::ModelDefinitions() {
  return project_->ModelDefinitions();
}

std::optional<LayerShapes> ForwardingProjectDatabase::LayerGeometry(const std::string& layer_name) {
  const auto geometry = std::dynamic_pointer_cast<LayerGeometrySource>(project_);
  if (geometry == nullptr) return std::nullopt;
  return geometry->LayerGeometry(layer_name);
}

std::vector<std::string> ForwardingProjectDatabase::NumericFields(const std::string& layer_name) {
  const auto fields = std::dynamic_pointer_cast<LayerFieldSource>(project_);
  return fields != nullptr ? fields->NumericFields(layer_name) : std::vector<std::string>();
}

}  // namespace zrsimprp
