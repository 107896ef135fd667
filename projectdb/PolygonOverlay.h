#pragma once

#include <vector>

#include "projectdb/PolygonFeature.h"

namespace zrsimprp {

// Planar overlays of polygons (through GDAL's geometry engine, in the GDAL module): the dissolve that makes a
// study region out of its strata, and how much of one set of polygons lies inside another.
class PolygonOverlay {
 public:
  // The union of every polygon of `features`: shared edges disappear, holes no feature fills stay.
  static std::vector<PolygonRings> Union(const std::vector<PolygonFeature>& features);
  // The share (0 to 1) of the area of `inner` that lies within `outer`; 1 when `inner` has no area.
  static double ShareInside(const std::vector<PolygonRings>& inner, const std::vector<PolygonRings>& outer);
};

}  // namespace zrsimprp
