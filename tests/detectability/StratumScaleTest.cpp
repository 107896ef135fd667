#include <gtest/gtest.h>

#include <cmath>

#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/pages/CPagDetectability/CPagDetectability.h"
#include "zrsimprp/pages/CPagDetectability/StratumScaleCalculator.h"

namespace zrsimprp {
namespace {

class StratumScale : public ::testing::Test {
 protected:
  void SetUp() override {
    page.UpdateStrataInfo(2, {"North", "South"});
    page.SetParamByStratum("True");
  }

  HeadlessPlatform platform;
  CPagDetectability page{platform};
  StratumScaleCalculator::Covariates covariates;
};

TEST_F(StratumScale, ScaleAloneGivesItsLog) {
  page.SetParam(1, "20,5");
  const auto result = StratumScaleCalculator::Compute(page.flxDetect, 2, covariates);
  ASSERT_EQ(result.size(), 1u);
  EXPECT_NEAR(result[0], 1.6094379, 1e-7);  // ln 5
}

TEST_F(StratumScale, ClusterAndContinuousTermsAddToTheLogScale) {
  page.UpdateFlxDetect(true, 2, "wind", 3, {""});
  page.SetParam(1, "20,5");
  page.SetParam(3, "0.1,0");
  page.SetParam(4, "0.2,0");
  covariates.clusters = true;
  covariates.mean_cluster_size = 2;
  covariates.continuous_cov = "WIND";
  covariates.mean_cov = 3;
  const auto result = StratumScaleCalculator::Compute(page.flxDetect, 1, covariates);
  ASSERT_EQ(result.size(), 1u);
  // ln 20 + 0.1 * 2 + 0.2 * 3
  EXPECT_NEAR(result[0], 3.7957323, 1e-7);
}

TEST_F(StratumScale, EachLevelGetsItsOwnScale) {
  page.UpdateFlxDetect(true, 2, "wind", 3, {"a", "b"});
  page.SetParam(1, "20,5");
  page.SetParam(3, "0.1,0");
  page.SetParam(4, "0.2,0");
  page.SetParam(5, "0.5,0");
  page.SetParam(6, "-0.5,0");
  covariates.clusters = true;
  covariates.mean_cluster_size = 2;
  covariates.continuous_cov = "wind";
  covariates.mean_cov = 3;
  covariates.cat_cov_levels = {"a", "b"};
  const auto result = StratumScaleCalculator::Compute(page.flxDetect, 1, covariates);
  ASSERT_EQ(result.size(), 2u);
  EXPECT_NEAR(result[0], 73.385935, 1e-5);  // 20 e^1.3
  EXPECT_NEAR(result[1], 26.997176, 1e-5);  // 20 e^0.3
}

TEST_F(StratumScale, ZeroScaleIsAnInvalidProcedureCall) {
  try {
    StratumScaleCalculator::Compute(page.flxDetect, 1, covariates);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 5);
  }
}

TEST_F(StratumScale, MissingCovariateRowIsATypeMismatch) {
  page.SetParam(1, "20,5");
  covariates.continuous_cov = "depth";
  try {
    StratumScaleCalculator::Compute(page.flxDetect, 1, covariates);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 13);
  }
}

}  // namespace
}  // namespace zrsimprp
