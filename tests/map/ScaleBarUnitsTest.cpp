#include <gtest/gtest.h>

#include "zrsimprp/map/ScaleBar.h"

namespace zrsimprp {
namespace {

TEST(ScaleBarUnits, MetresReadAsMetresOrKilometres) {
  EXPECT_EQ(ScaleBar::Choose(1000, 150, ScaleBar::Units::kMetres).label, "100 km");
  EXPECT_DOUBLE_EQ(ScaleBar::Choose(1000, 150, ScaleBar::Units::kMetres).length, 100000);
  EXPECT_EQ(ScaleBar::Choose(10, 120, ScaleBar::Units::kMetres).label, "1 km");
  EXPECT_EQ(ScaleBar::Choose(2, 130, ScaleBar::Units::kMetres).label, "200 m");
  EXPECT_EQ(ScaleBar::Choose(30, 100, ScaleBar::Units::kMetres).label, "2 km");
}

TEST(ScaleBarUnits, DegreesAndUnknownUnitsKeepTheirLabels) {
  EXPECT_EQ(ScaleBar::Choose(0.001, 120, ScaleBar::Units::kDegrees).label, "0.1°");
  EXPECT_EQ(ScaleBar::Choose(1000, 150, ScaleBar::Units::kUnknown).label, "100000 map units");
  EXPECT_EQ(ScaleBar::Choose(1000, 150, false).label,
            ScaleBar::Choose(1000, 150, ScaleBar::Units::kUnknown).label);
}

}  // namespace
}  // namespace zrsimprp
