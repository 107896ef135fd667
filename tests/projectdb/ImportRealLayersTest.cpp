// Importing polygon layers as desktop GIS programs write them: made by GDAL's ogr2ogr where it is
// installed, and written byte by byte for the cases GDAL does not produce on request.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <string>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/GeoPackageValidator.h"
#include "projectdb/ProjectTestSupport.h"
#include "zrsimprp/host/Layer.h"
#include "zrsimprp/host/LayerCatalogue.h"

namespace zrsimprp {
namespace {

using testing::CaptureError;
using testing::QueryInteger;
using testing::RunSql;
using testing::TempFolder;

// Two features in degrees with heights: a triangle and a two-part polygon.
const char* const kBlocksGeoJson =
    R"({"type":"FeatureCollection","features":[)"
    R"({"type":"Feature","properties":{"block":11,"label":"West"},"geometry":{"type":"Polygon",)"
    R"("coordinates":[[[-3.0,55.0,10],[-2.9,55.0,11],[-2.9,55.1,12],[-3.0,55.0,10]]]}},)"
    R"({"type":"Feature","properties":{"block":12,"label":"East"},"geometry":{"type":"MultiPolygon",)"
    R"("coordinates":[[[[-2.8,55.0,1],[-2.7,55.0,1],[-2.7,55.1,1],[-2.8,55.0,1]]],)"
    R"([[[-2.6,55.0,1],[-2.5,55.0,1],[-2.5,55.1,1],[-2.6,55.0,1]]]]}}]})";

std::vector<std::string> Column(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  std::vector<std::string> values;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK) {
      while (sqlite3_step(statement) == SQLITE_ROW) {
        const void* data = sqlite3_column_blob(statement, 0);
        const int size = sqlite3_column_bytes(statement, 0);
        values.emplace_back(data ? std::string(static_cast<const char*>(data), static_cast<size_t>(size))
                                 : "");
      }
    }
    sqlite3_finalize(statement);
  }
  sqlite3_close(db);
  return values;
}

class ImportRealLayersTest : public ::testing::Test {
 protected:
  // The GeoJSON turned into a GeoPackage by ogr2ogr with `options`; skips the test without GDAL.
  bool MakeWithGdal(const std::string& target, const std::string& options) {
    if (!geopackage_validator::HasOgr2ogr()) return false;
    const std::string json = folder_.File("blocks.geojson");
    testing::WriteBytes(json, kBlocksGeoJson);
    const auto outcome =
        geopackage_validator::RunShell("ogr2ogr -f GPKG " + geopackage_validator::ShellQuote(target) + " " +
                                       geopackage_validator::ShellQuote(json) + " " + options);
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    return outcome.status == 0;
  }

  TempFolder folder_;
};

TEST_F(ImportRealLayersTest, AGdalLayerInDegreesWithHeightsKeepsEveryGeometryByteAndIsReportedGeographic) {
  const std::string source = folder_.File("gdal.gpkg");
  if (!MakeWithGdal(source, "-nln survey.blocks -nlt PROMOTE_TO_MULTI"))
    GTEST_SKIP() << "ogr2ogr (gdal-bin) is not installed";
  const std::string path = folder_.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  EXPECT_EQ(project->ImportLayer(source, "survey.blocks", "block", "label", "Blocks", 1, ""), 2);
  EXPECT_TRUE(project->HasGeographicCoordinates("Blocks"));
  const auto rows = project->Companion()->LayerByName("Blocks")->GetRows("block,label", 0, 1);
  ASSERT_TRUE(rows.has_value());
  EXPECT_EQ((*rows)[0], (std::vector<Variant>{Variant(int32_t{11}), Variant(int32_t{12})}));
  project.reset();
  const std::string table = Column(path, "SELECT table_name FROM zrsim_layers").at(0);
  EXPECT_EQ(Column(path, "SELECT geom FROM \"" + table + "\" ORDER BY fid"),
            Column(source, "SELECT geom FROM \"survey.blocks\" ORDER BY fid"));
  EXPECT_EQ(Column(path, "SELECT z || ',' || m || ',' || srs_id FROM gpkg_geometry_columns"),
            Column(source, "SELECT z || ',' || m || ',' || srs_id FROM gpkg_geometry_columns"));
  EXPECT_VALID_GEOPACKAGE(path);
}

TEST_F(ImportRealLayersTest, AProjectedGdalLayerCopiesItsSpatialReferenceRowExactly) {
  const std::string source = folder_.File("utm.gpkg");
  if (!MakeWithGdal(source, "-nln blocks -a_srs EPSG:32630 -nlt PROMOTE_TO_MULTI")) {
    GTEST_SKIP() << "ogr2ogr (gdal-bin) is not installed";
  }
  const std::string path = folder_.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  project->ImportLayer(source, "blocks", "block", "", "Blocks", 1, "");
  EXPECT_FALSE(project->HasGeographicCoordinates("Blocks"));
  project.reset();
  const std::string row =
      "SELECT srs_name || '|' || organization || '|' || organization_coordsys_id || '|' || definition || '|' "
      "||"
      " coalesce(description, '') FROM gpkg_spatial_ref_sys WHERE srs_id = 32630";
  EXPECT_EQ(Column(path, row), Column(source, row));
  EXPECT_VALID_GEOPACKAGE(path);
}

// A GeoPackage 1.1 file ("GP11") with a quoted table name, a feature with Z and M coordinates, an
// empty polygon and a feature without geometry.
class HandWrittenLayer {
 public:
  explicit HandWrittenLayer(const std::string& path) : path_(path) {
    RunSql(
        path,
        "PRAGMA application_id = 1196437809;"
        "CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT NULL, srs_id INTEGER PRIMARY KEY,"
        " organization TEXT NOT NULL, organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL,"
        " description TEXT);"
        "INSERT INTO gpkg_spatial_ref_sys VALUES ('Undefined cartesian SRS', -1, 'NONE', -1, 'undefined', "
        "NULL),"
        " ('Undefined geographic SRS', 0, 'NONE', 0, 'undefined', NULL),"
        " ('Local grid', 990001, 'LOCAL', 1, 'LOCAL_CS[\"Local grid\",UNIT[\"metre\",1]]', 'site grid');"
        "CREATE TABLE gpkg_contents (table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL,"
        " identifier TEXT UNIQUE, description TEXT DEFAULT '', last_change DATETIME NOT NULL DEFAULT"
        " (strftime('%Y-%m-%dT%H:%M:%fZ','now')), min_x DOUBLE, min_y DOUBLE, max_x DOUBLE, max_y DOUBLE,"
        " srs_id INTEGER);"
        "CREATE TABLE gpkg_geometry_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL,"
        " geometry_type_name TEXT NOT NULL, srs_id INTEGER NOT NULL, z TINYINT NOT NULL, m TINYINT NOT NULL,"
        " CONSTRAINT pk_geom_cols PRIMARY KEY (table_name, column_name));"
        "CREATE TABLE \"odd\"\"name.v2\" (fid INTEGER PRIMARY KEY AUTOINCREMENT, geom POLYGON, code INTEGER);"
        "INSERT INTO gpkg_contents (table_name, data_type, identifier, min_x, min_y, max_x, max_y, srs_id)"
        " VALUES ('odd\"name.v2', 'features', 'odd', 0, 0, 10, 10, 990001);"
        "INSERT INTO gpkg_geometry_columns VALUES ('odd\"name.v2', 'geom', 'POLYGON', 990001, 1, 1);");
    Insert(1, ZmSquare());
    Insert(2, EmptyPolygon());
    Insert(3, "");
  }

 private:
  template <class T>
  static void Put(std::string& bytes, T value) {
    char raw[sizeof(T)];
    std::memcpy(raw, &value, sizeof(T));
    bytes.append(raw, sizeof(T));
  }

  static std::string Header(unsigned char flags) {
    std::string blob = "GP";
    blob.push_back(0);
    blob.push_back(static_cast<char>(flags));
    Put<int32_t>(blob, 990001);
    return blob;
  }

  // ISO WKB PolygonZM (3003), no envelope in the header.
  static std::string ZmSquare() {
    std::string blob = Header(0x01);
    blob.push_back(1);
    Put<uint32_t>(blob, 3003);
    Put<uint32_t>(blob, 1);
    Put<uint32_t>(blob, 5);
    const double xy[5][2] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}};
    for (const auto& point : xy) {
      Put<double>(blob, point[0]);
      Put<double>(blob, point[1]);
      Put<double>(blob, 5.0);
      Put<double>(blob, 7.0);
    }
    return blob;
  }

  // The empty flag set and a polygon of no rings.
  static std::string EmptyPolygon() {
    std::string blob = Header(0x11);
    blob.push_back(1);
    Put<uint32_t>(blob, 3);
    Put<uint32_t>(blob, 0);
    return blob;
  }

  void Insert(int code, const std::string& blob) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &db), SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db, "INSERT INTO \"odd\"\"name.v2\" (geom, code) VALUES (?1, ?2)", -1,
                                 &statement, nullptr),
              SQLITE_OK);
    if (blob.empty()) {
      sqlite3_bind_null(statement, 1);
    } else {
      sqlite3_bind_blob(statement, 1, blob.data(), static_cast<int>(blob.size()), SQLITE_TRANSIENT);
    }
    sqlite3_bind_int(statement, 2, code);
    EXPECT_EQ(sqlite3_step(statement), SQLITE_DONE);
    sqlite3_finalize(statement);
    sqlite3_close(db);
  }

  std::string path_;
};

TEST_F(ImportRealLayersTest, AQuotedDottedTableWithZmEmptyAndMissingGeometriesIsCopiedExactly) {
  const std::string source = folder_.File("hand.gpkg");
  HandWrittenLayer written(source);
  const std::string path = folder_.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  EXPECT_EQ(project->ImportLayer(source, "odd\"name.v2", "code", "", "Site", 1, ""), 3);
  EXPECT_FALSE(project->HasGeographicCoordinates("Site"));
  EXPECT_NE(project->Companion()->LayerByName("Site")->FeatureByID(Variant(int32_t{2})), nullptr);
  project.reset();
  const std::string table = Column(path, "SELECT table_name FROM zrsim_layers").at(0);
  EXPECT_EQ(Column(path, "SELECT geom FROM \"" + table + "\" ORDER BY fid"),
            Column(source, "SELECT geom FROM \"odd\"\"name.v2\" ORDER BY fid"));
  EXPECT_EQ(QueryInteger(path, "SELECT z * 10 + m FROM gpkg_geometry_columns"), 11);
  const std::string row =
      "SELECT srs_name || '|' || organization || '|' || definition || '|' || description FROM "
      "gpkg_spatial_ref_sys"
      " WHERE srs_id = 990001";
  EXPECT_EQ(Column(path, row), Column(source, row));
}

TEST_F(ImportRealLayersTest, ASpatialReferenceNumberTakenByAnotherSystemIsRefusedWithNothingImported) {
  const std::string source = folder_.File("hand.gpkg");
  HandWrittenLayer written(source);
  const std::string path = folder_.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  RunSql(path,
         "INSERT INTO gpkg_spatial_ref_sys VALUES ('Other grid', 990001, 'OTHER', 7, 'LOCAL_CS[\"Other\"]', "
         "NULL)");
  const RuntimeError error =
      CaptureError([&] { project->ImportLayer(source, "odd\"name.v2", "code", "", "Site", 1, ""); });
  EXPECT_EQ(error.description,
            "The table 'odd\"name.v2' of '" + source +
                "' uses the spatial reference system 990001 (LOCAL 1), but the project already "
                "gives that number to OTHER 7.");
  EXPECT_TRUE(project->Layers().empty());
  EXPECT_EQ(QueryInteger(path, "SELECT count(*) FROM gpkg_contents WHERE data_type = 'features'"), 0);
}

TEST_F(ImportRealLayersTest, AnUntypedFieldIsImportedAsTextSoEveryColumnHasADeclaredType) {
  const std::string source = folder_.File("hand.gpkg");
  HandWrittenLayer written(source);
  RunSql(source,
         "ALTER TABLE \"odd\"\"name.v2\" ADD COLUMN label; UPDATE \"odd\"\"name.v2\" SET label = 'Plot ' || "
         "code");
  const std::string path = folder_.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  project->ImportLayer(source, "odd\"name.v2", "code", "label", "Site", 1, "");
  const auto rows = project->Companion()->LayerByName("Site")->GetRows("label", 0, 1);
  ASSERT_TRUE(rows.has_value());
  EXPECT_EQ((*rows)[0][1], Variant(std::string("Plot 2")));
  project.reset();
  const std::string table = Column(path, "SELECT table_name FROM zrsim_layers").at(0);
  EXPECT_EQ(Column(path, "SELECT type FROM pragma_table_info('" + table + "') WHERE name = 'label'"),
            std::vector<std::string>{"TEXT"});
  // The hand-written geometries are copied byte for byte, odd as they are; the columns must pass.
  if (geopackage_validator::ValidatorCommand().empty()) GTEST_SKIP() << "python3-gdal is not installed";
  const geopackage_validator::Outcome validated = geopackage_validator::Validate(path);
  EXPECT_EQ(validated.output.find("Req 5:"), std::string::npos) << validated.output;
}

}  // namespace
}  // namespace zrsimprp
