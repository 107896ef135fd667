#include "projectdb/ProjectSchema.h"

#include <sqlite3.h>

#include <algorithm>

#include "projectdb/SettingValueText.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

struct ColumnSpec {
  const char* name;
  const char* type;  // the declared type, checked on open
  const char* constraints;
  const char* old_type = nullptr;  // the type a file of format 1 declares instead, if it differs
};

struct TableSpec {
  const char* name;
  const char* identifier;
  std::vector<ColumnSpec> columns;
  const char* table_constraints;
};

// Every attribute table starts with an INTEGER PRIMARY KEY AUTOINCREMENT column, as GeoPackage asks.
const std::vector<TableSpec>& ProjectTables() {
  static const std::vector<TableSpec> tables = {
      {ProjectSchema::kProjectTable,
       "ZrSIM project",
       {{"fid", "INTEGER", "PRIMARY KEY AUTOINCREMENT"},
        {"format_version", "INTEGER", "NOT NULL"},
        {"application", "TEXT", "NOT NULL"}},
       ""},
      {ProjectSchema::kLayersTable,
       "ZrSIM layers",
       {{"fid", "INTEGER", "PRIMARY KEY AUTOINCREMENT"},
        {"name", "TEXT", "NOT NULL UNIQUE COLLATE NOCASE"},
        {"kind", "INTEGER", "NOT NULL"},
        {"parent", "TEXT", "NOT NULL DEFAULT ''"},
        {"id_field", "TEXT", "NOT NULL DEFAULT ''"},
        {"label_field", "TEXT", "NOT NULL DEFAULT ''"},
        {"table_name", "TEXT", "NOT NULL"}},
       ""},
      {ProjectSchema::kDesignsTable,
       "ZrSIM designs",
       {{"id", "INTEGER", "PRIMARY KEY AUTOINCREMENT"},
        {"name", "TEXT", "NOT NULL"},
        {"definition", "TEXT", "NOT NULL"}},
       ""},
      {ProjectSchema::kSurveysTable,
       "ZrSIM surveys",
       {{"id", "INTEGER", "PRIMARY KEY AUTOINCREMENT"},
        {"name", "TEXT", "NOT NULL"},
        {"status", "INTEGER", "NOT NULL"},
        {"design_id", "INTEGER", "NOT NULL"}},
       ""},
      {ProjectSchema::kDataFiltersTable,
       "ZrSIM data filters",
       {{"id", "INTEGER", "PRIMARY KEY AUTOINCREMENT"}, {"name", "TEXT", "NOT NULL"}},
       ""},
      {ProjectSchema::kModelDefinitionsTable,
       "ZrSIM model definitions",
       {{"id", "INTEGER", "PRIMARY KEY AUTOINCREMENT"},
        {"name", "TEXT", "NOT NULL"},
        {"engine", "TEXT", "NOT NULL"},
        {"definition", "TEXT", "NOT NULL"}},
       ""},
      {ProjectSchema::kSimulationsTable,
       "ZrSIM simulations",
       {{"fid", "INTEGER", "PRIMARY KEY AUTOINCREMENT"},
        {"name", "TEXT", "NOT NULL UNIQUE COLLATE NOCASE"},
        {"definition", "TEXT", "NOT NULL"}},
       ""},
      {ProjectSchema::kSettingsTable,
       "ZrSIM settings",
       {{"fid", "INTEGER", "PRIMARY KEY AUTOINCREMENT"},
        {"section", "TEXT", "NOT NULL COLLATE NOCASE"},
        {"key", "TEXT", "NOT NULL COLLATE NOCASE"},
        {"selector_a", "INTEGER", "NOT NULL DEFAULT 0"},
        {"selector_b", "INTEGER", "NOT NULL DEFAULT 0"},
        {"value_type", "TEXT", "NOT NULL"},
        {"value", "TEXT", "", ""}},
       ", UNIQUE (section, key)"},
      {ProjectSchema::kEngineDefaultsTable,
       "ZrSIM engine defaults",
       {{"fid", "INTEGER", "PRIMARY KEY AUTOINCREMENT"},
        {"engine", "TEXT", "NOT NULL UNIQUE COLLATE NOCASE"},
        {"definition", "TEXT", "NOT NULL"}},
       ""},
  };
  return tables;
}

const char* const kCoreTables =
    "CREATE TABLE gpkg_spatial_ref_sys ("
    " srs_name TEXT NOT NULL, srs_id INTEGER NOT NULL PRIMARY KEY, organization TEXT NOT NULL,"
    " organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL, description TEXT);"
    "CREATE TABLE gpkg_contents ("
    " table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL, identifier TEXT UNIQUE,"
    " description TEXT DEFAULT '',"
    " last_change DATETIME NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%fZ','now')),"
    " min_x DOUBLE, min_y DOUBLE, max_x DOUBLE, max_y DOUBLE, srs_id INTEGER,"
    " CONSTRAINT fk_gc_r_srs_id FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));"
    "CREATE TABLE gpkg_geometry_columns ("
    " table_name TEXT NOT NULL, column_name TEXT NOT NULL, geometry_type_name TEXT NOT NULL,"
    " srs_id INTEGER NOT NULL, z TINYINT NOT NULL, m TINYINT NOT NULL,"
    " CONSTRAINT pk_geom_cols PRIMARY KEY (table_name, column_name),"
    " CONSTRAINT uk_gc_table_name UNIQUE (table_name),"
    " CONSTRAINT fk_gc_tn FOREIGN KEY (table_name) REFERENCES gpkg_contents(table_name),"
    " CONSTRAINT fk_gc_srs FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys (srs_id));"
    "INSERT INTO gpkg_spatial_ref_sys VALUES"
    " ('Undefined cartesian SRS', -1, 'NONE', -1, 'undefined', 'undefined cartesian coordinate reference "
    "system'),"
    " ('Undefined geographic SRS', 0, 'NONE', 0, 'undefined', 'undefined geographic coordinate reference "
    "system'),"
    " ('WGS 84 geodetic', 4326, 'EPSG', 4326, 'GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\","
    "6378137,298.257223563,AUTHORITY[\"EPSG\",\"7030\"]],AUTHORITY[\"EPSG\",\"6326\"]],PRIMEM[\"Greenwich\","
    "0,"
    "AUTHORITY[\"EPSG\",\"8901\"]],UNIT[\"degree\",0.0174532925199433,AUTHORITY[\"EPSG\",\"9122\"]],"
    "AUTHORITY[\"EPSG\",\"4326\"]]', 'longitude/latitude coordinates in decimal degrees on the WGS 84 "
    "spheroid');";

std::string CreateTableSql(const TableSpec& table) {
  std::string sql = "CREATE TABLE " + SqliteConnection::QuoteIdentifier(table.name) + " (";
  for (size_t i = 0; i < table.columns.size(); ++i) {
    const ColumnSpec& column = table.columns[i];
    sql += (i ? ", " : "") + SqliteConnection::QuoteIdentifier(column.name) + " " + column.type + " " +
           column.constraints;
  }
  return sql + table.table_constraints + ")";
}

[[noreturn]] void Damaged(SqliteConnection& connection, const std::string& what) {
  throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite",
                     "The project file '" + connection.Path() + "' is damaged: " + what);
}

int32_t ReadPragmaInteger(SqliteConnection& connection, const std::string& pragma) {
  SqliteStatement statement = connection.Prepare("PRAGMA " + pragma);
  return statement.Step() ? static_cast<int32_t>(statement.Int64(0)) : 0;
}

}  // namespace

void ProjectSchema::VerifyGeoPackage(SqliteConnection& connection) {
  const int32_t application_id = ReadPragmaInteger(connection, "application_id");
  const bool known_id = application_id == ProjectSchema::kApplicationIdGpkg ||
                        application_id == ProjectSchema::kApplicationIdGp10 ||
                        application_id == ProjectSchema::kApplicationIdGp11;
  // Some writers leave the application id at 0; the core tables tell a GeoPackage apart then.
  if (!known_id &&
      !(connection.TableExists("gpkg_contents") && connection.TableExists("gpkg_spatial_ref_sys"))) {
    throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite",
                       "The file '" + connection.Path() +
                           "' is an SQLite database but not a GeoPackage, so it cannot be a project file.");
  }
}

namespace {

void VerifyTable(SqliteConnection& connection, const TableSpec& table) {
  SqliteStatement kind = connection.Prepare("SELECT type FROM sqlite_master WHERE name = ?1 COLLATE NOCASE");
  kind.Bind(1, std::string(table.name));
  if (!kind.Step()) Damaged(connection, "its table '" + std::string(table.name) + "' is missing.");
  if (kind.Text(0) != "table") Damaged(connection, "'" + std::string(table.name) + "' is not a table.");

  SqliteStatement info = connection.Prepare("SELECT name, type FROM pragma_table_info(?1)");
  info.Bind(1, std::string(table.name));
  std::vector<std::pair<std::string, std::string>> present;
  while (info.Step()) present.emplace_back(info.Text(0), info.Text(1));
  for (const ColumnSpec& column : table.columns) {
    const auto found = std::find_if(present.begin(), present.end(),
                                    [&](const auto& entry) { return TextEquals(entry.first, column.name); });
    const std::string where =
        "the column '" + std::string(column.name) + "' of its table '" + table.name + "'";
    if (found == present.end()) Damaged(connection, where + " is missing.");
    const bool old_format = column.old_type != nullptr && TextEquals(found->second, column.old_type);
    if (!TextEquals(found->second, column.type) && !old_format) {
      const std::string declared = found->second.empty() ? "no type" : "the type " + found->second;
      const std::string expected = *column.type ? std::string(column.type) : std::string("no type");
      Damaged(connection, where + " has " + declared + " where " + expected + " is expected.");
    }
  }
}

int VerifyFormatVersion(SqliteConnection& connection) {
  SqliteStatement statement =
      connection.Prepare(std::string("SELECT max(format_version) FROM ") + ProjectSchema::kProjectTable);
  const int32_t version = statement.Step() ? statement.RequireInt32(0, "the project's format version") : 0;
  if (version > ProjectSchema::kFormatVersion) {
    throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite",
                       "The project file '" + connection.Path() +
                           "' was written by a newer version (format " + std::to_string(version) +
                           ") and cannot be opened.");
  }
  return version;
}

const TableSpec& SettingsTable() {
  for (const TableSpec& table : ProjectTables()) {
    if (std::string(table.name) == ProjectSchema::kSettingsTable) return table;
  }
  throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite", "The settings table is not described.");
}

bool SettingsValueIsText(SqliteConnection& connection) {
  SqliteStatement column = connection.Prepare("SELECT type FROM pragma_table_info(?1) WHERE name = 'value'");
  column.Bind(1, std::string(ProjectSchema::kSettingsTable));
  return column.Step() && TextEquals(column.Text(0), "TEXT");
}

// Format 1 kept setting values untyped; they are rewritten as text beside their type name. The table
// keeps its name, so its gpkg_contents row stays valid.
void UpgradeSettingsToText(SqliteConnection& connection) {
  const std::string settings = ProjectSchema::kSettingsTable;
  const std::string old_name = settings + "_format1";
  connection.Execute("ALTER TABLE " + SqliteConnection::QuoteIdentifier(settings) + " RENAME TO " +
                     SqliteConnection::QuoteIdentifier(old_name));
  connection.Execute(CreateTableSql(SettingsTable()));
  SqliteStatement rows = connection.Prepare(
      "SELECT fid, section, key, selector_a, selector_b, value_type, value"
      " FROM " +
      SqliteConnection::QuoteIdentifier(old_name));
  SqliteStatement insert = connection.Prepare(
      "INSERT INTO " + SqliteConnection::QuoteIdentifier(settings) +
      " (fid, section, key, selector_a, selector_b, value_type, value) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)");
  while (rows.Step()) {
    const std::string type = rows.Text(5);
    insert.Bind(1, rows.Int64(0)).Bind(2, rows.Text(1)).Bind(3, rows.Text(2));
    insert.Bind(4, rows.Int64(3)).Bind(5, rows.Int64(4)).Bind(6, type);
    const std::optional<Variant> value = SettingValueText::Decode(type, rows, 6);
    // A value that does not match its type is kept as its text, so that reading it still reports it.
    const std::optional<std::string> text =
        value ? SettingValueText::Encode(*value) : std::optional<std::string>(rows.Text(6));
    if (text && !(value && IsNull(*value))) {
      insert.Bind(7, *text);
    } else {
      insert.BindNull(7);
    }
    insert.Run();
    insert.Reset();
  }
  connection.Execute("DROP TABLE " + SqliteConnection::QuoteIdentifier(old_name));
  ProjectSchema::Touch(connection, settings);
}

}  // namespace

void ProjectSchema::Create(SqliteConnection& connection) {
  connection.Execute("PRAGMA application_id = " + std::to_string(kApplicationIdGpkg));
  connection.Execute("PRAGMA user_version = " + std::to_string(kUserVersion));
  connection.Execute(kCoreTables);
  for (const TableSpec& table : ProjectTables()) {
    connection.Execute(CreateTableSql(table));
    RegisterContents(connection, table.name, "attributes", table.identifier);
  }
  SqliteStatement insert = connection.Prepare(std::string("INSERT INTO ") + kProjectTable +
                                              " (format_version, application) VALUES (?1, 'ZrSIMPrp')");
  insert.Bind(1, static_cast<int64_t>(kFormatVersion)).Run();
}

int ProjectSchema::Verify(SqliteConnection& connection) {
  VerifyGeoPackage(connection);
  if (!connection.TableExists(kProjectTable)) {
    throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite",
                       "The file '" + connection.Path() +
                           "' is a GeoPackage but not a project file: it holds no project tables.");
  }
  for (const TableSpec& table : ProjectTables()) VerifyTable(connection, table);
  return VerifyFormatVersion(connection);
}

void ProjectSchema::Upgrade(SqliteConnection& connection, int from_version) {
  if (from_version >= kFormatVersion) return;
  if (!SettingsValueIsText(connection)) UpgradeSettingsToText(connection);
  SqliteStatement update =
      connection.Prepare(std::string("UPDATE ") + kProjectTable + " SET format_version = ?1");
  update.Bind(1, static_cast<int64_t>(kFormatVersion)).Run();
  Touch(connection, kProjectTable);
}

void ProjectSchema::RegisterContents(SqliteConnection& connection, const std::string& table,
                                     const std::string& data_type, const std::string& identifier) {
  SqliteStatement insert = connection.Prepare(
      "INSERT INTO gpkg_contents (table_name, data_type, identifier, description) VALUES (?1, ?2, ?3, '')");
  insert.Bind(1, table).Bind(2, data_type).Bind(3, identifier).Run();
}

void ProjectSchema::Touch(SqliteConnection& connection, const std::string& table) {
  SqliteStatement update = connection.Prepare(
      "UPDATE gpkg_contents SET last_change = strftime('%Y-%m-%dT%H:%M:%fZ','now') WHERE table_name = ?1");
  update.Bind(1, table).Run();
}

}  // namespace zrsimprp
