#include "projectdb/gdal/OgrPolygons.h"

#include <ogr_geometry.h>

namespace zrsimprp {

namespace {

PolygonRing Ring(const OGRLinearRing& ring) {
  PolygonRing points;
  points.reserve(static_cast<std::size_t>(ring.getNumPoints()));
  for (int i = 0; i < ring.getNumPoints(); ++i) points.push_back({ring.getX(i), ring.getY(i)});
  return points;
}

}  // namespace

std::vector<PolygonRings> OgrPolygons::From(const OGRGeometry& geometry) {
  std::unique_ptr<OGRGeometry> linear(geometry.hasCurveGeometry() ? geometry.getLinearGeometry()
                                                                  : geometry.clone());
  linear->flattenTo2D();
  std::unique_ptr<OGRGeometry> multi(OGRGeometryFactory::forceToMultiPolygon(linear.release()));
  std::vector<PolygonRings> polygons;
  const auto* collection = dynamic_cast<const OGRMultiPolygon*>(multi.get());
  if (collection == nullptr) return polygons;
  for (const OGRPolygon* polygon : *collection) {
    if (polygon->IsEmpty()) continue;
    PolygonRings rings;
    for (const OGRLinearRing* ring : *polygon) rings.push_back(Ring(*ring));
    polygons.push_back(std::move(rings));
  }
  return polygons;
}

std::unique_ptr<OGRMultiPolygon> OgrPolygons::To(const std::vector<PolygonRings>& polygons) {
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

}  // namespace zrsimprp
