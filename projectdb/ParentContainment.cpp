#include "projectdb/ParentContainment.h"

#include <cmath>
#include <optional>
#include <vector>

#include "projectdb/GeoPackageLayerGeometry.h"
#include "projectdb/PolygonOverlay.h"
#include "projectdb/ProjectChecks.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

namespace {

std::vector<PolygonRings> Polygons(const LayerShapes& shapes) {
  std::vector<PolygonRings> polygons;
  for (const StratumGeometry& stratum : shapes.strata) {
    for (const MapPolygon& polygon : stratum.polygons) {
      PolygonRings rings;
      for (const auto& ring : polygon.rings) {
        PolygonRing points;
        for (const MapPoint& point : ring) points.push_back({point.x, point.y});
        rings.push_back(std::move(points));
      }
      polygons.push_back(std::move(rings));
    }
  }
  return polygons;
}

std::string Named(const std::string& layer, const LayerShapes& shapes) {
  return "'" + layer + "' (" +
         (shapes.reference.name.empty() ? "no coordinate system" : shapes.reference.name) + ")";
}

}  // namespace

void ParentContainment::Check(SqliteConnection& connection, const std::string& layer,
                              const std::string& parent) {
  const std::optional<LayerShapes> child = GeoPackageLayerGeometry::Read(connection, layer);
  const std::optional<LayerShapes> container = GeoPackageLayerGeometry::Read(connection, parent);
  if (!child || !container) return;  // the placement check has already named a missing layer
  if (!TextEquals(child->reference.name, container->reference.name)) {
    ProjectChecks::Refuse("The layer " + Named(layer, *child) +
                          " is not in the coordinate system of its parent " + Named(parent, *container) +
                          "; import it with --to-crs set to the parent's system, or choose another parent.");
  }
  const double share = PolygonOverlay::ShareInside(Polygons(*child), Polygons(*container));
  if (share < kRequiredShare) {
    ProjectChecks::Refuse("Only " + std::to_string(static_cast<int>(std::floor(share * 100))) +
                          " % of the layer " + Named(layer, *child) + " lies inside its parent " +
                          Named(parent, *container) + ", where at least 95 % of it must lie.");
  }
}

}  // namespace zrsimprp
