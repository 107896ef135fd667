#include "projectdb/ProjectLayer.h"

#include <sqlite3.h>

#include <limits>

#include "projectdb/ProjectAttributeTable.h"
#include "projectdb/ProjectFeature.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/SourcedCall.h"
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

void BindIdentifier(SqliteStatement& statement, const Variant& id) {
  if (const auto* text = std::get_if<std::string>(&id)) {
    statement.Bind(1, *text);
  } else if (const auto* number = std::get_if<double>(&id)) {
    statement.Bind(1, *number);
  } else {
    statement.Bind(1, static_cast<int64_t>(VariantToInt32(id)));
  }
}

}  // namespace

ProjectLayer::ProjectLayer(std::shared_ptr<GeoPackageProject> project, GeoPackageProject::LayerInfo info,
                           FeatureTableInfo table)
    : project_(std::move(project)), info_(std::move(info)), table_(std::move(table)) {}

std::shared_ptr<ProjectLayer> ProjectLayer::Load(const std::shared_ptr<GeoPackageProject>& project,
                                                 const std::string& name) {
  SqliteConnection& connection = project->Connection();
  SqliteStatement row =
      connection.Prepare(std::string("SELECT ") + GeoPackageProject::LayerInfo::kColumns + " FROM " +
                         ProjectSchema::kLayersTable + " WHERE name = ?1 COLLATE NOCASE");
  row.Bind(1, name);
  if (!row.Step()) LayerError("The project has no layer named '" + name + "'.");
  GeoPackageProject::LayerInfo info = GeoPackageProject::LayerInfo::FromRow(row);
  if (!connection.TableExists(info.table_name)) {
    LayerError("The layer '" + info.name + "' refers to the table '" + info.table_name +
               "', which the project file does not hold.");
  }
  FeatureTableInfo table = FeatureTableInfo::Inspect(connection, info.table_name);
  return std::shared_ptr<ProjectLayer>(new ProjectLayer(project, std::move(info), std::move(table)));
}

std::shared_ptr<Layer> ProjectLayer::Parent(const std::string&) {
  return SourcedCall("Layer", [&]() -> std::shared_ptr<Layer> {
    if (info_.parent.empty()) LayerError("The layer '" + info_.name + "' has no parent layer.");
    return Load(project_, info_.parent);
  });
}

std::string ProjectLayer::IdColumn() const {
  return info_.id_field.empty() ? table_.PrimaryKey() : ColumnFor(info_.id_field);
}

std::string ProjectLayer::ColumnFor(const std::string& field) const {
  const FeatureTableInfo::Column* column = table_.Find(field);
  return column ? column->name : std::string();
}

std::shared_ptr<zrsimprp::AttributeTable> ProjectLayer::AttributeTable() {
  ProjectAttributeTable::FieldChoice id{info_.id_field.empty() ? table_.PrimaryKey() : info_.id_field,
                                        IdColumn()};
  if (id.named.empty()) id.named = "(none)";
  ProjectAttributeTable::FieldChoice label{info_.label_field, ColumnFor(info_.label_field)};
  return std::make_shared<ProjectAttributeTable>(info_.name, table_.Name(), id, label);
}

std::optional<std::vector<std::vector<Variant>>> ProjectLayer::GetRows(const std::string& fields, int32_t,
                                                                       int32_t) {
  return SourcedCall("Layer", [&]() -> std::optional<std::vector<std::vector<Variant>>> {
    std::vector<std::string> columns;
    for (const std::string& piece : Split(fields, ',')) {
      const std::string field(TrimBlanks(piece));
      const std::string column = ColumnFor(field);
      if (column.empty()) {
        LayerError("The layer '" + info_.name + "' has no field '" + field + "' in its table '" +
                   table_.Name() + "'.");
      }
      columns.push_back(column);
    }
    if (columns.empty()) LayerError("No fields of the layer '" + info_.name + "' were asked for.");

    std::string sql = "SELECT ";
    for (size_t i = 0; i < columns.size(); ++i) sql += (i ? ", " : "") + Quote(columns[i]);
    sql += " FROM " + Quote(table_.Name());
    if (!table_.PrimaryKey().empty()) {
      sql += " ORDER BY " + Quote(table_.PrimaryKey());
    } else if (!table_.IsView()) {
      sql += " ORDER BY rowid";
    }
    SqliteStatement statement = project_->Connection().Prepare(sql);
    std::vector<std::vector<Variant>> rows(columns.size());
    while (statement.Step()) {
      for (size_t i = 0; i < columns.size(); ++i) {
        rows[i].push_back(CellValue(statement, static_cast<int>(i), info_.name, columns[i]));
      }
    }
    if (rows.front().empty()) return std::nullopt;
    return rows;
  });
}

std::shared_ptr<Feature> ProjectLayer::FeatureByID(const Variant& id) {
  return SourcedCall("Layer", [&]() -> std::shared_ptr<Feature> {
    if (IdColumn().empty()) {
      LayerError("The layer '" + info_.name + "' has no identifier field in its table '" + table_.Name() +
                 "'.");
    }
    if (IsNull(id)) NoSuchFeature(id);
    return IdColumnIndexed() ? FeatureFromIndex(id) : FeatureFromCache(id);
  });
}

bool ProjectLayer::IdColumnIndexed() {
  if (id_indexed_) return *id_indexed_;
  const std::string column = IdColumn();
  bool indexed = !table_.IsView() && TextEquals(column, table_.PrimaryKey());
  if (!indexed && !table_.IsView()) {
    SqliteStatement statement = project_->Connection().Prepare(
        "SELECT 1 FROM pragma_index_list(?1) AS il, pragma_index_info(il.name) AS ii "
        "WHERE ii.seqno = 0 AND ii.name = ?2 COLLATE NOCASE");
    statement.Bind(1, table_.Name()).Bind(2, column);
    indexed = statement.Step();
  }
  id_indexed_ = indexed;
  return indexed;
}

std::shared_ptr<Feature> ProjectLayer::FeatureFromIndex(const Variant& id) {
  const std::string row_id = table_.PrimaryKey().empty() ? "rowid" : Quote(table_.PrimaryKey());
  SqliteStatement statement = project_->Connection().Prepare(
      "SELECT " + row_id + " FROM " + Quote(table_.Name()) + " WHERE " + Quote(IdColumn()) + " = ?1 LIMIT 1");
  BindIdentifier(statement, id);
  if (!statement.Step()) NoSuchFeature(id);
  return std::make_shared<ProjectFeature>(statement.Int64(0), id);
}

std::shared_ptr<Feature> ProjectLayer::FeatureFromCache(const Variant& id) {
  if (!id_cache_) {
    const std::string row_id = table_.PrimaryKey().empty() ? "NULL" : Quote(table_.PrimaryKey());
    SqliteStatement statement = project_->Connection().Prepare("SELECT " + row_id + ", " + Quote(IdColumn()) +
                                                               " FROM " + Quote(table_.Name()));
    std::unordered_map<std::string, int64_t> cache;
    while (statement.Step()) {
      cache.emplace(VariantToText(CellValue(statement, 1, info_.name, IdColumn())), statement.Int64(0));
    }
    id_cache_ = std::move(cache);
  }
  const auto found = id_cache_->find(VariantToText(id));
  if (found == id_cache_->end()) NoSuchFeature(id);
  return std::make_shared<ProjectFeature>(found->second, id);
}

void ProjectLayer::NoSuchFeature(const Variant& id) const {
  LayerError("The layer '" + info_.name + "' has no feature with the identifier '" + VariantToText(id) +
             "'.");
}

}  // namespace zrsimprp
