#pragma once

#include <string>
#include <vector>

#include "zrsimprp/host/LayerGeometrySource.h"

namespace zrsimprp {

// Reads the polygons out of a GeoPackage geometry blob: the "GP" header in either byte order, with or
// without an envelope of any kind (xy, xyz, xym, xyzm), then WKB Polygon, MultiPolygon, CurvePolygon or
// MultiSurface whose rings are straight, in 2D or with Z and/or M (ISO or extended codes); Z and M are
// dropped. Every count is checked against the bytes left, so a damaged blob is refused, never overrun.
class GeoPackageGeometryReader {
 public:
  // True with the polygons appended (none for an empty geometry); false with `problem` saying why.
  static bool Read(const std::string& blob, std::vector<MapPolygon>& polygons, std::string& problem);
};

}  // namespace zrsimprp
