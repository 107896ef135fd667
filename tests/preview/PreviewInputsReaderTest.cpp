#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsim/ControlSession.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/preview/PreviewInputsReader.h"

namespace zrsimprp {
namespace {

// The sample loaded into a control, no tab left: the pages have handed nothing over since.
class PreviewInputsReaderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ =
        std::filesystem::temp_directory_path() /
        ("zrsim-reader-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::create_directories(folder_);
    const std::string path = (folder_ / "sample.gpkg").string();
    SampleProject::Create(path);
    project_ = GeoPackageProject::Open(path);
    session_.Load(project_, project_->SimulationDefinition("Sample simulation"));
  }
  void TearDown() override {
    project_.reset();
    std::filesystem::remove_all(folder_);
  }
  SIMProperties& Control() { return session_.Control(); }

  std::filesystem::path folder_;
  std::shared_ptr<GeoPackageProject> project_;
  zrsim::ControlSession session_;
};

TEST_F(PreviewInputsReaderTest, TheMeanClusterSizeIsReadFromTheClusterControlsAsTheyAreNow) {
  EXPECT_DOUBLE_EQ(PreviewInputsReader::FromPages(Control()).mean_cluster_size, 3);
  CPagPopulationDescription& page = Control().pagPopulation;
  const double handed_over = page.MeanClusterSize();
  ASSERT_TRUE(page.flxClusterParam.UserEditCell(1, 1, "6"));
  EXPECT_DOUBLE_EQ(PreviewInputsReader::FromPages(Control()).mean_cluster_size, 6);
  // Reading never runs the page's hand-over.
  EXPECT_EQ(page.MeanClusterSize(), handed_over);
}

TEST_F(PreviewInputsReaderTest, AClusterSizeThatIsNotANumberCountsAsZeroWithoutThrowing) {
  ASSERT_TRUE(Control().pagPopulation.flxClusterParam.UserEditCell(1, 1, "abc"));
  EXPECT_DOUBLE_EQ(PreviewInputsReader::FromPages(Control()).mean_cluster_size, 0);
}

TEST_F(PreviewInputsReaderTest, TheCovariatesAreReadFromTheCovariatesPageAsItIsNow) {
  CPagPopulationCovars& page = Control().pagCovariates;
  ASSERT_TRUE(page.flxContinuousCov.UserEditCell(1, 1, "12"));
  ASSERT_TRUE(page.flxCategoricalCov.UserEditCell(1, 1, "0.3"));
  ASSERT_TRUE(page.flxCategoricalCov.UserEditCell(1, 2, "0.7"));
  const PreviewInputs inputs = PreviewInputsReader::FromPages(Control());
  EXPECT_EQ(inputs.continuous_cov, "size");
  EXPECT_DOUBLE_EQ(inputs.mean_cov, 12);
  EXPECT_EQ(inputs.levels, (std::vector<std::string>{"sex.male", "sex.female"}));
  EXPECT_EQ(inputs.level_probabilities, (std::vector<std::string>{"0.3", "0.7"}));
}

}  // namespace
}  // namespace zrsimprp
