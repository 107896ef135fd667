#include <gtest/gtest.h>

#include <string>

#include "CliFixture.h"
#include "projectdb/GeoPackageValidator.h"

namespace {

class ImportLayerCommand : public CliFixture {
 protected:
  void SetUp() override {
    CliFixture::SetUp();
    if (!geopackage_validator::HasOgr2ogr()) GTEST_SKIP() << "ogr2ogr (gdal-bin) is not installed";
  }

  // Two counties side by side in degrees, written as GeoJSON, then as a Shapefile by ogr2ogr.
  std::string CountiesShapefile() {
    const std::string json = PathIn("counties.geojson");
    WriteFile(json,
              "{\"type\":\"FeatureCollection\",\"features\":["
              "{\"type\":\"Feature\",\"properties\":{\"FIPS\":37001,\"COUNTY\":\"Alamance\"},\"geometry\":"
              "{\"type\":\"Polygon\",\"coordinates\":[[[-79.5,36.0],[-79.3,36.0],[-79.3,36.2],[-79.5,36.2],"
              "[-79.5,36.0]]]}},"
              "{\"type\":\"Feature\",\"properties\":{\"FIPS\":37003,\"COUNTY\":\"Alexander\"},\"geometry\":"
              "{\"type\":\"Polygon\",\"coordinates\":[[[-79.3,36.0],[-79.1,36.0],[-79.1,36.2],[-79.3,36.2],"
              "[-79.3,36.0]]]}}]}");
    const std::string shapefile = PathIn("counties.shp");
    const auto outcome = geopackage_validator::RunShell("ogr2ogr -f 'ESRI Shapefile' " +
                                                        geopackage_validator::ShellQuote(shapefile) + " " +
                                                        geopackage_validator::ShellQuote(json) + " 2>&1");
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    return shapefile;
  }
};

TEST_F(ImportLayerCommand, AShapefileInDegreesBecomesReprojectedStrataOfARegionMadeFromThem) {
  const std::string project = PathIn("mine.gpkg");
  ASSERT_EQ(Run({"project", "new", project}).status, 0);
  Result imported = Run({"project", "import-layer", project, "--from", CountiesShapefile(), "--id-field",
                         "FIPS", "--label-field", "COUNTY", "--name", "Counties", "--kind", "2",
                         "--make-region", "Study area", "--to-crs", "auto"});
  ASSERT_EQ(imported.status, 0) << imported.err;
  EXPECT_EQ(imported.out,
            "Made the study region 'Study area' by dissolving the layer's polygons\n"
            "Imported 2 features of 'counties' as the layer 'Counties' in EPSG:32617\n");
  Result list = Run({"project", "list", project});
  EXPECT_NE(list.out.find(
                "  Study area (kind 1, table study_area, id field RegionID, label field RegionName, parent "
                "none, 1 features)\n"
                "  Counties (kind 2, table counties, id field FIPS, label field COUNTY, parent Study area, "
                "2 features)\n"),
            std::string::npos)
      << list.out;
  ASSERT_EQ(Run({"project", "add-design", project, "--id", "1", "--name", "Lines", "--stratum-layer",
                 "Counties", "--type", "parallel", "--spacing", "2000", "--truncation", "300"})
                .status,
            0);
  EXPECT_VALID_GEOPACKAGE(project);
}

TEST_F(ImportLayerCommand, StrataUnderTheSamplesRegionElsewhereAreRefusedAndTheFileIsUntouched) {
  const std::string project = SampleProject();
  Result refused =
      Run({"project", "import-layer", project, "--from", CountiesShapefile(), "--id-field", "FIPS", "--name",
           "Counties", "--kind", "2", "--parent", "Study region", "--to-crs", "auto"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(
      refused.err,
      "zrsim project import-layer: The layer 'Counties' (EPSG:32617) is not in the coordinate system of its "
      "parent 'Study region' (Undefined cartesian SRS); import it with --to-crs set to the parent's system, "
      "or choose another parent.\n");
  Result list = Run({"project", "list", project});
  EXPECT_EQ(list.out.find("Counties"), std::string::npos);
}

TEST_F(ImportLayerCommand, TheDegreesWarningGivesCommandsThatImportTheLayerAndItsRegionInMetres) {
  const std::string project = PathIn("mine.gpkg");
  ASSERT_EQ(Run({"project", "new", project}).status, 0);
  const std::string shapefile = CountiesShapefile();
  Result imported = Run({"project", "import-layer", project, "--from", shapefile, "--id-field", "FIPS",
                         "--name", "Counties", "--kind", "2", "--make-region", "Study area"});
  ASSERT_EQ(imported.status, 0) << imported.err;
  const std::string marker = "To import it in metres instead: ";
  const std::size_t at = imported.out.find(marker);
  ASSERT_NE(at, std::string::npos) << imported.out;
  const std::string commands = imported.out.substr(at + marker.size());
  EXPECT_EQ(commands, "zrsim project remove-layer " + project +
                          " --name Counties && zrsim project remove-layer " + project +
                          " --name 'Study area' && zrsim project import-layer " + project + " --from " +
                          shapefile +
                          " --id-field FIPS --name Counties --kind 2 --make-region 'Study area' "
                          "--to-crs auto\n");
  // The commands, run one after the other as a shell would, give the layers in metres.
  ASSERT_EQ(Run({"project", "remove-layer", project, "--name", "Counties"}).status, 0);
  ASSERT_EQ(Run({"project", "remove-layer", project, "--name", "Study area"}).status, 0);
  Result again = Run({"project", "import-layer", project, "--from", shapefile, "--id-field", "FIPS", "--name",
                      "Counties", "--kind", "2", "--make-region", "Study area", "--to-crs", "auto"});
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(again.out.find("Warning"), std::string::npos) << again.out;
}

TEST_F(ImportLayerCommand, AWrongFieldListsTheFieldsTheSourceHas) {
  const std::string project = PathIn("mine.gpkg");
  ASSERT_EQ(Run({"project", "new", project}).status, 0);
  const std::string shapefile = CountiesShapefile();
  Result refused = Run({"project", "import-layer", project, "--from", shapefile, "--id-field", "ID", "--name",
                        "C", "--kind", "1"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err, "zrsim project import-layer: The layer 'counties' of '" + shapefile +
                             "' has no field 'ID'; its fields are 'FIPS' and 'COUNTY'.\n");
}

}  // namespace
