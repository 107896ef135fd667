#include <gtest/gtest.h>

#include <cmath>

#include "PreviewTestInputs.h"
#include "zrsimprp/preview/PreviewCalculator.h"

namespace zrsimprp {
namespace {

double HalfNormalAverage(double sigma, double w) {
  return sigma * std::sqrt(std::acos(-1.0) / 2) * std::erf(w / (sigma * std::sqrt(2.0))) / w;
}

TEST(PreviewCalculator, AreaLeavesHolesOutAndAddsParts) {
  const auto shapes = preview_test::HolesAndParts();
  EXPECT_DOUBLE_EQ(PreviewCalculator::Area(shapes->strata[0]), 1000.0 * 1000 - 200.0 * 200);
  EXPECT_DOUBLE_EQ(PreviewCalculator::Area(shapes->strata[1]), 1000.0 * 1000 + 300.0 * 300 - 100.0 * 100);
}

TEST(PreviewCalculator, ExpectedDetectionsAreAnimalsTimesCoverageTimesAverageDetectability) {
  const Preview preview = PreviewCalculator::Compute(preview_test::HolesAndPartsInputs());
  ASSERT_TRUE(preview.Usable()) << preview.refusal;
  ASSERT_EQ(preview.strata.size(), 2u);
  const double coverage = 2 * 50.0 / 250;
  const double pa = HalfNormalAverage(20, 50);
  EXPECT_EQ(preview.strata[0].name, "West");
  EXPECT_EQ(preview.strata[1].id, "2");
  EXPECT_DOUBLE_EQ(preview.strata[0].coverage, coverage);
  EXPECT_NEAR(preview.strata[0].average_detectability, pa, 1e-15);
  EXPECT_NEAR(preview.strata[0].expected_detections, 300 * coverage * pa, 1e-12);
  EXPECT_NEAR(preview.strata[1].expected_detections, 500 * coverage * pa, 1e-12);
  EXPECT_NEAR(preview.expected_detections, 800 * coverage * pa, 1e-12);
  EXPECT_NEAR(preview.cv_guide, std::sqrt(3 / (800 * coverage * pa)), 1e-12);
  EXPECT_EQ(preview.population_source,
            "The animals per stratum are the fixed N typed on the Population page.");
  EXPECT_TRUE(preview.warning.empty());
}

TEST(PreviewCalculator, CoverageIsAtMostOne) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.design.spacing = "80";
  const Preview preview = PreviewCalculator::Compute(inputs);
  EXPECT_EQ(preview.strata[0].coverage, 1.0);
}

TEST(PreviewCalculator, ZigzagIsCoveredAsParallelLinesAndSaysSo) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.design.type = "Zigzag";
  const Preview preview = PreviewCalculator::Compute(inputs);
  EXPECT_DOUBLE_EQ(preview.strata[0].coverage, 0.4);
  ASSERT_EQ(preview.notes.size(), 1u);
  EXPECT_EQ(preview.notes[0],
            "The zigzag design is taken to cover what parallel lines at its spacing would: min(1, 2w/S).");
}

TEST(PreviewCalculator, FixedDensityTimesAreaGivesTheAnimals) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.population_size = "Fixed D";
  inputs.population_values = {"0.0001", "0.0002"};
  const Preview preview = PreviewCalculator::Compute(inputs);
  ASSERT_TRUE(preview.Usable()) << preview.refusal;
  EXPECT_NEAR(preview.strata[0].animals, 0.0001 * 960000, 1e-9);
  EXPECT_NEAR(preview.strata[1].animals, 0.0002 * 1080000, 1e-9);
  EXPECT_EQ(
      preview.population_source,
      "The animals per stratum are expected from the fixed average density typed on the Population page "
      "times the stratum's area; each repetition draws a Poisson number around them.");
}

TEST(PreviewCalculator, PoissonNComesFromTheDensitySurfaceOverTheStratum) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.population_size = "Poisson N";
  inputs.density.densities = {"0.0005", "0.001"};
  const Preview preview = PreviewCalculator::Compute(inputs);
  ASSERT_TRUE(preview.Usable()) << preview.refusal;
  // The surface is summed cell by cell (the grid of 20 lies exactly on every edge) and holds its
  // values in single precision.
  EXPECT_NEAR(preview.strata[0].animals, 0.0005 * 960000, 480 * 1e-6);
  EXPECT_NEAR(preview.strata[1].animals, 0.001 * 1080000, 1080 * 1e-6);
}

TEST(PreviewCalculator, ClustersGiveIndividualsAsDetectionsTimesMeanSize) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.clusters = true;
  inputs.mean_cluster_size = 2.5;
  inputs.parameter_names.push_back("cluster size");
  inputs.parameters.push_back({"0"});
  const Preview preview = PreviewCalculator::Compute(inputs);
  ASSERT_TRUE(preview.Usable()) << preview.refusal;
  EXPECT_NEAR(preview.expected_individuals, 2.5 * preview.expected_detections, 1e-12);
  EXPECT_EQ(preview.population_source,
            "The clusters per stratum are the fixed N typed on the Population page.");
}

TEST(PreviewCalculator, ClustersWithoutAMeanSizeYetLeaveTheIndividualsUnknown) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.clusters = true;
  inputs.mean_cluster_size = 0;
  const Preview preview = PreviewCalculator::Compute(inputs);
  ASSERT_TRUE(preview.Usable()) << preview.refusal;
  EXPECT_GT(preview.expected_detections, 0);
  EXPECT_TRUE(std::isnan(preview.expected_individuals));
  EXPECT_EQ(preview.notes.back(),
            "Detections are of clusters; the cluster values on the Population tab do not give a mean cluster "
            "size above 0 as they stand, so the expected individuals are not worked out.");
}

TEST(PreviewCalculator, FewDetectionsGiveTheWarning) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.population_values = {"30", "20"};
  const Preview preview = PreviewCalculator::Compute(inputs);
  EXPECT_EQ(preview.warning,
            "Only 9.902 detections are expected in a repetition: fewer than 60, too few to fit a detection "
            "function reliably (60 to 80 is the usual minimum).");
}

TEST(PreviewCalculator, CurvesRunFromTheLineToTheTruncationDistance) {
  const Preview preview = PreviewCalculator::Compute(preview_test::HolesAndPartsInputs());
  ASSERT_EQ(preview.curves.size(), 1u);
  const DetectionCurve& curve = preview.curves[0];
  EXPECT_EQ(curve.label, "Study Area");
  const auto points = curve.Points(101);
  ASSERT_EQ(points.size(), 101u);
  EXPECT_EQ(points.front().first, 0);
  EXPECT_EQ(points.back().first, 50);
  EXPECT_EQ(points.front().second, 1);
  EXPECT_DOUBLE_EQ(points[50].second, std::exp(-25.0 * 25 / (2 * 20 * 20)));
  EXPECT_DOUBLE_EQ(points.back().second, std::exp(-50.0 * 50 / (2 * 20 * 20)));
}

TEST(PreviewCalculator, ParametersByStratumGiveEachStratumItsOwnScale) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.detection_columns = {"West", "East"};
  inputs.parameters = {{"20", "40"}, {"", ""}};
  const Preview preview = PreviewCalculator::Compute(inputs);
  ASSERT_EQ(preview.curves.size(), 2u);
  EXPECT_NEAR(preview.strata[1].average_detectability, HalfNormalAverage(40, 50), 1e-15);
}

struct Refusal {
  const char* what;
  void (*change)(PreviewInputs&);
  const char* sentence;
};

class PreviewRefusal : public ::testing::TestWithParam<Refusal> {};

TEST_P(PreviewRefusal, IsOneSentence) {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  GetParam().change(inputs);
  const Preview preview = PreviewCalculator::Compute(inputs);
  EXPECT_FALSE(preview.Usable());
  EXPECT_EQ(preview.refusal, GetParam().sentence);
}

INSTANTIATE_TEST_SUITE_P(
    Preview, PreviewRefusal,
    ::testing::Values(
        Refusal{"NoSpacing", [](PreviewInputs& i) { i.design.spacing = ""; },
                "The design 'Lines' gives no spacing, so the survey cannot be previewed."},
        Refusal{"NoTruncation", [](PreviewInputs& i) { i.design.truncation = " "; },
                "The design 'Lines' gives no truncation distance, so the survey cannot be previewed."},
        Refusal{"SpacingNotANumber", [](PreviewInputs& i) { i.design.spacing = "wide"; },
                "The design 'Lines' gives the spacing 'wide', which is not a number greater than 0, so the "
                "survey cannot be previewed."},
        Refusal{"TruncationZero", [](PreviewInputs& i) { i.design.truncation = "0"; },
                "The design 'Lines' gives the truncation distance '0', which is not a number greater than 0, "
                "so the survey cannot be previewed."},
        Refusal{"NoDesign",
                [](PreviewInputs& i) {
                  i.design = PreviewDesign{};
                  i.design.missing = "The survey 9 the simulation names is not in the project.";
                },
                "The survey 9 the simulation names is not in the project."},
        Refusal{"LayerWithoutGeometry", [](PreviewInputs& i) { i.layers.region.reset(); },
                "The strata layer 'Blocks' has no geometry, so the strata's areas and lines cannot be worked "
                "out."},
        Refusal{"NoLayer",
                [](PreviewInputs& i) {
                  i.layers.region.reset();
                  i.layers.region_layer = "None";
                },
                "No strata layer is chosen, so there are no strata to preview."},
        Refusal{"NegativeN", [](PreviewInputs& i) { i.population_values[1] = "-3"; },
                "The N of stratum 'East' ('-3') is not a number of 0 or more, so the population cannot be "
                "previewed."},
        Refusal{"ScaleNotANumber", [](PreviewInputs& i) { i.parameters[0][0] = "far"; },
                "The Scale for 'Study Area' ('far') is not a number, so the detections cannot be previewed."},
        Refusal{"SurfaceMissing",
                [](PreviewInputs& i) {
                  i.population_size = "Poisson N";
                  i.density.grid_spacing = "";
                },
                "The population comes from the density surface, which cannot be worked out. The grid spacing "
                "is blank, so the surface cannot be drawn."}),
    [](const ::testing::TestParamInfo<Refusal>& refusal) { return std::string(refusal.param.what); });

}  // namespace
}  // namespace zrsimprp
