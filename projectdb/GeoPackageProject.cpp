#include "projectdb/GeoPackageProject.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cctype>
#include <filesystem>
#include <system_error>
#include <unordered_set>

#include "projectdb/FeatureTableInfo.h"
#include "projectdb/GeoPackageGeometry.h"
#include "projectdb/ProjectEngineDefaults.h"
#include "projectdb/ProjectLayer.h"
#include "projectdb/ProjectLayerCatalogue.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/ProjectSettingsTable.h"
#include "projectdb/SourcedCall.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "projectdb/SqliteTransaction.h"
#include "projectdb/StoredDataFilter.h"
#include "projectdb/StoredDesign.h"
#include "projectdb/StoredModelDefinition.h"
#include "projectdb/StoredRecordGroup.h"
#include "projectdb/StoredSurvey.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

constexpr const char* kSource = "ProjectDatabase";

std::string Quote(const std::string& identifier) { return SqliteConnection::QuoteIdentifier(identifier); }

[[noreturn]] void Refuse(const std::string& description) {
  throw RuntimeError(error_number::kInvalidProcedureCall, kSource, description);
}

SqliteConnection::Limits ToLimits(const GeoPackageProject::OpenOptions& options) {
  SqliteConnection::Limits limits;
  limits.statement_step_limit = options.statement_step_limit;
  limits.busy_timeout_ms = options.busy_timeout_ms;
  return limits;
}

// Explains a path that cannot be a project before SQLite is asked, so that the message names the cause.
void CheckExistingFile(const std::string& path, const std::string& role) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (path.empty()) Refuse("No " + role + " was named.");
  if (!std::filesystem::exists(status)) Refuse("The " + role + " '" + path + "' does not exist.");
  if (std::filesystem::is_directory(status)) Refuse("'" + path + "' is a folder, not a " + role + ".");
  if (std::filesystem::file_size(path, error) == 0 && !error) {
    Refuse("The file '" + path + "' is empty, so it is not a " + role + ".");
  }
}

// SQLite opens a write-protected file read-only by itself, but a file in a folder that may not be
// written opens "read-write" and then fails on the first write, when its journal cannot be made.
bool MayWrite(const std::string& path) {
  const std::filesystem::path file(path);
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  return ::access(path.c_str(), W_OK) == 0 && ::access(folder.c_str(), W_OK) == 0;
}

void CheckName(const std::string& name, const std::string& what) {
  if (TrimBlanks(name).empty()) Refuse("A " + what + " needs a name.");
  if (name.find('\0') != std::string::npos)
    Refuse("The name of a " + what + " may not hold a NUL character.");
}

bool RowExists(SqliteConnection& connection, const std::string& table, const std::string& column,
               const std::string& value) {
  SqliteStatement statement = connection.Prepare("SELECT 1 FROM " + Quote(table) + " WHERE " + Quote(column) +
                                                 " = ?1 COLLATE NOCASE");
  statement.Bind(1, value);
  return statement.Step();
}

bool IdExists(SqliteConnection& connection, const std::string& table, int32_t id) {
  SqliteStatement statement = connection.Prepare("SELECT 1 FROM " + Quote(table) + " WHERE id = ?1");
  statement.Bind(1, static_cast<int64_t>(id));
  return statement.Step();
}

// A table name derived from the layer name, unused in the file and clear of the reserved prefixes.
std::string NewTableName(SqliteConnection& connection, const std::string& layer_name) {
  std::string base;
  for (const char c : layer_name) {
    const unsigned char u = static_cast<unsigned char>(c);
    const bool keep = std::isalnum(u) && u < 128;
    const char mapped = keep ? static_cast<char>(std::tolower(u)) : '_';
    if (mapped != '_' || (!base.empty() && base.back() != '_')) base += mapped;
  }
  while (!base.empty() && base.back() == '_') base.pop_back();
  const std::string lower = ToLowerAscii(base);
  if (base.empty() || std::isdigit(static_cast<unsigned char>(base[0])) || lower.rfind("gpkg", 0) == 0 ||
      lower.rfind("zrsim", 0) == 0 || lower.rfind("sqlite", 0) == 0 || lower.rfind("rtree", 0) == 0) {
    base = "layer_" + base;
  }
  std::string name = base;
  for (int suffix = 2; connection.TableExists(name); ++suffix) name = base + "_" + std::to_string(suffix);
  return name;
}

void CheckLayerPlacement(SqliteConnection& connection, const std::string& name, const std::string& parent) {
  CheckName(name, "layer");
  if (RowExists(connection, ProjectSchema::kLayersTable, "name", name)) {
    Refuse("The project already has a layer named '" + name + "'.");
  }
  if (!parent.empty() && !RowExists(connection, ProjectSchema::kLayersTable, "name", parent)) {
    Refuse("The parent layer '" + parent + "' of the layer '" + name + "' is not in the project.");
  }
}

void InsertLayerRow(SqliteConnection& connection, const GeoPackageProject::LayerInfo& info) {
  SqliteStatement insert = connection.Prepare(std::string("INSERT INTO ") + ProjectSchema::kLayersTable +
                                              " (name, kind, parent, id_field, label_field, table_name)"
                                              " VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
  insert.Bind(1, info.name).Bind(2, static_cast<int64_t>(info.kind)).Bind(3, info.parent);
  insert.Bind(4, info.id_field).Bind(5, info.label_field).Bind(6, info.table_name).Run();
  ProjectSchema::Touch(connection, ProjectSchema::kLayersTable);
}

void RegisterFeatureTable(SqliteConnection& connection, const std::string& table,
                          const std::string& identifier, const std::string& geometry_column,
                          const std::string& geometry_type, int32_t srs_id,
                          const GeoPackageGeometry::Envelope& extent) {
  SqliteStatement contents = connection.Prepare(
      "INSERT INTO gpkg_contents (table_name, data_type, identifier, description, min_x, min_y, max_x, max_y,"
      " srs_id) VALUES (?1, 'features', ?2, '', ?3, ?4, ?5, ?6, ?7)");
  contents.Bind(1, table).Bind(2, identifier);
  if (extent.empty) {
    for (int i = 3; i <= 6; ++i) contents.BindNull(i);
  } else {
    contents.Bind(3, extent.min_x).Bind(4, extent.min_y).Bind(5, extent.max_x).Bind(6, extent.max_y);
  }
  contents.Bind(7, static_cast<int64_t>(srs_id)).Run();
  SqliteStatement columns = connection.Prepare(
      "INSERT INTO gpkg_geometry_columns (table_name, column_name, geometry_type_name, srs_id, z, m)"
      " VALUES (?1, ?2, ?3, ?4, 0, 0)");
  columns.Bind(1, table)
      .Bind(2, geometry_column)
      .Bind(3, geometry_type)
      .Bind(4, static_cast<int64_t>(srs_id));
  columns.Run();
}

void CheckFeatures(const std::string& layer, const std::vector<PolygonFeature>& features, bool id_is_fid) {
  std::unordered_set<int32_t> seen;
  for (const PolygonFeature& feature : features) {
    if (!seen.insert(feature.id).second) {
      Refuse("Two features of the layer '" + layer + "' have the identifier " + std::to_string(feature.id) +
             ".");
    }
    if (id_is_fid && feature.id <= 0) {
      Refuse("The features of the layer '" + layer + "' need identifiers above 0.");
    }
  }
}

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

}  // namespace

GeoPackageProject::GeoPackageProject(std::string path, std::unique_ptr<SqliteConnection> connection)
    : path_(std::move(path)), connection_(std::move(connection)) {}

GeoPackageProject::~GeoPackageProject() = default;

std::shared_ptr<GeoPackageProject> GeoPackageProject::Open(const std::string& path) {
  return Open(path, OpenOptions());
}

std::shared_ptr<GeoPackageProject> GeoPackageProject::Open(const std::string& path,
                                                           const OpenOptions& options) {
  return SourcedCall(kSource, [&]() {
    CheckExistingFile(path, "project file");
    const int flags = options.read_only || !MayWrite(path) ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    auto connection = std::make_unique<SqliteConnection>(path, flags, ToLimits(options));
    ProjectSchema::Verify(*connection);
    return std::shared_ptr<GeoPackageProject>(new GeoPackageProject(path, std::move(connection)));
  });
}

std::shared_ptr<GeoPackageProject> GeoPackageProject::Create(const std::string& path) {
  return SourcedCall(kSource, [&]() {
    if (path.empty()) Refuse("No file name was given for the new project.");
    std::error_code error;
    if (std::filesystem::exists(path, error)) {
      Refuse("The file '" + path + "' already exists; a new project needs a file name that is not in use.");
    }
    try {
      auto connection = std::make_unique<SqliteConnection>(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                                                           SqliteConnection::Limits());
      SqliteTransaction transaction(*connection);
      ProjectSchema::Create(*connection);
      transaction.Commit();
      return std::shared_ptr<GeoPackageProject>(new GeoPackageProject(path, std::move(connection)));
    } catch (const RuntimeError& failure) {
      std::filesystem::remove(path, error);
      throw RuntimeError(failure.number, kSource,
                         "The project file '" + path + "' could not be created. " + failure.description);
    }
  });
}

std::string GeoPackageProject::Path() const { return path_; }

bool GeoPackageProject::IsReadOnly() { return sqlite3_db_readonly(connection_->Handle(), "main") == 1; }

std::vector<std::string> GeoPackageProject::SimulationNames() {
  return SourcedCall(kSource, [&]() {
    SqliteStatement rows = connection_->Prepare(std::string("SELECT name FROM ") +
                                                ProjectSchema::kSimulationsTable + " ORDER BY fid");
    std::vector<std::string> names;
    while (rows.Step()) names.push_back(rows.RequireText(0, "the name of a simulation"));
    return names;
  });
}

std::string GeoPackageProject::SimulationDefinition(const std::string& name) {
  return SourcedCall(kSource, [&]() {
    SqliteStatement row = connection_->Prepare(std::string("SELECT definition FROM ") +
                                               ProjectSchema::kSimulationsTable + " WHERE name = ?1");
    row.Bind(1, name);
    if (!row.Step()) Refuse("The project has no simulation named '" + name + "'.");
    return row.RequireText(0, "the definition of the simulation '" + name + "'");
  });
}

void GeoPackageProject::SaveSimulationDefinition(const std::string& name, const std::string& text) {
  SourcedCall(kSource, [&]() {
    CheckName(name, "simulation");
    if (text.empty()) {
      Refuse("An empty definition is not saved; the simulation '" + name +
             "' keeps its previous definition.");
    }
    SqliteTransaction transaction(*connection_);
    SqliteStatement update = connection_->Prepare(std::string("UPDATE ") + ProjectSchema::kSimulationsTable +
                                                  " SET definition = ?2 WHERE name = ?1");
    update.Bind(1, name).Bind(2, text).Run();
    if (connection_->Changes() == 0) {
      SqliteStatement insert =
          connection_->Prepare(std::string("INSERT INTO ") + ProjectSchema::kSimulationsTable +
                               " (name, definition) VALUES (?1, ?2)");
      insert.Bind(1, name).Bind(2, text).Run();
    }
    ProjectSchema::Touch(*connection_, ProjectSchema::kSimulationsTable);
    transaction.Commit();
  });
}

void GeoPackageProject::AddLayer(const std::string& name, int32_t kind, const std::string& parent_name,
                                 const std::string& id_field, const std::string& label_field,
                                 const std::vector<PolygonFeature>& features, int32_t srs_id) {
  SourcedCall(kSource, [&]() {
    SqliteTransaction transaction(*connection_);
    CheckLayerPlacement(*connection_, name, parent_name);
    CheckName(id_field, "layer's identifier field");
    const bool id_is_fid = TextEquals(id_field, "fid");
    if (TextEquals(id_field, "geom") || TextEquals(label_field, "geom") || TextEquals(label_field, "fid") ||
        TextEquals(label_field, id_field)) {
      Refuse("The fields of the layer '" + name + "' must differ from each other and from 'fid' and 'geom'.");
    }
    CheckFeatures(name, features, id_is_fid);
    SqliteStatement srs = connection_->Prepare("SELECT 1 FROM gpkg_spatial_ref_sys WHERE srs_id = ?1");
    if (!srs.Bind(1, static_cast<int64_t>(srs_id)).Step()) {
      Refuse("The project has no spatial reference system " + std::to_string(srs_id) + ".");
    }

    bool multi = false;
    for (const PolygonFeature& feature : features) multi = multi || feature.polygons.size() != 1;
    const std::string geometry_type = multi ? "MULTIPOLYGON" : "POLYGON";
    const std::string table = NewTableName(*connection_, name);
    std::string create =
        "CREATE TABLE " + Quote(table) + " (fid INTEGER PRIMARY KEY AUTOINCREMENT, geom " + geometry_type;
    if (!id_is_fid) create += ", " + Quote(id_field) + " INTEGER NOT NULL UNIQUE";
    if (!label_field.empty()) create += ", " + Quote(label_field) + " TEXT";
    connection_->Execute(create + ")");

    std::string insert_sql = "INSERT INTO " + Quote(table) + " (fid, geom";
    if (!id_is_fid) insert_sql += ", " + Quote(id_field);
    if (!label_field.empty()) insert_sql += ", " + Quote(label_field);
    insert_sql +=
        ") VALUES (?1, ?2" + std::string(id_is_fid ? "" : ", ?3") + (label_field.empty() ? "" : ", ?4") + ")";
    SqliteStatement insert = connection_->Prepare(insert_sql);
    GeoPackageGeometry::Envelope extent;
    int64_t fid = 0;
    for (const PolygonFeature& feature : features) {
      GeoPackageGeometry::Envelope envelope;
      const std::string blob = GeoPackageGeometry::EncodePolygons(feature, srs_id, multi, envelope);
      extent.Include(envelope);
      insert.Bind(1, id_is_fid ? static_cast<int64_t>(feature.id) : ++fid).BindBlob(2, blob);
      if (!id_is_fid) insert.Bind(3, static_cast<int64_t>(feature.id));
      if (!label_field.empty()) insert.Bind(4, feature.label);
      insert.Run();
      insert.Reset();
    }
    RegisterFeatureTable(*connection_, table, name, "geom", geometry_type, srs_id, extent);
    InsertLayerRow(*connection_, LayerInfo{name, kind, parent_name, id_field, label_field, table});
    transaction.Commit();
  });
}

int32_t GeoPackageProject::ImportLayer(const std::string& from_gpkg, const std::string& table,
                                       const std::string& id_field, const std::string& label_field,
                                       const std::string& name, int32_t kind, const std::string& parent) {
  return SourcedCall(kSource, [&]() {
    CheckExistingFile(from_gpkg, "GeoPackage");
    SqliteConnection source(from_gpkg, SQLITE_OPEN_READONLY, SqliteConnection::Limits());
    ProjectSchema::VerifyGeoPackage(source);
    const FeatureTableInfo info = FeatureTableInfo::Inspect(source, table);
    const std::string where = "The table '" + info.Name() + "' of '" + from_gpkg + "'";
    if (info.GeometryColumn().empty()) Refuse(where + " is not a feature table: it has no geometry column.");
    if (!IsPolygonTypeName(info.GeometryType())) {
      Refuse(where + " holds " + info.GeometryType() + " geometries, not polygons.");
    }
    if (info.PrimaryKey().empty()) Refuse(where + " has no primary key that identifies its features.");
    const FeatureTableInfo::Column* id =
        id_field.empty() ? info.Find(info.PrimaryKey()) : info.Find(id_field);
    if (id == nullptr) Refuse(where + " has no field '" + id_field + "'.");
    const FeatureTableInfo::Column* label = label_field.empty() ? nullptr : info.Find(label_field);
    if (!label_field.empty() && label == nullptr) Refuse(where + " has no field '" + label_field + "'.");

    SqliteTransaction transaction(*connection_);
    CheckLayerPlacement(*connection_, name, parent);
    // The feature-id column keeps its name, so fields named after it still resolve.
    std::vector<std::string> copied = {info.PrimaryKey(), info.GeometryColumn()};
    const std::string target = NewTableName(*connection_, name);
    std::string create = "CREATE TABLE " + Quote(target) + " (" + Quote(info.PrimaryKey()) +
                         " INTEGER PRIMARY KEY AUTOINCREMENT, " + Quote(info.GeometryColumn()) + " " +
                         info.GeometryType();
    for (const FeatureTableInfo::Column* column : {id, label}) {
      if (column == nullptr) continue;
      bool already = false;
      for (const std::string& name_copied : copied)
        already = already || TextEquals(name_copied, column->name);
      if (already) continue;
      copied.push_back(column->name);
      create += ", " + Quote(column->name) + " " + column->type;
    }
    connection_->Execute(create + ")");
    if (!TextEquals(id->name, info.PrimaryKey())) {
      connection_->Execute("CREATE INDEX " + Quote(target + "_" + id->name + "_index") + " ON " +
                           Quote(target) + " (" + Quote(id->name) + ")");
    }

    std::string select = "SELECT ";
    std::string insert_sql = "INSERT INTO " + Quote(target) + " (";
    std::string values;
    for (size_t i = 0; i < copied.size(); ++i) {
      select += (i ? ", " : "") + Quote(copied[i]);
      insert_sql += (i ? ", " : "") + Quote(copied[i]);
      values += (i ? ", ?" : "?") + std::to_string(i + 1);
    }
    SqliteStatement rows =
        source.Prepare(select + " FROM " + Quote(info.Name()) + " ORDER BY " + Quote(info.PrimaryKey()));
    SqliteStatement insert = connection_->Prepare(insert_sql + ") VALUES (" + values + ")");
    int32_t count = 0;
    while (rows.Step()) {
      for (size_t i = 0; i < copied.size(); ++i) {
        const int column = static_cast<int>(i);
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
      if (!rows.IsNull(1) && !IsPolygonBlob(rows.Text(1))) {
        Refuse(where + " has a feature (" + rows.Text(0) + ") whose geometry is not a polygon.");
      }
      insert.Run();
      insert.Reset();
      ++count;
    }

    SqliteStatement srs = source.Prepare(
        "SELECT srs_name, srs_id, organization, organization_coordsys_id, definition, description"
        " FROM gpkg_spatial_ref_sys WHERE srs_id = ?1");
    if (srs.Bind(1, static_cast<int64_t>(info.SrsId())).Step()) {
      SqliteStatement copy = connection_->Prepare(
          "INSERT OR IGNORE INTO gpkg_spatial_ref_sys (srs_name, srs_id,"
          " organization, organization_coordsys_id, definition, description)"
          " VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
      copy.Bind(1, srs.Text(0)).Bind(2, srs.Int64(1)).Bind(3, srs.Text(2)).Bind(4, srs.Int64(3));
      copy.Bind(5, srs.Text(4)).Bind(6, srs.Text(5)).Run();
    }
    GeoPackageGeometry::Envelope extent;
    SqliteStatement bounds = source.Prepare(
        "SELECT min_x, min_y, max_x, max_y FROM gpkg_contents WHERE table_name = ?1 COLLATE NOCASE"
        " AND min_x IS NOT NULL AND min_y IS NOT NULL AND max_x IS NOT NULL AND max_y IS NOT NULL");
    if (bounds.Bind(1, info.Name()).Step()) {
      extent.Include(bounds.Double(0), bounds.Double(1));
      extent.Include(bounds.Double(2), bounds.Double(3));
    }
    RegisterFeatureTable(*connection_, target, name, info.GeometryColumn(), info.GeometryType(), info.SrsId(),
                         extent);
    InsertLayerRow(*connection_, LayerInfo{name, kind, parent, id->name, label ? label->name : "", target});
    transaction.Commit();
    return count;
  });
}

void GeoPackageProject::AddDesign(int32_t id, const std::string& name, const std::string& definition_text) {
  SourcedCall(kSource, [&]() {
    SqliteTransaction transaction(*connection_);
    if (IdExists(*connection_, ProjectSchema::kDesignsTable, id)) {
      Refuse("The project already has a design with the identifier " + std::to_string(id) + ".");
    }
    SqliteStatement insert = connection_->Prepare(std::string("INSERT INTO ") + ProjectSchema::kDesignsTable +
                                                  " (id, name, definition) VALUES (?1, ?2, ?3)");
    insert.Bind(1, static_cast<int64_t>(id)).Bind(2, name).Bind(3, definition_text).Run();
    ProjectSchema::Touch(*connection_, ProjectSchema::kDesignsTable);
    transaction.Commit();
  });
}

void GeoPackageProject::AddSurvey(int32_t id, const std::string& name, int32_t status, int32_t design_id) {
  SourcedCall(kSource, [&]() {
    SqliteTransaction transaction(*connection_);
    if (IdExists(*connection_, ProjectSchema::kSurveysTable, id)) {
      Refuse("The project already has a survey with the identifier " + std::to_string(id) + ".");
    }
    if (!IdExists(*connection_, ProjectSchema::kDesignsTable, design_id)) {
      Refuse("The survey " + std::to_string(id) + " names the design " + std::to_string(design_id) +
             ", which the project does not have.");
    }
    SqliteStatement insert = connection_->Prepare(std::string("INSERT INTO ") + ProjectSchema::kSurveysTable +
                                                  " (id, name, status, design_id) VALUES (?1, ?2, ?3, ?4)");
    insert.Bind(1, static_cast<int64_t>(id)).Bind(2, name).Bind(3, static_cast<int64_t>(status));
    insert.Bind(4, static_cast<int64_t>(design_id)).Run();
    ProjectSchema::Touch(*connection_, ProjectSchema::kSurveysTable);
    transaction.Commit();
  });
}

void GeoPackageProject::AddDataFilter(int32_t id, const std::string& name) {
  SourcedCall(kSource, [&]() {
    SqliteTransaction transaction(*connection_);
    if (IdExists(*connection_, ProjectSchema::kDataFiltersTable, id)) {
      Refuse("The project already has a data filter with the identifier " + std::to_string(id) + ".");
    }
    SqliteStatement insert = connection_->Prepare(
        std::string("INSERT INTO ") + ProjectSchema::kDataFiltersTable + " (id, name) VALUES (?1, ?2)");
    insert.Bind(1, static_cast<int64_t>(id)).Bind(2, name).Run();
    ProjectSchema::Touch(*connection_, ProjectSchema::kDataFiltersTable);
    transaction.Commit();
  });
}

void GeoPackageProject::AddModelDefinition(int32_t id, const std::string& name, const std::string& engine,
                                           const std::string& definition_text) {
  SourcedCall(kSource, [&]() {
    SqliteTransaction transaction(*connection_);
    if (IdExists(*connection_, ProjectSchema::kModelDefinitionsTable, id)) {
      Refuse("The project already has a model definition with the identifier " + std::to_string(id) + ".");
    }
    SqliteStatement insert =
        connection_->Prepare(std::string("INSERT INTO ") + ProjectSchema::kModelDefinitionsTable +
                             " (id, name, engine, definition) VALUES (?1, ?2, ?3, ?4)");
    insert.Bind(1, static_cast<int64_t>(id)).Bind(2, name).Bind(3, engine).Bind(4, definition_text).Run();
    ProjectSchema::Touch(*connection_, ProjectSchema::kModelDefinitionsTable);
    transaction.Commit();
  });
}

void GeoPackageProject::SetEngineDefault(const std::string& engine, const std::string& text) {
  SourcedCall(kSource, [&]() {
    CheckName(engine, "engine");
    SqliteTransaction transaction(*connection_);
    SqliteStatement upsert =
        connection_->Prepare(std::string("INSERT INTO ") + ProjectSchema::kEngineDefaultsTable +
                             " (engine, definition) VALUES (?1, ?2) ON CONFLICT (engine) DO UPDATE SET "
                             "definition = excluded.definition");
    upsert.Bind(1, engine).Bind(2, text).Run();
    ProjectSchema::Touch(*connection_, ProjectSchema::kEngineDefaultsTable);
    transaction.Commit();
  });
}

GeoPackageProject::LayerInfo GeoPackageProject::LayerInfo::FromRow(SqliteStatement& row) {
  LayerInfo info;
  info.name = row.RequireText(0, "the name of a layer");
  info.kind = row.RequireInt32(1, "the kind of the layer '" + info.name + "'");
  info.parent = row.RequireText(2, "the parent of the layer '" + info.name + "'");
  info.id_field = row.RequireText(3, "the identifier field of the layer '" + info.name + "'");
  info.label_field = row.RequireText(4, "the label field of the layer '" + info.name + "'");
  info.table_name = row.RequireText(5, "the table of the layer '" + info.name + "'");
  return info;
}

std::vector<GeoPackageProject::LayerInfo> GeoPackageProject::Layers() {
  return SourcedCall(kSource, [&]() {
    SqliteStatement rows = connection_->Prepare(std::string("SELECT ") + LayerInfo::kColumns + " FROM " +
                                                ProjectSchema::kLayersTable + " ORDER BY fid");
    std::vector<LayerInfo> layers;
    while (rows.Step()) layers.push_back(LayerInfo::FromRow(rows));
    return layers;
  });
}

std::vector<GeoPackageProject::DesignInfo> GeoPackageProject::Designs() {
  return SourcedCall(kSource, [&]() {
    SqliteStatement rows = connection_->Prepare(std::string("SELECT id, name, definition FROM ") +
                                                ProjectSchema::kDesignsTable + " ORDER BY id");
    std::vector<DesignInfo> designs;
    while (rows.Step()) {
      DesignInfo info;
      info.id = rows.RequireInt32(0, "the identifier of a design");
      const std::string which = "the design " + std::to_string(info.id);
      info.name = rows.RequireText(1, "the name of " + which);
      info.definition_text = rows.RequireText(2, "the definition of " + which);
      designs.push_back(std::move(info));
    }
    return designs;
  });
}

std::vector<GeoPackageProject::SurveyInfo> GeoPackageProject::Surveys() {
  return SourcedCall(kSource, [&]() {
    SqliteStatement rows = connection_->Prepare(std::string("SELECT id, name, status, design_id FROM ") +
                                                ProjectSchema::kSurveysTable + " ORDER BY id");
    std::vector<SurveyInfo> surveys;
    while (rows.Step()) {
      SurveyInfo info;
      info.id = rows.RequireInt32(0, "the identifier of a survey");
      const std::string which = "the survey " + std::to_string(info.id);
      info.name = rows.RequireText(1, "the name of " + which);
      info.status = rows.RequireInt32(2, "the status of " + which);
      info.design_id = rows.RequireInt32(3, "the design of " + which);
      surveys.push_back(std::move(info));
    }
    return surveys;
  });
}

std::vector<GeoPackageProject::DataFilterInfo> GeoPackageProject::DataFilterList() {
  return SourcedCall(kSource, [&]() {
    SqliteStatement rows = connection_->Prepare(std::string("SELECT id, name FROM ") +
                                                ProjectSchema::kDataFiltersTable + " ORDER BY id");
    std::vector<DataFilterInfo> filters;
    while (rows.Step()) {
      DataFilterInfo info;
      info.id = rows.RequireInt32(0, "the identifier of a data filter");
      info.name = rows.RequireText(1, "the name of the data filter " + std::to_string(info.id));
      filters.push_back(std::move(info));
    }
    return filters;
  });
}

std::vector<GeoPackageProject::ModelDefinitionInfo> GeoPackageProject::ModelDefinitionList() {
  return SourcedCall(kSource, [&]() {
    SqliteStatement rows = connection_->Prepare(std::string("SELECT id, name, engine, definition FROM ") +
                                                ProjectSchema::kModelDefinitionsTable + " ORDER BY id");
    std::vector<ModelDefinitionInfo> models;
    while (rows.Step()) {
      ModelDefinitionInfo info;
      info.id = rows.RequireInt32(0, "the identifier of a model definition");
      const std::string which = "the model definition " + std::to_string(info.id);
      info.name = rows.RequireText(1, "the name of " + which);
      info.engine = rows.RequireText(2, "the engine of " + which);
      info.definition_text = rows.RequireText(3, "the definition of " + which);
      models.push_back(std::move(info));
    }
    return models;
  });
}

int64_t GeoPackageProject::FeatureCount(const std::string& layer_name) {
  return SourcedCall(kSource, [&]() {
    const std::vector<LayerInfo> layers = Layers();
    for (const LayerInfo& layer : layers) {
      if (!TextEquals(layer.name, layer_name)) continue;
      SqliteStatement count = connection_->Prepare("SELECT count(*) FROM " + Quote(layer.table_name));
      return count.Step() ? count.Int64(0) : int64_t{0};
    }
    Refuse("The project has no layer named '" + layer_name + "'.");
  });
}

std::shared_ptr<ProjectSettings> GeoPackageProject::Settings() {
  return std::make_shared<ProjectSettingsTable>(shared_from_this());
}

std::shared_ptr<LayerCatalogue> GeoPackageProject::Companion() {
  return std::make_shared<ProjectLayerCatalogue>(shared_from_this());
}

std::shared_ptr<zrsimprp::EngineDefaults> GeoPackageProject::EngineDefaults() {
  return std::make_shared<ProjectEngineDefaults>(shared_from_this());
}

std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> GeoPackageProject::DesignGroups() {
  std::vector<std::shared_ptr<DesignRecord>> records;
  for (DesignInfo& info : Designs()) records.push_back(std::make_shared<StoredDesign>(std::move(info)));
  return {std::make_shared<StoredRecordGroup<DesignRecord>>(std::move(records))};
}

std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> GeoPackageProject::SurveyGroups() {
  std::vector<std::shared_ptr<SurveyRecord>> records;
  for (SurveyInfo& info : Surveys()) records.push_back(std::make_shared<StoredSurvey>(std::move(info)));
  return {std::make_shared<StoredRecordGroup<SurveyRecord>>(std::move(records))};
}

std::vector<std::shared_ptr<DataFilter>> GeoPackageProject::DataFilters() {
  std::vector<std::shared_ptr<DataFilter>> filters;
  for (DataFilterInfo& info : DataFilterList())
    filters.push_back(std::make_shared<StoredDataFilter>(std::move(info)));
  return filters;
}

std::vector<std::shared_ptr<ModelDefinition>> GeoPackageProject::ModelDefinitions() {
  std::vector<std::shared_ptr<ModelDefinition>> models;
  for (ModelDefinitionInfo& info : ModelDefinitionList()) {
    models.push_back(std::make_shared<StoredModelDefinition>(std::move(info)));
  }
  return models;
}

}  // namespace zrsimprp
