#include <gtest/gtest.h>

#include <cmath>

#include "PreviewTestInputs.h"
#include "zrsimprp/preview/DetectionScales.h"

namespace zrsimprp {
namespace {

PreviewInputs CovariateTable() {
  PreviewInputs inputs = preview_test::HolesAndPartsInputs();
  inputs.key_function = "Hazard Rate";
  inputs.clusters = true;
  inputs.mean_cluster_size = 3;
  inputs.continuous_cov = "size";
  inputs.mean_cov = 10;
  inputs.levels = {"male", "female"};
  inputs.level_probabilities = {"0.25", "0.75"};
  inputs.detection_columns = {"West", "East"};
  inputs.parameter_names = {"Scale", "Shape", "cluster size", "size", "male", "female"};
  inputs.parameters = {{"50", "40"}, {"3", "2"}, {"0.1", "0"}, {"0.02", "0"}, {"0.2", "0"}, {"-0.1", "0"}};
  return inputs;
}

TEST(DetectionScales, CombineScaleAndCovariateRowsOnTheLogScale) {
  const ColumnDetection west = DetectionScales::Read(CovariateTable(), 0);
  ASSERT_TRUE(west.problem.empty()) << west.problem;
  ASSERT_EQ(west.functions.size(), 2u);
  EXPECT_NEAR(west.functions[0].sigma(), std::exp(std::log(50.0) + 0.1 * 3 + 0.02 * 10 + 0.2), 1e-12);
  EXPECT_NEAR(west.functions[1].sigma(), std::exp(std::log(50.0) + 0.1 * 3 + 0.02 * 10 - 0.1), 1e-12);
  EXPECT_EQ(west.functions[0].shape(), 3);
  EXPECT_EQ(west.labels[0], "West, male");
  EXPECT_EQ(west.labels[1], "West, female");
  EXPECT_DOUBLE_EQ(west.weights[0], 0.25);
  EXPECT_DOUBLE_EQ(west.weights[1], 0.75);
}

TEST(DetectionScales, ZeroCoefficientsLeaveTheScaleAsTyped) {
  const ColumnDetection east = DetectionScales::Read(CovariateTable(), 1);
  ASSERT_TRUE(east.problem.empty()) << east.problem;
  EXPECT_EQ(east.functions[0].sigma(), 40.0);
  EXPECT_EQ(east.functions[1].shape(), 2.0);
}

TEST(DetectionScales, LevelsWithoutUsableProbabilitiesWeighEqually) {
  PreviewInputs inputs = CovariateTable();
  inputs.level_probabilities = {"x", "1"};
  EXPECT_EQ(DetectionScales::LevelWeights(inputs), (std::vector<double>{0.5, 0.5}));
}

TEST(DetectionScales, BlankCellIsASentenceNamingIt) {
  PreviewInputs inputs = CovariateTable();
  inputs.parameters[0][1] = " ";
  EXPECT_EQ(DetectionScales::Read(inputs, 1).problem,
            "The Scale for 'East' is blank, so its detection curve cannot be drawn.");
}

TEST(DetectionScales, TextThatIsNotANumberIsASentenceNamingTheCell) {
  PreviewInputs inputs = CovariateTable();
  inputs.parameters[3][0] = "1,5";
  EXPECT_EQ(DetectionScales::Read(inputs, 0).problem,
            "The size for 'West' ('1,5') is not a number, so its detection curve cannot be drawn.");
}

TEST(DetectionScales, ScaleOfZeroIsRefused) {
  PreviewInputs inputs = CovariateTable();
  inputs.parameters[0][0] = "0";
  EXPECT_EQ(DetectionScales::Read(inputs, 0).problem,
            "The Scale for 'West' is 0, but a scale must be greater than 0, so its detection curve cannot be "
            "drawn.");
}

TEST(DetectionScales, HazardShapeBelowZeroIsRefused) {
  PreviewInputs inputs = CovariateTable();
  inputs.parameters[1][1] = "-2";
  EXPECT_EQ(DetectionScales::Read(inputs, 1).problem,
            "The Shape for 'East' is -2, but a hazard-rate shape must be greater than 0, so its detection "
            "curve cannot be drawn.");
}

TEST(DetectionScales, HalfNormalIgnoresTheGreyedShape) {
  PreviewInputs inputs = CovariateTable();
  inputs.key_function = "Half-Normal";
  inputs.parameters[1][0] = "not used";
  EXPECT_TRUE(DetectionScales::Read(inputs, 0).problem.empty());
}

TEST(DetectionScales, MissingCovariateRowCountsAsZeroAndSaysSo) {
  PreviewInputs inputs = CovariateTable();
  inputs.parameter_names[5] = "other";
  const ColumnDetection west = DetectionScales::Read(inputs, 0);
  ASSERT_TRUE(west.problem.empty()) << west.problem;
  EXPECT_NEAR(west.functions[1].sigma(), std::exp(std::log(50.0) + 0.1 * 3 + 0.02 * 10), 1e-12);
  ASSERT_EQ(west.notes.size(), 1u);
  EXPECT_EQ(
      west.notes[0],
      "The detection table has no row 'female' yet (the Detectability tab adds it when it is shown), so its "
      "coefficient is taken as 0.");
}

TEST(DetectionScales, MissingScaleRowIsASentence) {
  PreviewInputs inputs = CovariateTable();
  inputs.parameter_names[0] = "Scale?";
  EXPECT_EQ(DetectionScales::Read(inputs, 0).problem,
            "The detection table has no row 'Scale' for 'West', so its detection curve cannot be drawn.");
}

}  // namespace
}  // namespace zrsimprp
