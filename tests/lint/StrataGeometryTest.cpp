#include <gtest/gtest.h>

#include <vector>

#include "zrsimprp/lint/StrataGeometry.h"

namespace zrsimprp {
namespace {

std::vector<MapPoint> Square(double x, double y, double side) {
  return {{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}};
}

StratumGeometry Stratum(std::vector<MapPolygon> polygons) {
  StratumGeometry stratum;
  stratum.polygons = std::move(polygons);
  return stratum;
}

// A 30 by 10 region: stratum 0 is the square (0,0)-(10,10) with a hole (4,4)-(6,6), stratum 1 the
// square (10,0)-(20,10), stratum 2 two small squares at (21,1) and (28,8).
StrataGeometry Region() {
  LayerShapes shapes;
  MapPolygon holed;
  holed.rings = {Square(0, 0, 10), Square(4, 4, 2)};
  shapes.strata.push_back(Stratum({holed}));
  shapes.strata.push_back(Stratum({MapPolygon{{Square(10, 0, 10)}}}));
  shapes.strata.push_back(Stratum({MapPolygon{{Square(21, 1, 1)}}, MapPolygon{{Square(28, 8, 1)}}}));
  return StrataGeometry(shapes);
}

TEST(StrataGeometry, TheExtentCoversEveryStratum) {
  const StrataGeometry region = Region();
  EXPECT_EQ(region.Extent().min_x, 0);
  EXPECT_EQ(region.Extent().max_x, 29);
  EXPECT_EQ(region.Extent().max_y, 10);
  EXPECT_EQ(region.StratumCount(), 3u);
}

TEST(StrataGeometry, HolesAreOutsideAndPartsInside) {
  const StrataGeometry region = Region();
  EXPECT_TRUE(region.InsideAStratum(1, 1));
  EXPECT_FALSE(region.InsideAStratum(5, 5));
  EXPECT_TRUE(region.InsideAStratum(28.5, 8.5));
  EXPECT_FALSE(region.InsideAStratum(25, 5));
}

TEST(StrataGeometry, DistanceToTheNearestEdge) {
  const StrataGeometry region = Region();
  EXPECT_DOUBLE_EQ(region.DistanceToRegion(0, -3), 3);
  EXPECT_DOUBLE_EQ(region.DistanceToRegion(5, 5), 1);  // inside the hole
  EXPECT_DOUBLE_EQ(region.DistanceToRegion(-3, 14), 5);
}

TEST(StrataGeometry, StrataWithoutACellCentre) {
  const StrataGeometry region = Region();
  // Spacing 1: centres at half units; the small squares hold (21.5, 1.5) and (28.5, 8.5).
  EXPECT_TRUE(region.StrataWithoutCellCentre(1).empty());
  // Spacing 10: centres at (5, 5), (15, 5) and (25, 5); the first falls in the hole.
  EXPECT_EQ(region.StrataWithoutCellCentre(10), (std::vector<std::size_t>{0, 2}));
  EXPECT_DOUBLE_EQ(region.CellCount(10), 3);
}

TEST(StrataGeometry, NoSpacingOrAnEmptyLayerMissesNothing) {
  EXPECT_TRUE(Region().StrataWithoutCellCentre(0).empty());
  EXPECT_TRUE(StrataGeometry(LayerShapes()).StrataWithoutCellCentre(10).empty());
}

}  // namespace
}  // namespace zrsimprp
