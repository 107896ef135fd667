#include "projectdb/gdal/GdalPolygonOverlay.h"

#include <cpl_error.h>
#include <ogr_geometry.h>

#include <memory>

#include "projectdb/ProjectChecks.h"
#include "projectdb/gdal/OgrPolygons.h"

namespace zrsimprp {

namespace {

// The polygons as one valid geometry: overlapping or self-touching input is repaired first, since the
// overlay refuses invalid shapes.
std::unique_ptr<OGRGeometry> Dissolved(const std::vector<PolygonRings>& polygons) {
  std::unique_ptr<OGRMultiPolygon> multi = OgrPolygons::To(polygons);
  if (multi->IsEmpty()) return multi;
  CPLErrorReset();
  CPLPushErrorHandler(CPLQuietErrorHandler);
  std::unique_ptr<OGRGeometry> merged(multi->UnionCascaded());
  if (!merged) merged.reset(multi->Buffer(0));
  CPLPopErrorHandler();
  if (!merged) {
    ProjectChecks::Refuse(std::string("The polygons could not be merged (") + CPLGetLastErrorMsg() + ").");
  }
  return merged;
}

double Area(const OGRGeometry& geometry) {
  const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
  if (type == wkbPolygon) return static_cast<const OGRPolygon&>(geometry).get_Area();
  if (type == wkbMultiPolygon) return static_cast<const OGRMultiPolygon&>(geometry).get_Area();
  if (type == wkbGeometryCollection) return static_cast<const OGRGeometryCollection&>(geometry).get_Area();
  return 0.0;
}

}  // namespace

std::vector<PolygonRings> GdalPolygonOverlay::Union(const std::vector<PolygonFeature>& features) {
  std::vector<PolygonRings> all;
  for (const PolygonFeature& feature : features)
    all.insert(all.end(), feature.polygons.begin(), feature.polygons.end());
  return OgrPolygons::From(*Dissolved(all));
}

double GdalPolygonOverlay::ShareInside(const std::vector<PolygonRings>& inner,
                                       const std::vector<PolygonRings>& outer) {
  std::unique_ptr<OGRGeometry> inside = Dissolved(inner);
  const double area = Area(*inside);
  if (!(area > 0.0)) return 1.0;
  std::unique_ptr<OGRGeometry> container = Dissolved(outer);
  CPLPushErrorHandler(CPLQuietErrorHandler);
  std::unique_ptr<OGRGeometry> common(inside->Intersection(container.get()));
  CPLPopErrorHandler();
  return common ? Area(*common) / area : 0.0;
}

}  // namespace zrsimprp
