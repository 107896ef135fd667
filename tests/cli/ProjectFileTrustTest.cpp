// "zrsim project" on files other programs share: every file it writes passes GDAL's checks, its
// refusals are one clear sentence with status 2, and a refused or failed command changes no byte.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

#include "CliFixture.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/GeoPackageValidator.h"
#include "support/FileBytes.h"

namespace {

using zrsimprp::testing::FileBytes;

class ProjectFileTrust : public CliFixture {
 protected:
  // A polygon table in degrees written with raw SQL, as a GIS would export it.
  std::string DegreesGeoPackage() {
    const std::string path = PathIn("degrees.gpkg");
    if (std::filesystem::exists(path)) return path;
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    const char* sql =
        "PRAGMA application_id = 1196444487;"
        "CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT NULL, srs_id INTEGER PRIMARY KEY, organization "
        "TEXT"
        " NOT NULL, organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL, description TEXT);"
        "INSERT INTO gpkg_spatial_ref_sys VALUES ('WGS 84', 4326, 'EPSG', 4326, 'GEOGCS[\"WGS 84\"]', NULL);"
        "CREATE TABLE gpkg_contents (table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL, "
        "identifier"
        " TEXT UNIQUE, description TEXT DEFAULT '', last_change DATETIME NOT NULL DEFAULT"
        " (strftime('%Y-%m-%dT%H:%M:%fZ','now')), min_x DOUBLE, min_y DOUBLE, max_x DOUBLE, max_y DOUBLE,"
        " srs_id INTEGER);"
        "CREATE TABLE gpkg_geometry_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL,"
        " geometry_type_name TEXT NOT NULL, srs_id INTEGER NOT NULL, z TINYINT NOT NULL, m TINYINT NOT NULL);"
        "CREATE TABLE parks (fid INTEGER PRIMARY KEY AUTOINCREMENT, geom MULTIPOLYGON, park INTEGER);"
        "INSERT INTO gpkg_contents (table_name, data_type, identifier, srs_id) VALUES ('parks', 'features',"
        " 'parks', 4326);"
        "INSERT INTO gpkg_geometry_columns VALUES ('parks', 'geom', 'MULTIPOLYGON', 4326, 0, 0);"
        "INSERT INTO parks (geom, park) VALUES (NULL, 1), (NULL, 2);";
    EXPECT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
    return path;
  }

  Result ImportParks(const std::string& project, const std::string& kind, const std::string& name = "Parks") {
    return Run({"project", "import-layer", project, "--from", DegreesGeoPackage(), "--table", "parks",
                "--id-field", "park", "--name", name, "--kind", kind});
  }
};

TEST_F(ProjectFileTrust, EveryCommandLeavesAFileThatPassesGdalsChecks) {
  const std::string project = SampleProject();
  EXPECT_VALID_GEOPACKAGE(project);
  ASSERT_EQ(ImportParks(project, "1").status, 0);
  EXPECT_VALID_GEOPACKAGE(project);
  ASSERT_EQ(
      Run({"project", "add-design", project, "--id", "9", "--name", "D", "--stratum-layer", "Parks"}).status,
      0);
  EXPECT_VALID_GEOPACKAGE(project);
  ASSERT_EQ(Run({"project", "add-survey", project, "--id", "9", "--name", "S", "--design", "9"}).status, 0);
  EXPECT_VALID_GEOPACKAGE(project);
  ASSERT_EQ(Run({"project", "add-simulation", project, "--name", "Second"}).status, 0);
  zrsimprp::GeoPackageProject::Open(project)->SaveSimulationDefinition("Second", SampleDefinition());
  EXPECT_VALID_GEOPACKAGE(project);
}

TEST_F(ProjectFileTrust, ALayerInDegreesIsImportedWithAWarning) {
  const std::string project = SampleProject();
  Result result = ImportParks(project, "1");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            "Imported 2 features of 'parks' as the layer 'Parks'\n"
            "Warning: the layer 'Parks' has geographic coordinates (degrees of longitude and latitude), so "
            "distances in the simulation will be in degrees. To import it in metres instead: zrsim project "
            "remove-layer " +
                project + " --name Parks && zrsim project import-layer " + project + " --from " +
                DegreesGeoPackage() + " --table parks --id-field park --name Parks --kind 1 --to-crs auto\n");
}

TEST_F(ProjectFileTrust, AKindTheHostDoesNotDefineIsRefusedNamingTheAllowedValues) {
  const std::string project = SampleProject();
  const std::string before = FileBytes(project);
  for (const std::string kind : {"0", "3", "-1", "region", "1.5", ""}) {
    Result result = ImportParks(project, kind);
    EXPECT_EQ(result.status, 2) << kind;
    EXPECT_EQ(result.err,
              "zrsim project import-layer: --kind must be 1 (a study region) or 2 (strata inside a "
              "parent layer), not '" +
                  kind + "'\n");
  }
  EXPECT_EQ(FileBytes(project), before);
}

TEST_F(ProjectFileTrust, AStrataLayerWithoutAParentIsRefused) {
  const std::string project = SampleProject();
  Result result = ImportParks(project, "2");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(
      result.err,
      "zrsim project import-layer: a layer of kind 2 (strata) needs --parent, the layer its strata lie in, or "
      "--make-region\n");
}

TEST_F(ProjectFileTrust, ADesignOnALayerTheProjectLacksIsRefusedAndNothingIsWritten) {
  const std::string project = SampleProject();
  const std::string before = FileBytes(project);
  Result result =
      Run({"project", "add-design", project, "--id", "9", "--name", "D", "--stratum-layer", "Lakes"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err,
            "zrsim project add-design: The project has no layer named 'Lakes' for the design's strata; its "
            "layers are 'Study region', 'Strata'.\n");
  EXPECT_EQ(FileBytes(project), before);
}

TEST_F(ProjectFileTrust, AFailedImportWritesNothing) {
  const std::string project = SampleProject();
  const std::string before = FileBytes(project);
  Result result = Run({"project", "import-layer", project, "--from", DegreesGeoPackage(), "--table", "parks",
                       "--id-field", "park", "--name", "Strata", "--kind", "1"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim project import-layer: The project already has a layer named 'Strata'.\n");
  EXPECT_EQ(FileBytes(project), before);
}

TEST_F(ProjectFileTrust, ATruncatedFileIsOneSentenceStatusTwoAndUnchanged) {
  const std::string project = SampleProject();
  std::filesystem::resize_file(project, 3 * 1024);
  const std::string before = FileBytes(project);
  Result result = Run({"project", "list", project});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(
      result.err.rfind("zrsim project list: cannot open the project '" + project + "': The project file '" +
                           project + "' could not be read: the file is damaged",
                       0),
      0u)
      << result.err;
  EXPECT_EQ(FileBytes(project), before);
}

TEST_F(ProjectFileTrust, AFileThatIsNotSqliteIsOneSentenceStatusTwoAndUnchanged) {
  const std::string path = PathIn("notes.gpkg");
  WriteFile(path, "These are notes, not a project.\n");
  Result result = Run({"project", "add-filter", path, "--id", "1", "--name", "F"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim project add-filter: cannot open the project '" + path +
                            "': The project file '" + path +
                            "' could not be read: it is not an SQLite database.\n");
  EXPECT_EQ(FileBytes(path), "These are notes, not a project.\n");
}

TEST_F(ProjectFileTrust, AGeoPackageWithoutProjectTablesIsOneSentenceStatusTwoAndUnchanged) {
  const std::string path = DegreesGeoPackage();
  const std::string before = FileBytes(path);
  Result result = Run({"project", "add-filter", path, "--id", "1", "--name", "F"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim project add-filter: cannot open the project '" + path + "': The file '" +
                            path + "' is a GeoPackage but not a project file: it holds no project tables.\n");
  EXPECT_EQ(FileBytes(path), before);
}

TEST_F(ProjectFileTrust, AFileLockedByAnotherWriterIsOneSentenceStatusTwoAndUnchanged) {
  const std::string project = SampleProject();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(project.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  const std::string before = FileBytes(project);
  Result result = Run({"project", "add-filter", project, "--id", "9", "--name", "F"});
  sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_close(other);
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim project add-filter: The project file '" + project +
                            "' could not be written: another program is using the file.\n");
  EXPECT_EQ(FileBytes(project), before);
}

}  // namespace
