#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "projectdb/FeatureTableInfo.h"
#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/Variant.h"

namespace zrsimprp {

class SqliteConnection;

// What one version of the project file says about a layer: its row in the layer table, its feature
// table's columns, and, read on first use, the rows of the fields asked for and the row of each
// identifier. The project keeps one per layer until the file changes, so that choosing a layer again,
// or walking its features one by one, reads the file once.
class ProjectLayerSnapshot {
 public:
  using Rows = std::vector<std::vector<Variant>>;

  // RuntimeError (source "SQLite") when the project has no such layer or its feature table is missing.
  static std::shared_ptr<ProjectLayerSnapshot> Load(SqliteConnection& connection, const std::string& name);

  const GeoPackageProject::LayerInfo& Info() const { return info_; }
  const FeatureTableInfo& Table() const { return table_; }

  // The values of `columns` (the table's own names), one vector per column, in feature order.
  const Rows& Values(SqliteConnection& connection, const std::vector<std::string>& columns);
  // The row id of the feature whose identifier in `id_column` reads as `id_text`; nullopt for none.
  std::optional<int64_t> RowOf(SqliteConnection& connection, const std::string& id_column,
                               const std::string& id_text);

 private:
  ProjectLayerSnapshot(GeoPackageProject::LayerInfo info, FeatureTableInfo table)
      : info_(std::move(info)), table_(std::move(table)) {}

  std::string OrderBy() const;

  GeoPackageProject::LayerInfo info_;
  FeatureTableInfo table_;
  std::map<std::vector<std::string>, Rows> values_;
  bool ids_read_ = false;
  std::string indexed_column_;
  std::unordered_map<std::string, int64_t> row_of_id_;
};

}  // namespace zrsimprp
