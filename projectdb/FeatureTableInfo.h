#pragma once

#include <string>
#include <vector>

namespace zrsimprp {

class SqliteConnection;

// What a layer needs to know about a feature table, read from the file's own catalogue so that tables
// written by any tool can be used: its columns, its feature-id column and its geometry column.
class FeatureTableInfo {
 public:
  struct Column {
    std::string name;
    std::string type;
  };

  // Raises RuntimeError (source "SQLite") when the file holds no table or view of that name.
  static FeatureTableInfo Inspect(SqliteConnection& connection, const std::string& table);

  const std::string& Name() const { return name_; }
  const std::vector<Column>& Columns() const { return columns_; }
  // The single-column primary key, "" when there is none (a view, or a table keyed by several columns).
  const std::string& PrimaryKey() const { return primary_key_; }
  // "" when the table has no registered geometry column.
  const std::string& GeometryColumn() const { return geometry_column_; }
  const std::string& GeometryType() const { return geometry_type_; }
  int32_t SrsId() const { return srs_id_; }
  // gpkg_geometry_columns' z and m: 0 none, 1 present, 2 optional.
  int32_t Z() const { return z_; }
  int32_t M() const { return m_; }
  bool IsView() const { return is_view_; }

  // The column whose name matches (case ignored), or nullptr.
  const Column* Find(const std::string& name) const;

 private:
  std::string name_;
  std::vector<Column> columns_;
  std::string primary_key_;
  std::string geometry_column_;
  std::string geometry_type_;
  int32_t srs_id_ = -1;
  int32_t z_ = 0;
  int32_t m_ = 0;
  bool is_view_ = false;
};

}  // namespace zrsimprp
