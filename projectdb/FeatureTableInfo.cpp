#include "projectdb/FeatureTableInfo.h"

#include <cstdint>

#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

FeatureTableInfo FeatureTableInfo::Inspect(SqliteConnection& connection, const std::string& table) {
  FeatureTableInfo info;
  SqliteStatement kind = connection.Prepare(
      "SELECT name, type FROM sqlite_master WHERE type IN ('table', 'view') AND name = ?1 COLLATE NOCASE");
  kind.Bind(1, table);
  if (!kind.Step()) {
    throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite",
                       "The file '" + connection.Path() + "' holds no table named '" + table + "'.");
  }
  info.name_ = kind.Text(0);
  info.is_view_ = kind.Text(1) == "view";

  SqliteStatement columns =
      connection.Prepare("SELECT name, type, pk FROM pragma_table_info(?1) ORDER BY cid");
  columns.Bind(1, info.name_);
  int key_columns = 0;
  while (columns.Step()) {
    info.columns_.push_back(Column{columns.Text(0), columns.Text(1)});
    if (columns.Int64(2) > 0) {
      ++key_columns;
      info.primary_key_ = columns.Text(0);
    }
  }
  if (key_columns != 1) info.primary_key_.clear();

  if (connection.TableExists("gpkg_geometry_columns")) {
    SqliteStatement geometry = connection.Prepare(
        "SELECT column_name, geometry_type_name, srs_id, z, m FROM gpkg_geometry_columns "
        "WHERE table_name = ?1 COLLATE NOCASE");
    geometry.Bind(1, info.name_);
    if (geometry.Step()) {
      info.geometry_column_ = geometry.Text(0);
      info.geometry_type_ = geometry.Text(1);
      const int64_t srs_id = geometry.Int64(2);
      info.srs_id_ = srs_id >= INT32_MIN && srs_id <= INT32_MAX ? static_cast<int32_t>(srs_id) : -1;
      const int64_t z = geometry.Int64(3);
      const int64_t m = geometry.Int64(4);
      info.z_ = z >= 0 && z <= 2 ? static_cast<int32_t>(z) : 0;
      info.m_ = m >= 0 && m <= 2 ? static_cast<int32_t>(m) : 0;
    }
  }
  return info;
}

const FeatureTableInfo::Column* FeatureTableInfo::Find(const std::string& name) const {
  for (const Column& column : columns_) {
    if (TextEquals(column.name, name)) return &column;
  }
  return nullptr;
}

}  // namespace zrsimprp
