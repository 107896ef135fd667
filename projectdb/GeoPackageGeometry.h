#pragma once

#include <cstdint>
#include <string>

#include "projectdb/PolygonFeature.h"
#include "zrsimprp/map/MapExtent.h"

namespace zrsimprp {

// GeoPackage geometry blobs: the standard header ("GP", version 0, flags, srs id, envelope) followed by
// little-endian WKB.
class GeoPackageGeometry {
 public:
  // The extent written into a geometry's header: the same rectangle the map grows from points.
  using Envelope = MapExtent;

  // A Polygon when the feature has one polygon and `as_multi` is false, a MultiPolygon otherwise. Rings
  // are closed. `envelope` receives the feature's extent.
  static std::string EncodePolygons(const PolygonFeature& feature, int32_t srs_id, bool as_multi,
                                    Envelope& envelope);

  // The WKB geometry type code without dimension flags (3 polygon, 6 multipolygon, ...), or -1 when the
  // bytes are not a GeoPackage geometry blob. An empty geometry gives its declared type too.
  static int32_t BaseType(const std::string& blob);
};

}  // namespace zrsimprp
