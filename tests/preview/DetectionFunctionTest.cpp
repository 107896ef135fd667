#include <gtest/gtest.h>

#include <cmath>

#include "zrsimprp/preview/DetectionFunction.h"

namespace zrsimprp {
namespace {

// A composite Simpson rule on a million panels: independent of the function's own integration.
double FineIntegral(const DetectionFunction& g, double w) {
  constexpr int kPanels = 1'000'000;
  const double h = w / kPanels;
  double sum = g.At(0) + g.At(w);
  for (int i = 1; i < kPanels; ++i) sum += (i % 2 ? 4 : 2) * g.At(i * h);
  return sum * h / 3;
}

TEST(DetectionFunction, HalfNormalIsOneAtTheLineAndFallsAsExpected) {
  const DetectionFunction g(DetectionFunction::Key::kHalfNormal, 20, 0);
  EXPECT_DOUBLE_EQ(g.At(0), 1.0);
  EXPECT_DOUBLE_EQ(g.At(20), std::exp(-0.5));
  EXPECT_DOUBLE_EQ(g.At(40), std::exp(-2.0));
}

TEST(DetectionFunction, HazardRateIsOneAtTheLineAndFallsAsExpected) {
  const DetectionFunction g(DetectionFunction::Key::kHazardRate, 60, 3);
  EXPECT_DOUBLE_EQ(g.At(0), 1.0);
  EXPECT_DOUBLE_EQ(g.At(60), 1 - std::exp(-1.0));
  EXPECT_DOUBLE_EQ(g.At(120), 1 - std::exp(-1.0 / 8));
}

TEST(DetectionFunction, HalfNormalAverageIsItsClosedFormWithErf) {
  const double pi = std::acos(-1.0);
  for (double sigma : {5.0, 20.0, 60.0, 400.0}) {
    for (double w : {10.0, 50.0, 200.0}) {
      const DetectionFunction g(DetectionFunction::Key::kHalfNormal, sigma, 0);
      const double closed = sigma * std::sqrt(pi / 2) * std::erf(w / (sigma * std::sqrt(2.0))) / w;
      EXPECT_NEAR(g.AverageDetectability(w), closed, 1e-15) << sigma << " " << w;
      EXPECT_NEAR(g.AverageDetectability(w), FineIntegral(g, w) / w, 1e-12) << sigma << " " << w;
    }
  }
}

TEST(DetectionFunction, HazardRateAverageMatchesAFineNumericIntegral) {
  for (double sigma : {10.0, 60.0, 150.0}) {
    for (double shape : {1.0, 3.0, 10.0}) {
      const DetectionFunction g(DetectionFunction::Key::kHazardRate, sigma, shape);
      EXPECT_NEAR(g.AverageDetectability(200), FineIntegral(g, 200) / 200, 1e-10) << sigma << " " << shape;
    }
  }
}

TEST(DetectionFunction, AverageIsBetweenTheEndsOfTheCurve) {
  const DetectionFunction g(DetectionFunction::Key::kHazardRate, 60, 3);
  const double average = g.AverageDetectability(200);
  EXPECT_LT(average, 1.0);
  EXPECT_GT(average, g.At(200));
}

TEST(DetectionFunction, KnowsItsKeysWhateverTheCase) {
  DetectionFunction::Key key = DetectionFunction::Key::kHalfNormal;
  EXPECT_TRUE(DetectionFunction::KeyOf("hazard rate", key));
  EXPECT_EQ(key, DetectionFunction::Key::kHazardRate);
  EXPECT_TRUE(DetectionFunction::KeyOf("Half-Normal", key));
  EXPECT_EQ(key, DetectionFunction::Key::kHalfNormal);
  EXPECT_FALSE(DetectionFunction::KeyOf("Uniform", key));
}

}  // namespace
}  // namespace zrsimprp
