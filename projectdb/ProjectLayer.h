#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/ProjectLayerSnapshot.h"
#include "zrsimprp/host/Layer.h"

namespace zrsimprp {

// A polygon layer of a project file: a row of the project's layer table and the feature table it names,
// as the project last read them.
class ProjectLayer : public Layer {
 public:
  // The layer of that name (case ignored); RuntimeError (source "SQLite") when the project has none or
  // its feature table is missing.
  static std::shared_ptr<ProjectLayer> Load(const std::shared_ptr<GeoPackageProject>& project,
                                            const std::string& name);

  std::string Name() override { return snapshot_->Info().name; }
  int32_t Kind() override { return snapshot_->Info().kind; }
  std::shared_ptr<Layer> Parent(const std::string& arg) override;
  std::shared_ptr<zrsimprp::AttributeTable> AttributeTable() override;
  std::optional<std::vector<std::vector<Variant>>> GetRows(const std::string& fields, int32_t a,
                                                           int32_t b) override;
  std::shared_ptr<Feature> FeatureByID(const Variant& id) override;

 private:
  ProjectLayer(std::shared_ptr<GeoPackageProject> project, std::shared_ptr<ProjectLayerSnapshot> snapshot)
      : project_(std::move(project)), snapshot_(std::move(snapshot)) {}

  const GeoPackageProject::LayerInfo& Info() const { return snapshot_->Info(); }
  const FeatureTableInfo& Table() const { return snapshot_->Table(); }
  std::string IdColumn() const;
  std::string ColumnFor(const std::string& field) const;
  [[noreturn]] void NoSuchFeature(const Variant& id) const;

  std::shared_ptr<GeoPackageProject> project_;
  std::shared_ptr<ProjectLayerSnapshot> snapshot_;
};

}  // namespace zrsimprp
