#pragma once

#include <cstdint>
#include <string>

#include "projectdb/PolygonFeature.h"

namespace zrsimprp {

// GeoPackage geometry blobs: the standard header ("GP", version 0, flags, srs id, envelope) followed by
// little-endian WKB.
class GeoPackageGeometry {
 public:
  struct Envelope {
    double min_x = 0;
    double max_x = 0;
    double min_y = 0;
    double max_y = 0;
    bool empty = true;
    void Include(double x, double y);
    void Include(const Envelope& other);
  };

  // A Polygon when the feature has one polygon and `as_multi` is false, a MultiPolygon otherwise. Rings
  // are closed. `envelope` receives the feature's extent.
  static std::string EncodePolygons(const PolygonFeature& feature, int32_t srs_id, bool as_multi,
                                    Envelope& envelope);

  // The WKB geometry type code without dimension flags (3 polygon, 6 multipolygon, ...), or -1 when the
  // bytes are not a GeoPackage geometry blob. An empty geometry gives its declared type too.
  static int32_t BaseType(const std::string& blob);
};

}  // namespace zrsimprp
