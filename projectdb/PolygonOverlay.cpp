#include "projectdb/PolygonOverlay.h"

#include <cpl_error.h>
#include <ogr_geometry.h>

#include <memory>

#include "projectdb/ProjectChecks.h"

namespace zrsimprp {

namespace {

std::unique_ptr<OGRMultiPolygon> ToOgr(const std::vector<PolygonRings>& polygons) {
  auto multi = std::make_unique<OGRMultiPolygon>();
  for (const PolygonRings& rings : polygons) {
    auto polygon = std::make_unique<OGRPolygon>();
    for (const PolygonRing& points : rings) {
      auto ring = std::make_unique<OGRLinearRing>();
      for (const PlanarPoint& point : points) ring->addPoint(point.x, point.y);
      ring->closeRings();
      polygon->addRingDirectly(ring.release());
    }
    multi->addGeometryDirectly(polygon.release());
  }
  return multi;
}

std::vector<PolygonRings> FromOgr(const OGRGeometry& geometry) {
  std::unique_ptr<OGRGeometry> multi(OGRGeometryFactory::forceToMultiPolygon(geometry.clone()));
  std::vector<PolygonRings> polygons;
  const auto* collection = dynamic_cast<const OGRMultiPolygon*>(multi.get());
  if (collection == nullptr) return polygons;
  for (const OGRPolygon* polygon : *collection) {
    if (polygon->IsEmpty()) continue;
    PolygonRings rings;
    for (const OGRLinearRing* ring : *polygon) {
      PolygonRing points;
      for (int i = 0; i < ring->getNumPoints(); ++i) points.push_back({ring->getX(i), ring->getY(i)});
      rings.push_back(std::move(points));
    }
    polygons.push_back(std::move(rings));
  }
  return polygons;
}

// The polygons as one valid geometry: overlapping or self-touching input is repaired first, since the
// overlay refuses invalid shapes.
std::unique_ptr<OGRGeometry> Dissolved(const std::vector<PolygonRings>& polygons) {
  std::unique_ptr<OGRMultiPolygon> multi = ToOgr(polygons);
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

std::vector<PolygonRings> PolygonOverlay::Union(const std::vector<PolygonFeature>& features) {
  std::vector<PolygonRings> all;
  for (const PolygonFeature& feature : features)
    all.insert(all.end(), feature.polygons.begin(), feature.polygons.end());
  return FromOgr(*Dissolved(all));
}

double PolygonOverlay::ShareInside(const std::vector<PolygonRings>& inner,
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
