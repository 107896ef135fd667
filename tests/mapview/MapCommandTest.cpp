#include <gtest/gtest.h>
#include <sys/wait.h>

#include <QColor>
#include <QImage>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "projectdb/GeoPackageProject.h"
#include "tests/mapview/MapViewFixture.h"
#include "zrsim/map/MapCommand.h"

namespace zrsimprp {
namespace {

class MapCommandTest : public map_view_test::TempProject {
 protected:
  int Run(const std::vector<std::string>& words) {
    out_.str("");
    err_.str("");
    return zrsim::MapCommand(out_, err_).Run(words);
  }

  std::ostringstream out_;
  std::ostringstream err_;
};

TEST_F(MapCommandTest, WritesThePictureOfTheSampleSimulation) {
  const std::string png = File("map.png");
  ASSERT_EQ(Run({"--project", Sample(), "--simulation", "Sample simulation", "--out", png, "--width", "640",
                 "--height", "480"}),
            0)
      << err_.str();
  EXPECT_EQ(out_.str(), "zrsim map: wrote " + png + " (640 x 480)\n");
  QImage picture(QString::fromStdString(png));
  ASSERT_FALSE(picture.isNull());
  EXPECT_EQ(picture.size(), QSize(640, 480));
  // The surface is drawn in viridis: some pixel is the dark violet of the lowest density (Central).
  int violet = 0;
  for (int y = 0; y < picture.height(); y += 2) {
    for (int x = 0; x < picture.width(); x += 2) {
      const QColor colour = picture.pixelColor(x, y);
      violet += colour.red() < 90 && colour.green() < 30 && colour.blue() > 60 ? 1 : 0;
    }
  }
  EXPECT_GT(violet, 1000);
}

TEST_F(MapCommandTest, DefaultSizeIs900By700) {
  const std::string png = File("default.png");
  ASSERT_EQ(Run({"--project", Sample(), "--simulation", "sample SIMULATION", "--out", png}), 0) << err_.str();
  EXPECT_EQ(QImage(QString::fromStdString(png)).size(), QSize(900, 700));
}

TEST_F(MapCommandTest, SimulationWithoutRegionLayerIsStatusTwo) {
  auto project = GeoPackageProject::Create(File("empty.gpkg"));
  project->SaveSimulationDefinition("Bare", "Engine=SIM;");
  project.reset();
  EXPECT_EQ(Run({"--project", File("empty.gpkg"), "--simulation", "Bare", "--out", File("bare.png")}), 2);
  EXPECT_EQ(err_.str(),
            "zrsim map: the simulation 'Bare' has no region / strata layer, so there is no map to draw\n");
  EXPECT_FALSE(std::filesystem::exists(File("bare.png")));
}

TEST_F(MapCommandTest, LayerWithoutPolygonsIsStatusTwo) {
  auto project = GeoPackageProject::Create(File("hollow.gpkg"));
  project->AddLayer("Hollow", 1, "", "ID", "Name", {PolygonFeature{1, "Nowhere", {}}});
  project->AddDesign(10, "Lines", "Engine=DES;\"STRATUM LAYER\"=Hollow;");
  project->AddSurvey(11, "Survey", 1, 10);
  project->SaveSimulationDefinition("Hollow simulation", "Engine=SIM;");
  project.reset();
  EXPECT_EQ(
      Run({"--project", File("hollow.gpkg"), "--simulation", "Hollow simulation", "--out", File("h.png")}),
      2);
  EXPECT_EQ(err_.str(),
            "zrsim map: The region / strata layer 'Hollow' has no polygons, so there is nothing to draw.\n");
}

TEST_F(MapCommandTest, MissingOptionsAreStatusTwo) {
  EXPECT_EQ(Run({"--project", Sample(), "--simulation", "Sample simulation"}), 2);
  EXPECT_EQ(err_.str().rfind("zrsim map: --out is missing\nUsage: zrsim map", 0), 0u) << err_.str();
  EXPECT_EQ(Run({"--project", Sample(), "--out", File("x.png")}), 2);
  EXPECT_EQ(err_.str().rfind("zrsim map: --simulation is missing", 0), 0u) << err_.str();
}

TEST_F(MapCommandTest, BadSizeIsStatusTwo) {
  EXPECT_EQ(Run({"--project", Sample(), "--simulation", "Sample simulation", "--out", File("x.png"),
                 "--width", "wide"}),
            2);
  EXPECT_EQ(err_.str(), "zrsim map: --width must be a whole number of pixels from 16 to 16384, not 'wide'\n");
  EXPECT_EQ(Run({"--project", Sample(), "--simulation", "Sample simulation", "--out", File("x.png"),
                 "--height", "99999999999"}),
            2);
  EXPECT_EQ(err_.str(),
            "zrsim map: --height must be a whole number of pixels from 16 to 16384, not '99999999999'\n");
}

TEST_F(MapCommandTest, UnknownSimulationIsStatusTwo) {
  EXPECT_EQ(Run({"--project", Sample(), "--simulation", "Nothing", "--out", File("x.png")}), 2);
  EXPECT_NE(err_.str().find("Nothing"), std::string::npos) << err_.str();
}

TEST_F(MapCommandTest, UnwritablePictureIsStatusTwo) {
  const std::string png = File("no/such/folder/x.png");
  EXPECT_EQ(Run({"--project", Sample(), "--simulation", "Sample simulation", "--out", png}), 2);
  EXPECT_EQ(err_.str(), "zrsim map: the picture could not be written to '" + png + "'\n");
}

TEST_F(MapCommandTest, NotAProjectIsStatusTwo) {
  const std::string text = File("text.gpkg");
  std::ofstream(text) << "not a database";
  EXPECT_EQ(Run({"--project", text, "--simulation", "Sample simulation", "--out", File("x.png")}), 2);
  EXPECT_FALSE(err_.str().empty());
}

// zrsim without zrsim-map beside it (installed without the Qt view): a sentence and status 2.
TEST_F(MapCommandTest, ZrsimWithoutTheDrawingProgramIsStatusTwo) {
  const std::filesystem::path built = std::filesystem::path(ZRSIMPRP_BINARY_DIR) / "apps" / "zrsim" / "zrsim";
  ASSERT_TRUE(std::filesystem::exists(built)) << "build the zrsim program first";
  const std::string alone = File("zrsim");
  std::filesystem::copy_file(built, alone);
  const std::string command = "'" + alone + "' map --help > '" + File("out.txt") + "' 2>&1";
  const int status = std::system(command.c_str());
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 2);
  std::ifstream text(File("out.txt"));
  const std::string said((std::istreambuf_iterator<char>(text)), std::istreambuf_iterator<char>());
  EXPECT_EQ(said,
            "zrsim map: the drawing program '" + File("zrsim-map") +
                "' is not installed beside zrsim (it is built with the Qt view), so no map can be drawn\n");
}

TEST_F(MapCommandTest, HelpPrintsUsage) {
  EXPECT_EQ(Run({"--help"}), 0);
  EXPECT_EQ(out_.str(), zrsim::MapCommand::Usage());
}

}  // namespace
}  // namespace zrsimprp
