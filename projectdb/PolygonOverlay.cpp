#include "projectdb/PolygonOverlay.h"

#include "projectdb/GeoBackend.h"

namespace zrsimprp {

std::vector<PolygonRings> PolygonOverlay::Union(const std::vector<PolygonFeature>& features) {
  return GeoBackend::Loaded().Union(features);
}

double PolygonOverlay::ShareInside(const std::vector<PolygonRings>& inner,
                                   const std::vector<PolygonRings>& outer) {
  return GeoBackend::Loaded().ShareInside(inner, outer);
}

}  // namespace zrsimprp
