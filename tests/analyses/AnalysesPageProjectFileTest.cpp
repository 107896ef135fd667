#include <filesystem>
#include <string>
#include <vector>

#include "AnalysesTestProject.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"

namespace zrsimprp {
namespace {

using Strings = std::vector<std::string>;

// The page on the sample project file, written into a fresh temporary folder.
class AnalysesSampleProjectTest : public ::testing::Test {
 protected:
  AnalysesSampleProjectTest() {
    CModGlobal::Clear();
    folder_ =
        std::filesystem::temp_directory_path() /
        ("zrsim-analyses-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    const std::string path = (folder_ / "sample.gpkg").string();
    SampleProject::Create(path);
    CModGlobal::SetProjectDatabase(GeoPackageProject::Open(path));
  }
  ~AnalysesSampleProjectTest() override {
    CModGlobal::Clear();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::filesystem::path folder_;
  HeadlessPlatform platform_;
  CPagAnalyses page_{platform_};
};

TEST_F(AnalysesSampleProjectTest, SampleDataFiltersAreListed) {
  page_.Initialize();
  ASSERT_TRUE(platform_.Messages().empty()) << platform_.Messages()[0].text;
  EXPECT_EQ(page_.cboDataFilter.Items(),
            (Strings{"1 Default data filter", "2 Truncate at 150 m", "3 Group sizes up to 10"}));
  EXPECT_EQ(page_.DataFilter(), "1");
}

TEST_F(AnalysesSampleProjectTest, SampleOffersMrdsDsAndModelAveragingOnly) {
  page_.Initialize();
  EXPECT_EQ(page_.cboModelDef.Items(), (Strings{"1 MRDS half-normal (ds)", "3 MA hazard-rate"}));
}

TEST_F(AnalysesSampleProjectTest, SampleSimulationSettingsApply) {
  page_.Initialize();
  page_.SetAnalyse("True");
  page_.SetDataFilter("2");
  page_.SetModelDef("1");
  page_.SetCriteria("AIC");
  EXPECT_EQ(page_.Analyse(), "True");
  EXPECT_EQ(page_.DataFilter(), "2");
  EXPECT_EQ(page_.ModelDef(), "1");
  EXPECT_EQ(page_.Criteria(), "AIC");
  page_.SetModelDef("4");  // the DSM definition is not offered
  EXPECT_EQ(page_.ModelDef(), "1");
  page_.SetModelDef("3");
  EXPECT_EQ(page_.ModelDef(), "3");
}

}  // namespace
}  // namespace zrsimprp
