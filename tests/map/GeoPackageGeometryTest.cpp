#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "projectdb/GeoPackageGeometryReader.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/map/MapLayers.h"

namespace zrsimprp {
namespace {

namespace fs = std::filesystem;

class GeoPackageGeometry : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("zrsim-map-" + std::to_string(::getpid()) + "-" +
                                           ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string File(const std::string& name) const { return (folder_ / name).string(); }

  // A GeoPackage written by GDAL from GeoJSON text, with a table "blocks".
  std::string WriteWithGdal(const std::string& geojson, const std::string& options) {
    const std::string source = File("blocks.geojson");
    std::ofstream(source) << geojson;
    const std::string target = File("gdal.gpkg");
    const std::string command =
        "ogr2ogr -q -f GPKG " + options + " -nln blocks '" + target + "' '" + source + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return target;
  }

  // A project holding the GDAL table as the layer "Blocks".
  std::shared_ptr<GeoPackageProject> ProjectFrom(const std::string& gpkg) {
    auto project = GeoPackageProject::Create(File("project.gpkg"));
    project->ImportLayer(gpkg, "blocks", "block_no", "name", "Blocks", 1, "");
    return project;
  }

  fs::path folder_;
};

// Block 7 ("Lake block"): a 100 by 100 square with a 20 by 20 hole, and a detached 10 by 10 square.
// Block 3 ("Plain"): a plain square east of it.
const char* kBlocks = R"({"type": "FeatureCollection", "features": [
 {"type": "Feature", "properties": {"block_no": 7, "name": "Lake block"},
  "geometry": {"type": "MultiPolygon", "coordinates": [
    [[[500000, 6000000], [500100, 6000000], [500100, 6000100], [500000, 6000100], [500000, 6000000]],
     [[500040, 6000040], [500040, 6000060], [500060, 6000060], [500060, 6000040], [500040, 6000040]]],
    [[[500200, 6000000], [500210, 6000000], [500210, 6000010], [500200, 6000010], [500200, 6000000]]]]}},
 {"type": "Feature", "properties": {"block_no": 3, "name": "Plain"},
  "geometry": {"type": "Polygon", "coordinates": [
    [[500100, 6000000], [500150, 6000000], [500150, 6000100], [500100, 6000100], [500100, 6000000]]]}}]})";

TEST_F(GeoPackageGeometry, MultipolygonWithHoleWrittenByGdal) {
  auto project = ProjectFrom(WriteWithGdal(kBlocks, "-a_srs EPSG:32630 -nlt MULTIPOLYGON"));
  const std::optional<LayerShapes> shapes = project->LayerGeometry("blocks");
  ASSERT_TRUE(shapes.has_value());
  EXPECT_EQ(shapes->reference.name, "EPSG:32630");
  EXPECT_FALSE(shapes->reference.geographic);
  ASSERT_EQ(shapes->strata.size(), 2u);
  const StratumGeometry& lake = shapes->strata[0];
  EXPECT_EQ(lake.id, "7");
  EXPECT_EQ(lake.label, "Lake block");
  ASSERT_EQ(lake.polygons.size(), 2u);
  ASSERT_EQ(lake.polygons[0].rings.size(), 2u);
  EXPECT_EQ(lake.polygons[0].rings[0].size(), 5u);
  EXPECT_DOUBLE_EQ(lake.polygons[0].rings[0][1].x, 500100);
  EXPECT_DOUBLE_EQ(lake.polygons[0].rings[1][1].y, 6000060);
  EXPECT_DOUBLE_EQ(lake.polygons[1].rings[0][2].x, 500210);
  EXPECT_EQ(shapes->strata[1].label, "Plain");
  EXPECT_EQ(shapes->strata[1].polygons.size(), 1u);
}

TEST_F(GeoPackageGeometry, GeometryOrderMatchesTheLayerRows) {
  auto project = ProjectFrom(WriteWithGdal(kBlocks, "-a_srs EPSG:32630"));
  const auto rows = project->Companion()->LayerByName("Blocks")->GetRows("block_no,name", 0, 1);
  const std::optional<LayerShapes> shapes = project->LayerGeometry("Blocks");
  ASSERT_TRUE(rows && shapes);
  ASSERT_EQ((*rows)[0].size(), shapes->strata.size());
  for (size_t i = 0; i < shapes->strata.size(); ++i) {
    EXPECT_EQ(VariantToText((*rows)[0][i]), shapes->strata[i].id);
    EXPECT_EQ(VariantToText((*rows)[1][i]), shapes->strata[i].label);
  }
}

TEST_F(GeoPackageGeometry, LongitudeLatitudeLayerIsGeographic) {
  const char* degrees = R"({"type": "FeatureCollection", "features": [
   {"type": "Feature", "properties": {"block_no": 1, "name": "Bay"},
    "geometry": {"type": "Polygon", "coordinates": [[[-5.1, 56.0], [-5.0, 56.0], [-5.0, 56.1], [-5.1, 56.0]]]}}]})";
  auto project = ProjectFrom(WriteWithGdal(degrees, ""));
  const std::optional<LayerShapes> shapes = project->LayerGeometry("Blocks");
  ASSERT_TRUE(shapes.has_value());
  EXPECT_EQ(shapes->reference.name, "EPSG:4326");
  EXPECT_TRUE(shapes->reference.geographic);
  EXPECT_DOUBLE_EQ(shapes->strata[0].polygons[0].rings[0][0].x, -5.1);
}

TEST_F(GeoPackageGeometry, ThreeDimensionalPolygonsLoseTheirZ) {
  const char* with_z = R"({"type": "FeatureCollection", "features": [
   {"type": "Feature", "properties": {"block_no": 1, "name": "Hill"},
    "geometry": {"type": "Polygon", "coordinates": [[[0, 0, 5], [10, 0, 6], [10, 10, 7], [0, 0, 5]]]}}]})";
  auto project = ProjectFrom(WriteWithGdal(with_z, "-a_srs EPSG:32630 -dim XYZ"));
  const std::optional<LayerShapes> shapes = project->LayerGeometry("Blocks");
  ASSERT_TRUE(shapes.has_value());
  const auto& ring = shapes->strata[0].polygons[0].rings[0];
  ASSERT_EQ(ring.size(), 4u);
  EXPECT_DOUBLE_EQ(ring[1].x, 10);
  EXPECT_DOUBLE_EQ(ring[2].y, 10);
}

// Patches the SQLite header's application id (bytes 68-71, big-endian) of a GDAL-written file, as
// GeoPackage 1.0 ("GP10") and 1.1 ("GP11") writers set it, and reads the layer through a project.
void ExpectReadableWithApplicationId(const std::string& gpkg, const char (&id)[5], int32_t expected,
                                     const std::function<std::shared_ptr<GeoPackageProject>()>& import) {
  std::fstream file(gpkg, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(68);
  file.write(id, 4);
  file.close();
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open_v2(gpkg.c_str(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, "PRAGMA application_id", -1, &statement, nullptr);
  ASSERT_EQ(sqlite3_step(statement), SQLITE_ROW);
  EXPECT_EQ(sqlite3_column_int(statement, 0), expected);
  sqlite3_finalize(statement);
  sqlite3_close(db);

  auto project = import();
  const std::optional<LayerShapes> shapes = project->LayerGeometry("Blocks");
  ASSERT_TRUE(shapes.has_value());
  EXPECT_EQ(shapes->strata.size(), 2u);
  EXPECT_EQ(shapes->strata[0].polygons[0].rings.size(), 2u);
}

TEST_F(GeoPackageGeometry, Gp10ApplicationIdIsAccepted) {
  const std::string gpkg = WriteWithGdal(kBlocks, "-a_srs EPSG:32630");
  ExpectReadableWithApplicationId(gpkg, "GP10", 0x47503130, [&]() { return ProjectFrom(gpkg); });
}

TEST_F(GeoPackageGeometry, Gp11ApplicationIdIsAccepted) {
  const std::string gpkg = WriteWithGdal(kBlocks, "-a_srs EPSG:32630");
  ExpectReadableWithApplicationId(gpkg, "GP11", 0x47503131, [&]() { return ProjectFrom(gpkg); });
}

TEST_F(GeoPackageGeometry, SampleProjectStrataHaveTheirHoleAndDetachedPart) {
  const std::string path = File("sample.gpkg");
  SampleProject::Create(path);
  auto project = GeoPackageProject::Open(path);
  const std::optional<LayerShapes> shapes = project->LayerGeometry("Strata");
  ASSERT_TRUE(shapes.has_value());
  ASSERT_EQ(shapes->strata.size(), 3u);
  EXPECT_EQ(shapes->strata[1].label, "Central");
  EXPECT_EQ(shapes->strata[1].polygons[0].rings.size(), 2u);
  EXPECT_EQ(shapes->strata[2].polygons.size(), 2u);
  EXPECT_FALSE(shapes->reference.geographic);
}

TEST_F(GeoPackageGeometry, UnknownLayerHasNoGeometry) {
  auto project = ProjectFrom(WriteWithGdal(kBlocks, "-a_srs EPSG:32630"));
  EXPECT_FALSE(project->LayerGeometry("Elsewhere").has_value());
}

TEST_F(GeoPackageGeometry, DamagedBlobNamesTheFeature) {
  auto project = ProjectFrom(WriteWithGdal(kBlocks, "-a_srs EPSG:32630"));
  project.reset();
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(File("project.gpkg").c_str(), &db), SQLITE_OK);
  char* error = nullptr;
  // The imported table's name is the project's own; find it through the layer table.
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, "SELECT table_name FROM zrsim_layers WHERE name = 'Blocks'", -1, &statement,
                     nullptr);
  ASSERT_EQ(sqlite3_step(statement), SQLITE_ROW);
  const std::string table = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
  sqlite3_finalize(statement);
  const std::string update =
      "UPDATE \"" + table + "\" SET geom = x'47500001E6100000010300000005000000' WHERE block_no = 3";
  ASSERT_EQ(sqlite3_exec(db, update.c_str(), nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "");
  sqlite3_close(db);

  project = GeoPackageProject::Open(File("project.gpkg"));
  try {
    project->LayerGeometry("Blocks");
    FAIL() << "a damaged blob was read";
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.source, "LayerGeometrySource");
    EXPECT_EQ(
        failure.description,
        "The geometry of the feature 3 of the layer 'Blocks' cannot be read: a WKB count of 5 is more than "
        "the blob holds.");
  }
  // The map turns it into a sentence.
  MapLayers layers;
  MapLayers::LoadRegion(layers, project, "Blocks");
  EXPECT_EQ(
      layers.region_notice,
      "The region / strata layer 'Blocks' could not be read: The geometry of the feature 3 of the layer "
      "'Blocks' cannot be read: a WKB count of 5 is more than the blob holds.");
}

// Blob builders for the header variants GDAL does not write.
void Put32(std::string& out, uint32_t value, bool big) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<char>(value >> (big ? 24 - 8 * i : 8 * i)));
}
void PutDouble(std::string& out, double value, bool big) {
  uint64_t bits = 0;
  std::memcpy(&bits, &value, 8);
  for (int i = 0; i < 8; ++i) out.push_back(static_cast<char>(bits >> (big ? 56 - 8 * i : 8 * i)));
}

TEST(GeoPackageGeometryReader, BigEndianHeaderWithXyzmEnvelopeAndIsoPolygonZ) {
  std::string blob = "GP";
  blob.push_back(0);
  blob.push_back(static_cast<char>(4 << 1));  // big endian, xyzm envelope
  Put32(blob, 32630, true);
  for (int i = 0; i < 8; ++i) PutDouble(blob, 0, true);
  blob.push_back(0);        // WKB big endian
  Put32(blob, 1003, true);  // ISO Polygon Z
  Put32(blob, 1, true);
  Put32(blob, 3, true);
  for (const double xyz : {1.0, 2.0, 9.0, 3.0, 4.0, 9.0, 5.0, 6.0, 9.0}) PutDouble(blob, xyz, true);
  std::vector<MapPolygon> polygons;
  std::string problem;
  ASSERT_TRUE(GeoPackageGeometryReader::Read(blob, polygons, problem)) << problem;
  ASSERT_EQ(polygons.size(), 1u);
  ASSERT_EQ(polygons[0].rings[0].size(), 3u);
  EXPECT_DOUBLE_EQ(polygons[0].rings[0][1].x, 3.0);
  EXPECT_DOUBLE_EQ(polygons[0].rings[0][2].y, 6.0);
}

TEST(GeoPackageGeometryReader, ExtendedWkbWithMAndSrid) {
  std::string blob = "GP";
  blob.push_back(0);
  blob.push_back(1);  // little endian, no envelope
  Put32(blob, 0, false);
  blob.push_back(1);
  Put32(blob, 0x60000000u | 6u, false);  // MultiPolygon with M and an SRID
  Put32(blob, 4326, false);
  Put32(blob, 1, false);
  blob.push_back(1);
  Put32(blob, 0x40000000u | 3u, false);  // Polygon M
  Put32(blob, 1, false);
  Put32(blob, 3, false);
  for (const double xym : {0.0, 0.0, 1.0, 2.0, 0.0, 1.0, 2.0, 2.0, 1.0}) PutDouble(blob, xym, false);
  std::vector<MapPolygon> polygons;
  std::string problem;
  ASSERT_TRUE(GeoPackageGeometryReader::Read(blob, polygons, problem)) << problem;
  ASSERT_EQ(polygons.size(), 1u);
  EXPECT_DOUBLE_EQ(polygons[0].rings[0][2].x, 2.0);
}

TEST(GeoPackageGeometryReader, RefusesWhatIsNotAPolygonBlob) {
  std::vector<MapPolygon> polygons;
  std::string problem;
  EXPECT_FALSE(GeoPackageGeometryReader::Read("XX\0\1\0\0\0\0", polygons, problem));
  EXPECT_EQ(problem, "it does not start with the GeoPackage mark \"GP\"");
  std::string point = "GP";
  point.push_back(0);
  point.push_back(1);
  Put32(point, 0, false);
  point.push_back(1);
  Put32(point, 1, false);
  PutDouble(point, 1, false);
  PutDouble(point, 2, false);
  EXPECT_FALSE(GeoPackageGeometryReader::Read(point, polygons, problem));
  EXPECT_EQ(problem, "WKB geometry type 1 is not a polygon");
  EXPECT_FALSE(GeoPackageGeometryReader::Read(point.substr(0, 10), polygons, problem));
  EXPECT_EQ(problem, "the WKB geometry type is cut off");
  EXPECT_TRUE(polygons.empty());
}

TEST(GeoPackageGeometryReader, EmptyGeometryHasNoPolygons) {
  std::string blob = "GP";
  blob.push_back(0);
  blob.push_back(0x11);  // little endian, empty
  Put32(blob, 0, false);
  std::vector<MapPolygon> polygons;
  std::string problem;
  EXPECT_TRUE(GeoPackageGeometryReader::Read(blob, polygons, problem));
  EXPECT_TRUE(polygons.empty());
}

}  // namespace
}  // namespace zrsimprp
