#pragma once

#include <memory>
#include <vector>

#include "projectdb/PolygonFeature.h"

class OGRGeometry;
class OGRMultiPolygon;

namespace zrsimprp {

// Polygons between the project's rings and GDAL's geometries, for the import and the overlay.
class OgrPolygons {
 public:
  // The polygons of a polygonal geometry, flat (Z and M dropped) and linear (curves made into
  // segments); empty parts are left out.
  static std::vector<PolygonRings> From(const OGRGeometry& geometry);
  // The polygons as one multipolygon, every ring closed.
  static std::unique_ptr<OGRMultiPolygon> To(const std::vector<PolygonRings>& polygons);
};

}  // namespace zrsimprp
