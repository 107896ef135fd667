#include "projectdb/ProjectLayerSnapshot.h"

#include <sqlite3.h>

#include <limits>

#include "projectdb/ProjectSchema.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

std::string Quote(const std::string& identifier) { return SqliteConnection::QuoteIdentifier(identifier); }

[[noreturn]] void LayerError(const std::string& description) {
  throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite", description);
}

Variant CellValue(SqliteStatement& statement, int column, const std::string& layer,
                  const std::string& field) {
  switch (statement.ColumnType(column)) {
    case SQLITE_INTEGER: {
      const int64_t value = statement.Int64(column);
      if (value >= std::numeric_limits<int32_t>::min() && value <= std::numeric_limits<int32_t>::max()) {
        return static_cast<int32_t>(value);
      }
      return static_cast<double>(value);
    }
    case SQLITE_FLOAT:
      return statement.Double(column);
    case SQLITE_TEXT:
      return statement.Text(column);
    case SQLITE_NULL:
      return Variant();
    default:
      LayerError("The field '" + field + "' of the layer '" + layer + "' holds binary data, not a value.");
  }
}

}  // namespace

std::shared_ptr<ProjectLayerSnapshot> ProjectLayerSnapshot::Load(SqliteConnection& connection,
                                                                 const std::string& name) {
  GeoPackageProject::LayerInfo info;
  {
    SqliteConnection::Reused row =
        connection.Reuse(std::string("SELECT ") + GeoPackageProject::LayerInfo::kColumns + " FROM " +
                         ProjectSchema::kLayersTable + " WHERE name = ?1 COLLATE NOCASE");
    row->Bind(1, name);
    if (!row->Step()) LayerError("The project has no layer named '" + name + "'.");
    info = GeoPackageProject::LayerInfo::FromRow(*row);
  }
  if (!connection.TableExists(info.table_name)) {
    LayerError("The layer '" + info.name + "' refers to the table '" + info.table_name +
               "', which the project file does not hold.");
  }
  FeatureTableInfo table = FeatureTableInfo::Inspect(connection, info.table_name);
  return std::shared_ptr<ProjectLayerSnapshot>(new ProjectLayerSnapshot(std::move(info), std::move(table)));
}

std::string ProjectLayerSnapshot::OrderBy() const {
  if (!table_.PrimaryKey().empty()) return " ORDER BY " + Quote(table_.PrimaryKey());
  return table_.IsView() ? std::string() : std::string(" ORDER BY rowid");
}

const ProjectLayerSnapshot::Rows& ProjectLayerSnapshot::Values(SqliteConnection& connection,
                                                               const std::vector<std::string>& columns) {
  const auto known = values_.find(columns);
  if (known != values_.end()) return known->second;
  std::string sql = "SELECT ";
  for (size_t i = 0; i < columns.size(); ++i) sql += (i ? ", " : "") + Quote(columns[i]);
  SqliteStatement statement = connection.Prepare(sql + " FROM " + Quote(table_.Name()) + OrderBy());
  Rows rows(columns.size());
  while (statement.Step()) {
    for (size_t i = 0; i < columns.size(); ++i) {
      rows[i].push_back(CellValue(statement, static_cast<int>(i), info_.name, columns[i]));
    }
  }
  return values_.emplace(columns, std::move(rows)).first->second;
}

std::optional<int64_t> ProjectLayerSnapshot::RowOf(SqliteConnection& connection, const std::string& id_column,
                                                   const std::string& id_text) {
  if (!ids_read_ || indexed_column_ != id_column) {
    // One pass over the identifier column (never the geometry) serves every later lookup.
    const std::string row_id =
        table_.PrimaryKey().empty() ? (table_.IsView() ? "NULL" : "rowid") : Quote(table_.PrimaryKey());
    SqliteStatement statement =
        connection.Prepare("SELECT " + row_id + ", " + Quote(id_column) + " FROM " + Quote(table_.Name()));
    std::unordered_map<std::string, int64_t> row_of_id;
    while (statement.Step()) {
      row_of_id.emplace(VariantToText(CellValue(statement, 1, info_.name, id_column)), statement.Int64(0));
    }
    row_of_id_ = std::move(row_of_id);
    indexed_column_ = id_column;
    ids_read_ = true;
  }
  const auto found = row_of_id_.find(id_text);
  if (found == row_of_id_.end()) return std::nullopt;
  return found->second;
}

}  // namespace zrsimprp
