#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "GeoPackageValidator.h"
#include "ProjectTestSupport.h"
#include "projectdb/EmptyProject.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/VectorSource.h"

namespace zrsimprp::testing {
namespace {

// A 2 by 1 grid of 1 km squares ("tracts") at (x0, y0), as GeoJSON text in the coordinate system `crs`.
std::string Tracts(double x0, double y0, double size, const std::string& crs) {
  std::string features;
  for (int i = 0; i < 2; ++i) {
    const double x = x0 + i * size;
    const std::string ring = "[[" + std::to_string(x) + "," + std::to_string(y0) + "],[" +
                             std::to_string(x + size) + "," + std::to_string(y0) + "],[" +
                             std::to_string(x + size) + "," + std::to_string(y0 + size) + "],[" +
                             std::to_string(x) + "," + std::to_string(y0 + size) + "],[" + std::to_string(x) +
                             "," + std::to_string(y0) + "]]";
    features += std::string(i ? "," : "") +
                "{\"type\":\"Feature\",\"properties\":{\"TRACT\":" + std::to_string(i + 1) +
                ",\"NAME\":\"Tract " + std::to_string(i + 1) +
                "\"},\"geometry\":{\"type\":\"Polygon\",\"coordinates\":[" + ring + "]}}";
  }
  return "{\"type\":\"FeatureCollection\",\"crs\":{\"type\":\"name\",\"properties\":{\"name\":\"urn:ogc:def:crs:" +
         crs + "\"}},\"features\":[" + features + "]}";
}

std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

class VectorImportTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!geopackage_validator::HasOgr2ogr()) GTEST_SKIP() << "ogr2ogr (gdal-bin) is not installed";
    path_ = folder_.File("mine.gpkg");
    EmptyProject::Create(path_);
    project_ = GeoPackageProject::Open(path_);
  }

  // Writes GeoJSON text and converts it with ogr2ogr to `file` in the driver `format`.
  std::string Converted(const std::string& geojson, const std::string& file, const std::string& format,
                        const std::string& extra = "") {
    const std::string json = folder_.File(file + ".geojson");
    WriteBytes(json, geojson);
    const std::string target = folder_.File(file);
    const auto outcome = geopackage_validator::RunShell(
        "ogr2ogr -f " + geopackage_validator::ShellQuote(format) + " " + extra + " " +
        geopackage_validator::ShellQuote(target) + " " + geopackage_validator::ShellQuote(json) + " 2>&1");
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    return target;
  }

  LayerImportOptions Options(const std::string& from, const std::string& name) {
    LayerImportOptions options;
    options.from = from;
    options.id_field = "TRACT";
    options.label_field = "NAME";
    options.name = name;
    options.kind = 1;
    return options;
  }

  TempFolder folder_;
  std::string path_;
  std::shared_ptr<GeoPackageProject> project_;
};

TEST_F(VectorImportTest, AShapefileInMetresBecomesStrataOfTheRegionItsDissolveMakes) {
  const std::string shapefile =
      Converted(Tracts(500000, 5000000, 1000, "EPSG::32633"), "tracts.shp", "ESRI Shapefile");
  LayerImportOptions options = Options(shapefile, "Tracts");
  options.kind = 2;
  options.make_region = "Study area";
  const LayerImportOutcome outcome = project_->ImportLayer(options);
  EXPECT_EQ(outcome.count, 2);
  EXPECT_EQ(outcome.table, "tracts");
  EXPECT_EQ(outcome.crs, "EPSG:32633");
  EXPECT_FALSE(outcome.geographic);
  const auto layers = project_->Layers();
  ASSERT_EQ(layers.size(), 2u);
  EXPECT_EQ(layers[0].name, "Study area");
  EXPECT_EQ(layers[0].kind, 1);
  EXPECT_EQ(layers[1].parent, "Study area");
  // The dissolve leaves one polygon with no inner edge: a 2 km by 1 km rectangle.
  const auto region = project_->LayerGeometry("Study area");
  ASSERT_TRUE(region.has_value());
  ASSERT_EQ(region->strata.size(), 1u);
  ASSERT_EQ(region->strata[0].polygons.size(), 1u);
  double min_x = 1e300, max_x = -1e300;
  for (const MapPoint& point : region->strata[0].polygons[0].rings[0]) {
    min_x = std::min(min_x, point.x);
    max_x = std::max(max_x, point.x);
  }
  EXPECT_DOUBLE_EQ(min_x, 500000);
  EXPECT_DOUBLE_EQ(max_x, 502000);
  EXPECT_EQ(project_->LayerGeometry("Tracts")->strata[1].label, "Tract 2");
  project_.reset();
  EXPECT_VALID_GEOPACKAGE(path_);
}

TEST_F(VectorImportTest, DegreesAreReprojectedToTheUtmZoneOfTheLayersCentre) {
  const std::string geojson = Converted(Tracts(15.1, 45.2, 0.01, "OGC:1.3:CRS84"), "deg.geojson", "GeoJSON");
  LayerImportOptions options = Options(geojson, "Tracts");
  options.to_crs = "auto";
  const LayerImportOutcome outcome = project_->ImportLayer(options);
  EXPECT_EQ(outcome.crs, "EPSG:32633");
  EXPECT_FALSE(project_->HasGeographicCoordinates("Tracts"));
  const auto shapes = project_->LayerGeometry("Tracts");
  const MapPoint corner = shapes->strata[0].polygons[0].rings[0][0];
  // 15.1 degrees east is 0.1 degree east of the zone's central meridian: some 7.8 km east of 500 km.
  EXPECT_NEAR(corner.x, 507880, 200);
  EXPECT_NEAR(corner.y, 5006000, 2000);
}

TEST_F(VectorImportTest, DegreesKeptAreImportedAndSaidToBeGeographic) {
  const std::string geojson = Converted(Tracts(15.1, 45.2, 0.01, "OGC:1.3:CRS84"), "deg.geojson", "GeoJSON");
  const LayerImportOutcome outcome = project_->ImportLayer(Options(geojson, "Tracts"));
  EXPECT_TRUE(outcome.geographic);
  EXPECT_EQ(outcome.crs, "EPSG:4326");
}

TEST_F(VectorImportTest, AnExplicitSystemIsUsedAndANonsenseOneRefused) {
  const std::string geojson = Converted(Tracts(15.1, 45.2, 0.01, "OGC:1.3:CRS84"), "deg.geojson", "GeoJSON");
  LayerImportOptions options = Options(geojson, "Tracts");
  options.to_crs = "EPSG:3035";
  EXPECT_EQ(project_->ImportLayer(options).crs, "EPSG:3035");
  options.name = "Again";
  options.to_crs = "EPSG:x";
  EXPECT_EQ(CaptureError([&] { project_->ImportLayer(options); }).description,
            "--to-crs must be auto or EPSG: and the number of a coordinate system, not 'EPSG:x'.");
}

TEST_F(VectorImportTest, AMissingLayerListsTheLayersAndAMissingFieldTheFields) {
  const std::string two = Converted(Tracts(0, 0, 10, "EPSG::32633"), "two.gpkg", "GPKG", "-nln blocks");
  Converted(Tracts(0, 0, 10, "EPSG::32633"), "two.gpkg", "GPKG", "-update -nln tracts");
  LayerImportOptions options = Options(two, "T");
  options.to_crs = "auto";  // read through GDAL, not copied
  EXPECT_EQ(CaptureError([&] { project_->ImportLayer(options); }).description,
            "The file '" + two + "' has 2 layers, so --table must name one: 'blocks' and 'tracts'.");
  options.table = "parcels";
  EXPECT_EQ(CaptureError([&] { project_->ImportLayer(options); }).description,
            "The file '" + two + "' has no layer named 'parcels'; its layers are 'blocks' and 'tracts'.");
  options.table = "tracts";
  options.label_field = "LABEL";
  EXPECT_EQ(CaptureError([&] { project_->ImportLayer(options); }).description,
            "The layer 'tracts' of '" + two + "' has no field 'LABEL'; its fields are 'TRACT' and 'NAME'.");
  EXPECT_TRUE(project_->Layers().empty());
}

TEST_F(VectorImportTest, AGeoPackageWithOneLayerIsCopiedWithoutNamingIt) {
  const std::string one = Converted(Tracts(0, 0, 10, "EPSG::32633"), "one.gpkg", "GPKG", "-nln blocks");
  LayerImportOptions options = Options(one, "Blocks");
  const LayerImportOutcome outcome = project_->ImportLayer(options);
  EXPECT_EQ(outcome.table, "blocks");
  EXPECT_EQ(outcome.count, 2);
  EXPECT_EQ(outcome.crs, "EPSG:32633");
}

TEST_F(VectorImportTest, ALayerOutsideItsParentOrInOtherCoordinatesIsRefusedAndNothingIsWritten) {
  const std::string region =
      Converted(Tracts(500000, 5000000, 1000, "EPSG::32633"), "region.shp", "ESRI Shapefile");
  project_->ImportLayer(Options(region, "Region"));
  const std::string before = Bytes(path_);
  // 400 km away, in the same coordinates.
  const std::string far =
      Converted(Tracts(900000, 5000000, 1000, "EPSG::32633"), "far.shp", "ESRI Shapefile");
  LayerImportOptions options = Options(far, "Far");
  options.kind = 2;
  options.parent = "Region";
  EXPECT_EQ(CaptureError([&] { project_->ImportLayer(options); }).description,
            "Only 0 % of the layer 'Far' (EPSG:32633) lies inside its parent 'Region' (EPSG:32633), where at "
            "least 95 % of it must lie.");
  // The same place in degrees.
  const std::string degrees = Converted(Tracts(15.0, 45.1, 0.01, "OGC:1.3:CRS84"), "deg.geojson", "GeoJSON");
  options = Options(degrees, "Degrees");
  options.kind = 2;
  options.parent = "region";
  EXPECT_EQ(
      CaptureError([&] { project_->ImportLayer(options); }).description,
      "The layer 'Degrees' (EPSG:4326) is not in the coordinate system of its parent 'region' (EPSG:32633); "
      "import it with --to-crs set to the parent's system, or choose another parent.");
  EXPECT_EQ(Bytes(path_), before);
  // Half inside is not enough either; all inside is.
  const std::string half =
      Converted(Tracts(501000, 5000000, 1000, "EPSG::32633"), "half.shp", "ESRI Shapefile");
  options = Options(half, "Half");
  options.kind = 2;
  options.parent = "Region";
  EXPECT_NE(
      CaptureError([&] { project_->ImportLayer(options); }).description.find("Only 50 % of the layer 'Half'"),
      std::string::npos);
  const std::string inside =
      Converted(Tracts(500000, 5000000, 500, "EPSG::32633"), "inside.shp", "ESRI Shapefile");
  options = Options(inside, "Inside");
  options.kind = 2;
  options.parent = "Region";
  EXPECT_EQ(project_->ImportLayer(options).count, 2);
}

TEST_F(VectorImportTest, FlatGeobufAndGeoJsonAreReadLikeAShapefile) {
  const std::string tracts = Tracts(500000, 5000000, 1000, "EPSG::32633");
  const std::string flatgeobuf = Converted(tracts, "tracts.fgb", "FlatGeobuf");
  const std::string geojson = Converted(tracts, "tracts.json", "GeoJSON");
  EXPECT_EQ(project_->ImportLayer(Options(flatgeobuf, "From FlatGeobuf")).crs, "EPSG:32633");
  EXPECT_EQ(project_->ImportLayer(Options(geojson, "From GeoJSON")).crs, "EPSG:32633");
  EXPECT_EQ(project_->LayerGeometry("From FlatGeobuf")->strata[0].label, "Tract 1");
  EXPECT_EQ(project_->LayerGeometry("From GeoJSON")->strata[1].id, "2");
}

TEST_F(VectorImportTest, AFileGdalCannotReadIsOneSentence) {
  const std::string text = folder_.File("notes.txt");
  WriteBytes(text, "not a map");
  LayerImportOptions options = Options(text, "Notes");
  const std::string description = CaptureError([&] { project_->ImportLayer(options); }).description;
  EXPECT_EQ(description.rfind("The file '" + text + "' is not vector data that GDAL can read", 0), 0u)
      << description;
}

TEST(VectorSourceUtm, TheZoneFollowsLongitudeAndTheHemisphereLatitude) {
  EXPECT_EQ(VectorSource::UtmZoneFor(15.1, 45.2), "EPSG:32633");
  EXPECT_EQ(VectorSource::UtmZoneFor(-3.7, 40.4), "EPSG:32630");
  EXPECT_EQ(VectorSource::UtmZoneFor(-70.6, -33.4), "EPSG:32719");
  EXPECT_EQ(VectorSource::UtmZoneFor(-180.0, 10), "EPSG:32601");
  EXPECT_EQ(VectorSource::UtmZoneFor(179.99, 10), "EPSG:32660");
}

}  // namespace
}  // namespace zrsimprp::testing
