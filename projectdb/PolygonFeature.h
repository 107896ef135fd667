#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zrsimprp {

struct PlanarPoint {
  double x = 0;
  double y = 0;
};

// A closed ring of points; a ring whose last point differs from its first is closed when written.
using PolygonRing = std::vector<PlanarPoint>;
// The outer ring first, then its holes.
using PolygonRings = std::vector<PolygonRing>;

// One feature of a polygon layer as the builders write it: several polygons make a MultiPolygon.
struct PolygonFeature {
  int32_t id = 0;
  std::string label;
  std::vector<PolygonRings> polygons;
};

}  // namespace zrsimprp
