#pragma once

#include <vector>

#include "projectdb/PolygonFeature.h"

namespace zrsimprp {

// PolygonOverlay's work, through GDAL's geometry engine (in the GDAL module).
class GdalPolygonOverlay {
 public:
  static std::vector<PolygonRings> Union(const std::vector<PolygonFeature>& features);
  static double ShareInside(const std::vector<PolygonRings>& inner, const std::vector<PolygonRings>& outer);
};

}  // namespace zrsimprp
