#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/ProjectDatabase.h"

namespace zrsimprp {

class ProjectLayerSnapshot;
class SqliteConnection;

// What the control reads from a project file (records, layers and their rows), read once and kept until
// the file changes: the project's own writes forget it, and a commit by another program, seen in
// SQLite's data version, empties it before the next use.
class ProjectReadCache {
 public:
  explicit ProjectReadCache(SqliteConnection& connection) : connection_(connection) {}

  // Forgets everything read, after (or before) a write of this project.
  void Forget();

  template <class Info>
  using Reader = std::function<std::vector<Info>()>;

  // Each kept, or made from what `read` gives when nothing is kept.
  std::shared_ptr<RecordGroup<DesignRecord>> Designs(const Reader<GeoPackageProject::DesignInfo>& read);
  std::shared_ptr<RecordGroup<SurveyRecord>> Surveys(const Reader<GeoPackageProject::SurveyInfo>& read);
  std::vector<std::shared_ptr<DataFilter>> DataFilters(const Reader<GeoPackageProject::DataFilterInfo>& read);
  std::vector<std::shared_ptr<ModelDefinition>> ModelDefinitions(
      const Reader<GeoPackageProject::ModelDefinitionInfo>& read);
  // RuntimeError (source "SQLite") when the project has no such layer.
  std::shared_ptr<ProjectLayerSnapshot> Layer(const std::string& name);

 private:
  // Empties the cache when another program has committed to the file since it was filled.
  void FollowTheFile();

  SqliteConnection& connection_;
  int64_t data_version_ = -1;
  std::shared_ptr<RecordGroup<DesignRecord>> designs_;
  std::shared_ptr<RecordGroup<SurveyRecord>> surveys_;
  std::optional<std::vector<std::shared_ptr<DataFilter>>> data_filters_;
  std::optional<std::vector<std::shared_ptr<ModelDefinition>>> model_definitions_;
  std::unordered_map<std::string, std::shared_ptr<ProjectLayerSnapshot>> layers_;  // by lower-case name
};

}  // namespace zrsimprp
