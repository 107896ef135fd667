#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "PreviewTestInputs.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsim/ControlSession.h"
#include "zrsim/PageChecker.h"
#include "zrsimprp/preview/PreviewCalculator.h"
#include "zrsimprp/preview/PreviewInputsReader.h"
#include "zrsimprp/preview/SurveyDrawer.h"

namespace zrsimprp {
namespace {

constexpr int kDraws = 2000;

// The expected detections must lie within three standard errors of the mean of the draws.
void ExpectMeanOfDrawsNearExpected(const Preview& preview, const LayerShapes& strata) {
  double sum = 0;
  double sum_of_squares = 0;
  std::vector<double> by_stratum(preview.strata.size(), 0.0);
  for (int draw = 0; draw < kDraws; ++draw) {
    const DrawnSurvey survey = SurveyDrawer::Draw(preview, strata, static_cast<uint64_t>(draw) + 1);
    ASSERT_TRUE(survey.refusal.empty()) << survey.refusal;
    const double n = static_cast<double>(survey.total_detections);
    sum += n;
    sum_of_squares += n * n;
    for (size_t s = 0; s < by_stratum.size(); ++s)
      by_stratum[s] += static_cast<double>(survey.detections_by_stratum[s]);
  }
  const double mean = sum / kDraws;
  const double variance = (sum_of_squares - kDraws * mean * mean) / (kDraws - 1);
  const double standard_error = std::sqrt(variance / kDraws);
  EXPECT_GT(standard_error, 0);
  EXPECT_NEAR(mean, preview.expected_detections, 3 * standard_error)
      << "mean of draws " << mean << ", standard error " << standard_error;
}

TEST(SurveyDrawer, MeanOfDrawsMatchesTheExpectedDetectionsOnHolesAndParts) {
  const PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  const Preview preview = PreviewCalculator::Compute(inputs);
  ASSERT_TRUE(preview.Usable()) << preview.refusal;
  ExpectMeanOfDrawsNearExpected(preview, *inputs.layers.region);
}

TEST(SurveyDrawer, MeanOfDrawsMatchesTheExpectedDetectionsWithPoissonNAndHazardRate) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.population_size = "Poisson N";
  inputs.density.densities = {"0.0004", "0.0002"};
  inputs.density.hotspots = {{"1500", "500", "150", "0.002"}};
  inputs.key_function = "Hazard Rate";
  inputs.parameters = {{"25"}, {"2.5"}};
  const Preview preview = PreviewCalculator::Compute(inputs);
  ASSERT_TRUE(preview.Usable()) << preview.refusal;
  ExpectMeanOfDrawsNearExpected(preview, *inputs.layers.region);
}

// The sample project loaded as the command line loads it.
class SampleSurvey : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ =
        std::filesystem::temp_directory_path() /
        ("zrsim-preview-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::create_directories(folder_);
    const std::string path = (folder_ / "sample.gpkg").string();
    SampleProject::Create(path);
    project_ = GeoPackageProject::Open(path);
  }
  void TearDown() override {
    project_.reset();
    std::filesystem::remove_all(folder_);
  }

  PreviewInputs SampleInputs() {
    zrsim::ControlSession session;
    session.Load(project_, project_->SimulationDefinition("Sample simulation"));
    for (const auto& verdict : zrsim::PageChecker(session).CheckAll())
      EXPECT_TRUE(verdict.valid) << verdict.message;
    return PreviewInputsReader::FromControl(session.Control(), project_);
  }

  std::filesystem::path folder_;
  std::shared_ptr<GeoPackageProject> project_;
};

TEST_F(SampleSurvey, MeanOfDrawsMatchesTheExpectedDetections) {
  const PreviewInputs inputs = SampleInputs();
  const Preview preview = PreviewCalculator::Compute(inputs);
  ASSERT_TRUE(preview.Usable()) << preview.refusal;
  ASSERT_EQ(preview.strata.size(), 3u);
  EXPECT_EQ(preview.design_name, "Systematic parallel lines");
  EXPECT_EQ(preview.strata[0].animals, 400);
  EXPECT_DOUBLE_EQ(preview.strata[1].coverage, 2 * 200.0 / 500);
  ExpectMeanOfDrawsNearExpected(preview, *inputs.layers.region);
}

TEST_F(SampleSurvey, TheSameSeedDrawsTheSameSurvey) {
  const PreviewInputs inputs = SampleInputs();
  const Preview preview = PreviewCalculator::Compute(inputs);
  const DrawnSurvey first = SurveyDrawer::Draw(preview, *inputs.layers.region, 7);
  const DrawnSurvey second = SurveyDrawer::Draw(preview, *inputs.layers.region, 7);
  ASSERT_EQ(first.animals.size(), second.animals.size());
  for (size_t i = 0; i < first.animals.size(); ++i) {
    EXPECT_EQ(first.animals[i].x, second.animals[i].x);
    EXPECT_EQ(first.animals[i].y, second.animals[i].y);
    EXPECT_EQ(first.animals[i].detected, second.animals[i].detected);
  }
  EXPECT_EQ(first.total_detections, second.total_detections);
  const DrawnSurvey other = SurveyDrawer::Draw(preview, *inputs.layers.region, 8);
  EXPECT_NE(first.animals.front().x, other.animals.front().x);
}

TEST_F(SampleSurvey, AnimalsGatherAtTheHotspots) {
  const PreviewInputs inputs = SampleInputs();
  const Preview preview = PreviewCalculator::Compute(inputs);
  // The North stratum (3000 by 600) has a hotspot of amplitude 4 on a density of 2.5 at (800, 1700).
  size_t north = 0;
  size_t near_hotspot = 0;
  for (uint64_t seed = 1; seed <= 20; ++seed) {
    for (const DrawnAnimal& animal : SurveyDrawer::Draw(preview, *inputs.layers.region, seed).animals) {
      if (animal.stratum != 0) continue;
      ++north;
      if (std::hypot(animal.x - 800, animal.y - 1700) < 150) ++near_hotspot;
    }
  }
  // Evenly spread, about 3.9 % of the stratum's animals would lie within one sigma of the centre.
  const double even_share = std::acos(-1.0) * 150 * 150 / (3000.0 * 600);
  EXPECT_GT(static_cast<double>(near_hotspot) / static_cast<double>(north), 1.5 * even_share);
}

TEST(SurveyDrawer, AnimalsStayInTheirStratumAndOutOfHoles) {
  const PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  const Preview preview = PreviewCalculator::Compute(inputs);
  const DrawnSurvey survey = SurveyDrawer::Draw(preview, *inputs.layers.region, 3);
  ASSERT_EQ(survey.total_animals, 800u);
  for (const DrawnAnimal& animal : survey.animals) {
    EXPECT_TRUE(SurveyDrawer::Inside(inputs.layers.region->strata[static_cast<size_t>(animal.stratum)],
                                     animal.x, animal.y))
        << animal.x << " " << animal.y;
  }
}

TEST(SurveyDrawer, LinesAreClippedToTheStrataAndBrokenByHoles) {
  const auto shapes = preview_test::HolesAndParts();
  const std::vector<SurveyLine> lines = SurveyDrawer::ClipLines(*shapes, 500, 2400, 1000);
  // x = 500 crosses West and its hole; x = 1500 crosses East; x = 2500 is past the extent.
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].x, 500);
  EXPECT_EQ(lines[0].y0, 0);
  EXPECT_EQ(lines[0].y1, 400);
  EXPECT_EQ(lines[1].y0, 600);
  EXPECT_EQ(lines[1].y1, 1000);
  EXPECT_EQ(lines[2].x, 1500);
  EXPECT_EQ(lines[2].stratum, 1);
}

TEST(SurveyDrawer, AnIslandWithAHoleIsCrossedAroundIt) {
  const auto shapes = preview_test::HolesAndParts();
  const std::vector<SurveyLine> lines = SurveyDrawer::ClipLines(*shapes, 2250, 2400, 1000);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].y0, 300);
  EXPECT_EQ(lines[0].y1, 400);
  EXPECT_EQ(lines[1].y0, 500);
  EXPECT_EQ(lines[1].y1, 600);
}

TEST(SurveyDrawer, NothingIsDrawnForAPreviewThatIsRefused) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.design.spacing = "";
  const Preview preview = PreviewCalculator::Compute(inputs);
  const DrawnSurvey survey = SurveyDrawer::Draw(preview, *inputs.layers.region, 1);
  EXPECT_EQ(survey.refusal, preview.refusal);
  EXPECT_TRUE(survey.animals.empty());
}

TEST(SurveyDrawer, ASpacingTooSmallForASurveyIsRefused) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.design.spacing = "0.001";
  const Preview preview = PreviewCalculator::Compute(inputs);
  ASSERT_TRUE(preview.Usable()) << preview.refusal;
  const DrawnSurvey survey = SurveyDrawer::Draw(preview, *inputs.layers.region, 1);
  EXPECT_EQ(
      survey.refusal,
      "The spacing 0.001 lays 2.4e+06 lines across the strata, more than the 1e+05 a drawn survey lays, so "
      "no survey is drawn.");
}

TEST(SurveyDrawer, APopulationTooLargeToDrawIsRefused) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.population_values = {"3e7", "1"};
  const Preview preview = PreviewCalculator::Compute(inputs);
  const DrawnSurvey survey = SurveyDrawer::Draw(preview, *inputs.layers.region, 1);
  EXPECT_EQ(
      survey.refusal,
      "The population of 3e+07 animals is more than the 2e+07 a drawn survey places, so no survey is drawn.");
}

}  // namespace
}  // namespace zrsimprp
