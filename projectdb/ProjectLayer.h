#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "projectdb/FeatureTableInfo.h"
#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/Layer.h"

namespace zrsimprp {

// A polygon layer of a project file: a row of the project's layer table and the feature table it names.
class ProjectLayer : public Layer {
 public:
  // The layer of that name (case ignored); RuntimeError (source "SQLite") when the project has none or
  // its feature table is missing.
  static std::shared_ptr<ProjectLayer> Load(const std::shared_ptr<GeoPackageProject>& project,
                                            const std::string& name);

  std::string Name() override { return info_.name; }
  int32_t Kind() override { return info_.kind; }
  std::shared_ptr<Layer> Parent(const std::string& arg) override;
  std::shared_ptr<zrsimprp::AttributeTable> AttributeTable() override;
  std::optional<std::vector<std::vector<Variant>>> GetRows(const std::string& fields, int32_t a,
                                                           int32_t b) override;
  std::shared_ptr<Feature> FeatureByID(const Variant& id) override;

 private:
  ProjectLayer(std::shared_ptr<GeoPackageProject> project, GeoPackageProject::LayerInfo info,
               FeatureTableInfo table);

  std::string IdColumn() const;
  std::string ColumnFor(const std::string& field) const;
  bool IdColumnIndexed();
  std::shared_ptr<Feature> FeatureFromIndex(const Variant& id);
  std::shared_ptr<Feature> FeatureFromCache(const Variant& id);
  [[noreturn]] void NoSuchFeature(const Variant& id) const;

  std::shared_ptr<GeoPackageProject> project_;
  GeoPackageProject::LayerInfo info_;
  FeatureTableInfo table_;
  std::optional<bool> id_indexed_;
  // Identifier text -> row, built once for tables whose identifier column has no index.
  std::optional<std::unordered_map<std::string, int64_t>> id_cache_;
};

}  // namespace zrsimprp
