#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "zrsimprp/map/ColourStops.h"
#include "zrsimprp/map/ViridisScale.h"

namespace zrsimprp {
namespace {

double Distance(const ViridisScale::Rgb& a, const ViridisScale::Rgb& b) {
  const double dr = a.r - b.r;
  const double dg = a.g - b.g;
  const double db = a.b - b.b;
  return std::sqrt(dr * dr + dg * dg + db * db);
}

TEST(ColourStops, TypedDensitiesSpreadEvenlyOverTheScale) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const ColourStops stops = ColourStops::Of({3, 0.5f, nan, 1, 1, 0.5f, 3});
  EXPECT_TRUE(stops.Exact());
  EXPECT_EQ(stops.Values(), (std::vector<double>{0.5, 1, 3}));
  EXPECT_DOUBLE_EQ(stops.Position(0.5), 0);
  EXPECT_DOUBLE_EQ(stops.Position(1), 0.5);
  EXPECT_DOUBLE_EQ(stops.Position(3), 1);
  EXPECT_DOUBLE_EQ(stops.Position(2), 0.75);
  EXPECT_DOUBLE_EQ(stops.Position(-1), 0);
  EXPECT_DOUBLE_EQ(stops.Position(9), 1);
}

TEST(ColourStops, HalfAndOneDifferClearlyInColourWhateverTheLargestValue) {
  for (const float largest : {3.0f, 10.0f, 1000.0f}) {
    const ColourStops stops = ColourStops::Of({0, 0.5f, 1, largest});
    const double apart = Distance(ViridisScale::At(stops.Position(0.5)), ViridisScale::At(stops.Position(1)));
    EXPECT_GT(apart, 80) << "largest value " << largest;
  }
}

TEST(ColourStops, OneValueOrNoneSitsInTheMiddle) {
  EXPECT_DOUBLE_EQ(ColourStops::Of({2, 2}).Position(2), 0.5);
  EXPECT_DOUBLE_EQ(ColourStops::Of({}).Position(2), 0.5);
  EXPECT_TRUE(ColourStops::Of({}).Values().empty());
}

TEST(ColourStops, ManyValuesAreThinnedEvenlyByRankAndKeepTheirEnds) {
  std::vector<float> values;
  for (int i = 0; i <= 1000; ++i) values.push_back(static_cast<float>(i * i) / 1000.0f);
  const ColourStops stops = ColourStops::Of(values);
  EXPECT_FALSE(stops.Exact());
  ASSERT_EQ(stops.Values().size(), ColourStops::kMaxStops);
  EXPECT_DOUBLE_EQ(stops.Values().front(), 0);
  EXPECT_DOUBLE_EQ(stops.Values().back(), 1000);
  // Ranked evenly: the median value sits in the middle of the scale, not at a quarter.
  EXPECT_NEAR(stops.Position(250), 0.5, 0.01);
  double previous = -1;
  for (int i = 0; i <= 1000; i += 10) {
    const double position = stops.Position(values[i]);
    EXPECT_GE(position, previous);
    previous = position;
  }
}

TEST(ColourStops, AFewValuesOverAMillionCellsAreExact) {
  std::vector<float> values(1'000'000, 100.0f);
  for (size_t i = 500'000; i < 500'400; ++i) values[i] = 7.0f;
  values[999'999] = std::numeric_limits<float>::quiet_NaN();
  const ColourStops stops = ColourStops::Of(values);
  EXPECT_TRUE(stops.Exact());
  EXPECT_EQ(stops.Values(), (std::vector<double>{7, 100}));
}

TEST(ColourStops, AManyValuedLargeRasterIsRankedFromASampleAndKeepsItsTrueEnds) {
  std::vector<float> values;
  for (int i = 0; i < 1'000'000; ++i) values.push_back(static_cast<float>(i % 100'003) * 0.01f);
  // The extremes sit where no stride of the sample lands.
  values[12'345] = -5.0f;
  values[987'653] = 5000.0f;
  const ColourStops stops = ColourStops::Of(values);
  EXPECT_FALSE(stops.Exact());
  ASSERT_EQ(stops.Values().size(), ColourStops::kMaxStops);
  EXPECT_DOUBLE_EQ(stops.Values().front(), -5.0);
  EXPECT_DOUBLE_EQ(stops.Values().back(), 5000.0);
  EXPECT_TRUE(std::is_sorted(stops.Values().begin(), stops.Values().end()));
  // Evenly ranked: the middle of the values' range sits near the middle of the scale.
  EXPECT_NEAR(stops.Position(500.0), 0.5, 0.03);
}

}  // namespace
}  // namespace zrsimprp
