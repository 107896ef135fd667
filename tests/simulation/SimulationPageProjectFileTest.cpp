#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "SimulationTestProject.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

using Strings = std::vector<std::string>;

// The page on a GeoPackage project file written into a fresh temporary folder.
class SimulationProjectFileTest : public ::testing::Test {
 protected:
  SimulationProjectFileTest() {
    CModGlobal::Clear();
    folder_ =
        std::filesystem::temp_directory_path() /
        ("zrsim-simulation-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~SimulationProjectFileTest() override {
    CModGlobal::Clear();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::string PathOf(const std::string& file) const { return (folder_ / file).string(); }

  void OpenSample() {
    SampleProject::Create(PathOf("sample.gpkg"));
    CModGlobal::SetProjectDatabase(GeoPackageProject::Open(PathOf("sample.gpkg")));
  }

  static PolygonFeature Square(int32_t id, const std::string& label, double x, double y) {
    return PolygonFeature{id, label, {{{{x, y}, {x + 10, y}, {x + 10, y + 10}, {x, y + 10}, {x, y}}}}};
  }

  std::filesystem::path folder_;
  HeadlessPlatform platform_;
  CPagSimulation page_{platform_};
};

TEST_F(SimulationProjectFileTest, SampleProjectListsItsDesignsAndReadySurveys) {
  OpenSample();
  page_.Initialize();
  ASSERT_TRUE(platform_.Messages().empty()) << platform_.Messages()[0].text;
  EXPECT_EQ(page_.cboDesign.Items(), (Strings{"1 Systematic parallel lines", "2 Equal-spaced zigzag"}));
  EXPECT_EQ(page_.cboDesign.Text(), " ");
  EXPECT_EQ(page_.cboSurvey.Items(),
            (Strings{"1 Parallel lines A", "2 Zigzag survey", "3 Parallel lines B"}));
  EXPECT_EQ(page_.TransectObjectType(), "Survey");
  EXPECT_EQ(page_.TransectObjectID(), "1");
}

TEST_F(SimulationProjectFileTest, SampleProjectStrataComeFromItsStrataLayer) {
  OpenSample();
  page_.Initialize();
  EXPECT_EQ(page_.cboRegionLayer.Items(), (Strings{"Strata", "Study region"}));
  EXPECT_EQ(page_.StrataLayer(), "Strata");
  EXPECT_EQ(page_.StrataNum(), 3);
  EXPECT_EQ(page_.StrataNames(), (Strings{"North", "Central", "South"}));
  EXPECT_EQ(CPagSimulationProbe::StrataIdentifiers(page_), "1,2,3");
}

TEST_F(SimulationProjectFileTest, SampleProjectSettingsOfItsSimulationApply) {
  OpenSample();
  page_.Initialize();
  page_.SetTransectObjectType("Survey");
  page_.SetSurveyObjectID("3");
  page_.SetStrataLayer("study REGION");
  page_.SetReps("25");
  EXPECT_EQ(page_.TransectObjectID(), "3");
  EXPECT_EQ(page_.StrataLayer(), "Study region");
  EXPECT_EQ(page_.StrataNum(), 1);
  EXPECT_EQ(page_.StrataNames(), (Strings{"Study region"}));
  std::string message = "x";
  EXPECT_TRUE(page_.IsValid(message));
  EXPECT_EQ(message, "");
  page_.SetSurveyObjectID("4");  // not ready: the first survey is chosen
  EXPECT_EQ(page_.cboSurvey.Text(), "1 Parallel lines A");
  EXPECT_EQ(page_.StrataLayer(), "Strata");
  EXPECT_EQ(page_.StrataNum(), 3);
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(SimulationProjectFileTest, GeoPackageLayerOfManyFeaturesGivesOneStratumEach) {
  auto project = GeoPackageProject::Create(PathOf("grid.gpkg"));
  project->AddLayer("Region", 1, "", "RegionID", "RegionName", {Square(1, "Everything", 0, 0)});
  std::vector<PolygonFeature> cells;
  for (int32_t i = 1; i <= 150; ++i) {
    cells.push_back(Square(1000 + i, "Cell " + std::to_string(i), 10.0 * (i % 15), 10.0 * (i / 15)));
  }
  project->AddLayer("Grid cells", 2, "Region", "CellID", "CellName", cells);
  project->AddDesign(7, "Grid design", DesignText("Grid cells"));
  project->AddSurvey(70, "Grid survey", 1, 7);
  CModGlobal::SetProjectDatabase(project);

  page_.Initialize();
  ASSERT_TRUE(platform_.Messages().empty()) << platform_.Messages()[0].text;
  EXPECT_EQ(page_.cboRegionLayer.Items(), (Strings{"Grid cells", "Region"}));
  ASSERT_EQ(page_.StrataNum(), 150);
  const Strings names = page_.StrataNames();
  ASSERT_EQ(names.size(), 150u);
  EXPECT_EQ(names.front(), "Cell 1");
  EXPECT_EQ(names[99], "Cell 100");
  EXPECT_EQ(names.back(), "Cell 150");
  const Strings ids = Split(CPagSimulationProbe::StrataIdentifiers(page_), ',');
  ASSERT_EQ(ids.size(), 150u);
  EXPECT_EQ(ids.front(), "1001");
  EXPECT_EQ(ids.back(), "1150");
}

TEST_F(SimulationProjectFileTest, GeoPackageLayerWithoutLabelsGivesEmptyNames) {
  auto project = GeoPackageProject::Create(PathOf("plain.gpkg"));
  project->AddLayer("Region", 1, "", "RegionID", "", {Square(5, "", 0, 0), Square(6, "", 20, 0)});
  project->AddDesign(1, "Plain design", DesignText("Region"));
  project->AddSurvey(1, "Plain survey", 1, 1);
  CModGlobal::SetProjectDatabase(project);
  page_.Initialize();
  ASSERT_TRUE(platform_.Messages().empty()) << platform_.Messages()[0].text;
  EXPECT_EQ(page_.cboRegionLayer.Items(), (Strings{"Region"}));
  EXPECT_EQ(page_.StrataNum(), 2);
  EXPECT_EQ(page_.StrataNames(), (Strings{"", ""}));
}

TEST_F(SimulationProjectFileTest, GeoPackageDesignNamingAMissingLayerIsReported) {
  auto project = GeoPackageProject::Create(PathOf("missing.gpkg"));
  project->AddDesign(1, "Lost design", DesignText("No such layer"));
  project->AddSurvey(1, "Lost survey", 1, 1);
  CModGlobal::SetProjectDatabase(project);
  page_.Initialize();
  ASSERT_EQ(platform_.Messages().size(), 1u);
  EXPECT_NE(platform_.Messages()[0].text.find("(Error raised from: ZrSIMPrp.PagSimulation.Inititalize)"),
            std::string::npos)
      << platform_.Messages()[0].text;
  EXPECT_EQ(page_.cboRegionLayer.Items(), (Strings{"No such layer"}));
}

}  // namespace
}  // namespace zrsimprp
