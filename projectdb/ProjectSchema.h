#pragma once

#include <string>
#include <vector>

namespace zrsimprp {

class SqliteConnection;

// The tables of a project file: the GeoPackage core tables and the project's attribute tables.
class ProjectSchema {
 public:
  // 1: settings values in an untyped column (refused by GeoPackage validators); 2: values as TEXT
  // beside their type name. A file of format 1 is read as it is and upgraded by its first write.
  static constexpr int kFormatVersion = 2;
  static constexpr int kApplicationIdGpkg = 0x47504B47;  // "GPKG"
  static constexpr int kApplicationIdGp10 = 0x47503130;  // "GP10"
  static constexpr int kApplicationIdGp11 = 0x47503131;  // "GP11"
  static constexpr int kUserVersion = 10300;             // GeoPackage 1.3

  static constexpr const char* kProjectTable = "zrsim_project";
  static constexpr const char* kLayersTable = "zrsim_layers";
  static constexpr const char* kDesignsTable = "zrsim_designs";
  static constexpr const char* kSurveysTable = "zrsim_surveys";
  static constexpr const char* kDataFiltersTable = "zrsim_data_filters";
  static constexpr const char* kModelDefinitionsTable = "zrsim_model_definitions";
  static constexpr const char* kSimulationsTable = "zrsim_simulations";
  static constexpr const char* kSettingsTable = "zrsim_settings";
  static constexpr const char* kEngineDefaultsTable = "zrsim_engine_defaults";

  // Writes the GeoPackage core tables and the empty project tables, inside the caller's transaction.
  static void Create(SqliteConnection& connection);

  // Raises a RuntimeError (source "SQLite") saying what is wrong when the open file is not a
  // GeoPackage, not a project, or a project with a missing or mistyped table.
  // Returns the file's format version.
  static int Verify(SqliteConnection& connection);

  // Brings a file of an older format to kFormatVersion, inside the caller's write transaction.
  static void Upgrade(SqliteConnection& connection, int from_version);

  // Raises a RuntimeError (source "SQLite") when the open file is not a GeoPackage of any version.
  static void VerifyGeoPackage(SqliteConnection& connection);

  // Registers an attribute or feature table in gpkg_contents.
  static void RegisterContents(SqliteConnection& connection, const std::string& table,
                               const std::string& data_type, const std::string& identifier);
  // Marks a table as changed now in gpkg_contents.
  static void Touch(SqliteConnection& connection, const std::string& table);
};

}  // namespace zrsimprp
