#include "projectdb/LayerImport.h"

#include <sqlite3.h>

#include <utility>

#include "projectdb/ProjectChecks.h"
#include "projectdb/ProjectLayerTables.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

namespace {

std::string Quote(const std::string& identifier) { return SqliteConnection::QuoteIdentifier(identifier); }

bool IsPolygonTypeName(const std::string& type) {
  for (const char* accepted :
       {"POLYGON", "MULTIPOLYGON", "CURVEPOLYGON", "MULTISURFACE", "SURFACE", "GEOMETRY"}) {
    if (TextEquals(type, accepted)) return true;
  }
  return false;
}

bool IsPolygonBlob(const std::string& blob) {
  const int32_t type = GeoPackageGeometry::BaseType(blob);
  return type == 3 || type == 6 || type == 10 || type == 12;
}

// Copies one value of `rows` into the same place of `insert`, keeping its storage class.
void BindCopy(SqliteStatement& insert, SqliteStatement& rows, int column) {
  switch (rows.ColumnType(column)) {
    case SQLITE_INTEGER:
      insert.Bind(column + 1, rows.Int64(column));
      break;
    case SQLITE_FLOAT:
      insert.Bind(column + 1, rows.Double(column));
      break;
    case SQLITE_TEXT:
      insert.Bind(column + 1, rows.Text(column));
      break;
    case SQLITE_BLOB:
      insert.BindBlob(column + 1, rows.Text(column));
      break;
    default:
      insert.BindNull(column + 1);
  }
}

}  // namespace

LayerImport::LayerImport(Request request) : request_(std::move(request)) {}

LayerImport::~LayerImport() = default;

std::string LayerImport::Where() const {
  return "The table '" + info_.Name() + "' of '" + request_.from_gpkg + "'";
}

std::string LayerImport::FieldList() const {
  std::string names;
  const auto& columns = info_.Columns();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    names += (i == 0 ? "" : (i + 1 == columns.size() ? " and " : ", ")) + ("'" + columns[i].name + "'");
  }
  return columns.empty() ? "it has no fields." : "its fields are " + names + ".";
}

void LayerImport::ReadSource() {
  ProjectChecks::CheckExistingFile(request_.from_gpkg, "GeoPackage");
  source_ = std::make_unique<SqliteConnection>(request_.from_gpkg, SQLITE_OPEN_READONLY,
                                               SqliteConnection::Limits());
  ProjectSchema::VerifyGeoPackage(*source_);
  if (!source_->TableExists(request_.table)) RefuseMissingTable();
  info_ = FeatureTableInfo::Inspect(*source_, request_.table);
}

void LayerImport::RefuseMissingTable() const {
  SqliteStatement rows = source_->Prepare(
      "SELECT table_name FROM gpkg_contents WHERE data_type = 'features' ORDER BY table_name");
  std::vector<std::string> names;
  while (rows.Step()) names.push_back(rows.Text(0));
  std::string list;
  for (std::size_t i = 0; i < names.size(); ++i) {
    list += (i == 0 ? "" : (i + 1 == names.size() ? " and " : ", ")) + ("'" + names[i] + "'");
  }
  ProjectChecks::Refuse(
      "The file '" + request_.from_gpkg + "' holds no table named '" + request_.table + "'; " +
      (names.empty() ? std::string("it has no feature tables.") : "its feature tables are " + list + "."));
}

void LayerImport::Check() {
  const std::string where = Where();
  if (info_.GeometryColumn().empty()) {
    ProjectChecks::Refuse(where + " is not a feature table: it has no geometry column.");
  }
  if (!IsPolygonTypeName(info_.GeometryType())) {
    ProjectChecks::Refuse(where + " holds " + info_.GeometryType() + " geometries, not polygons.");
  }
  if (info_.PrimaryKey().empty()) {
    ProjectChecks::Refuse(where + " has no primary key that identifies its features.");
  }
  const FeatureTableInfo::Column* id =
      request_.id_field.empty() ? info_.Find(info_.PrimaryKey()) : info_.Find(request_.id_field);
  if (id == nullptr)
    ProjectChecks::Refuse(where + " has no field '" + request_.id_field + "'; " + FieldList());
  id_ = *id;
  const FeatureTableInfo::Column* label =
      request_.label_field.empty() ? nullptr : info_.Find(request_.label_field);
  if (!request_.label_field.empty() && label == nullptr) {
    ProjectChecks::Refuse(where + " has no field '" + request_.label_field + "'; " + FieldList());
  }
  if (label != nullptr) label_ = *label;
}

int32_t LayerImport::Write(ProjectLayerTables& layers, SqliteConnection& project) {
  layers.CheckPlacement(request_.name, request_.parent);
  const std::vector<std::string> copied = CopiedColumns();
  const std::string target = layers.NewTableName(request_.name);
  CreateTable(project, target, copied);
  const int32_t count = CopyRows(project, target, copied);
  CopySpatialReference(project);
  layers.Register(ProjectLayerTables::FeatureTable{target, request_.name, info_.GeometryColumn(),
                                                   info_.GeometryType(), info_.SrsId(), SourceExtent(),
                                                   info_.Z(), info_.M()});
  layers.InsertLayerRow(
      {request_.name, request_.kind, request_.parent, id_->name, label_ ? label_->name : "", target});
  return count;
}

std::vector<std::string> LayerImport::CopiedColumns() const {
  // The feature-id column keeps its name, so fields named after it still resolve.
  std::vector<std::string> copied = {info_.PrimaryKey(), info_.GeometryColumn()};
  for (const std::optional<FeatureTableInfo::Column>& column : {id_, label_}) {
    if (!column) continue;
    bool already = false;
    for (const std::string& name_copied : copied) already = already || TextEquals(name_copied, column->name);
    if (!already) copied.push_back(column->name);
  }
  return copied;
}

void LayerImport::CreateTable(SqliteConnection& project, const std::string& target,
                              const std::vector<std::string>& copied) const {
  std::string create = "CREATE TABLE " + Quote(target) + " (" + Quote(info_.PrimaryKey()) +
                       " INTEGER PRIMARY KEY AUTOINCREMENT, " + Quote(info_.GeometryColumn()) + " " +
                       info_.GeometryType();
  for (size_t i = 2; i < copied.size(); ++i) {
    const FeatureTableInfo::Column* column = info_.Find(copied[i]);
    // GeoPackage readers need a declared type; an untyped field is read as text.
    create += ", " + Quote(column->name) + " " + (column->type.empty() ? std::string("TEXT") : column->type);
  }
  project.Execute(create + ")");
  if (!TextEquals(id_->name, info_.PrimaryKey())) {
    project.Execute("CREATE INDEX " + Quote(target + "_" + id_->name + "_index") + " ON " + Quote(target) +
                    " (" + Quote(id_->name) + ")");
  }
}

int32_t LayerImport::CopyRows(SqliteConnection& project, const std::string& target,
                              const std::vector<std::string>& copied) const {
  std::string select = "SELECT ";
  std::string insert_sql = "INSERT INTO " + Quote(target) + " (";
  std::string values;
  for (size_t i = 0; i < copied.size(); ++i) {
    select += (i ? ", " : "") + Quote(copied[i]);
    insert_sql += (i ? ", " : "") + Quote(copied[i]);
    values += (i ? ", ?" : "?") + std::to_string(i + 1);
  }
  SqliteStatement rows =
      source_->Prepare(select + " FROM " + Quote(info_.Name()) + " ORDER BY " + Quote(info_.PrimaryKey()));
  SqliteStatement insert = project.Prepare(insert_sql + ") VALUES (" + values + ")");
  int32_t count = 0;
  while (rows.Step()) {
    for (size_t i = 0; i < copied.size(); ++i) BindCopy(insert, rows, static_cast<int>(i));
    if (!rows.IsNull(1) && !IsPolygonBlob(rows.Text(1))) {
      ProjectChecks::Refuse(Where() + " has a feature (" + rows.Text(0) +
                            ") whose geometry is not a polygon.");
    }
    insert.Run();
    insert.Reset();
    ++count;
  }
  return count;
}

void LayerImport::CopySpatialReference(SqliteConnection& project) const {
  const int32_t srs_id = info_.SrsId();
  SqliteStatement srs = source_->Prepare(
      "SELECT srs_name, srs_id, organization, organization_coordsys_id, definition, description"
      " FROM gpkg_spatial_ref_sys WHERE srs_id = ?1");
  if (!srs.Bind(1, static_cast<int64_t>(srs_id)).Step()) {
    ProjectChecks::Refuse(Where() + " names the spatial reference system " + std::to_string(srs_id) +
                          ", which its file does not describe.");
  }
  SqliteStatement held = project.Prepare(
      "SELECT organization, organization_coordsys_id, definition FROM gpkg_spatial_ref_sys WHERE srs_id = "
      "?1");
  if (held.Bind(1, static_cast<int64_t>(srs_id)).Step()) {
    const bool same = (TextEquals(held.Text(0), srs.Text(2)) && held.Int64(1) == srs.Int64(3)) ||
                      held.Text(2) == srs.Text(4);
    if (!same) {
      ProjectChecks::Refuse(Where() + " uses the spatial reference system " + std::to_string(srs_id) + " (" +
                            srs.Text(2) + " " + std::to_string(srs.Int64(3)) +
                            "), but the project already gives that number to " + held.Text(0) + " " +
                            std::to_string(held.Int64(1)) + ".");
    }
    return;
  }
  SqliteStatement copy = project.Prepare(
      "INSERT INTO gpkg_spatial_ref_sys (srs_name, srs_id, organization, organization_coordsys_id,"
      " definition, description) VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
  copy.Bind(1, srs.Text(0)).Bind(2, srs.Int64(1)).Bind(3, srs.Text(2)).Bind(4, srs.Int64(3));
  copy.Bind(5, srs.Text(4));
  if (srs.IsNull(5)) {
    copy.BindNull(6);
  } else {
    copy.Bind(6, srs.Text(5));
  }
  copy.Run();
}

GeoPackageGeometry::Envelope LayerImport::SourceExtent() const {
  GeoPackageGeometry::Envelope extent;
  SqliteStatement bounds = source_->Prepare(
      "SELECT min_x, min_y, max_x, max_y FROM gpkg_contents WHERE table_name = ?1 COLLATE NOCASE"
      " AND min_x IS NOT NULL AND min_y IS NOT NULL AND max_x IS NOT NULL AND max_y IS NOT NULL");
  if (bounds.Bind(1, info_.Name()).Step()) {
    extent.Include(bounds.Double(0), bounds.Double(1));
    extent.Include(bounds.Double(2), bounds.Double(3));
  }
  return extent;
}

}  // namespace zrsimprp
