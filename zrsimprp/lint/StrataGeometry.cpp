#include "zrsimprp/lint/StrataGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "zrsimprp/map/StrataRaster.h"

namespace zrsimprp {

namespace {

bool Finite(const MapPoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

// Calls `edge(a, b)` for every edge of every ring of the stratum, closing rings that do not repeat
// their first point; edges with a coordinate that is not a finite number are left out.
template <class EdgeFn>
void ForEachEdge(const StratumGeometry& stratum, EdgeFn&& edge) {
  for (const MapPolygon& polygon : stratum.polygons) {
    for (const std::vector<MapPoint>& ring : polygon.rings) {
      const std::size_t n = ring.size();
      if (n < 2) continue;
      const auto visit = [&](const MapPoint& a, const MapPoint& b) {
        if (Finite(a) && Finite(b)) edge(a, b);
      };
      for (std::size_t i = 0; i + 1 < n; ++i) visit(ring[i], ring[i + 1]);
      if (ring.front().x != ring.back().x || ring.front().y != ring.back().y)
        visit(ring.back(), ring.front());
    }
  }
}

double SegmentDistance(const MapPoint& a, const MapPoint& b, double x, double y) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double length = dx * dx + dy * dy;
  double t = length > 0 ? ((x - a.x) * dx + (y - a.y) * dy) / length : 0;
  t = std::clamp(t, 0.0, 1.0);
  return std::hypot(a.x + t * dx - x, a.y + t * dy - y);
}

// The first grid index whose centre (origin + (i + 0.5) * spacing) is at or above `value`.
double FirstCentreAtOrAbove(double value, double origin, double spacing) {
  return std::ceil((value - origin) / spacing - 0.5);
}

// The last grid index whose centre is at or below `value`.
double LastCentreAtOrBelow(double value, double origin, double spacing) {
  return std::floor((value - origin) / spacing - 0.5);
}

}  // namespace

StrataGeometry::StrataGeometry(LayerShapes shapes) : shapes_(std::move(shapes)) {
  stratum_extents_.reserve(shapes_.strata.size());
  for (const StratumGeometry& stratum : shapes_.strata) {
    MapExtent extent;
    for (const MapPolygon& polygon : stratum.polygons) {
      for (const std::vector<MapPoint>& ring : polygon.rings) {
        for (const MapPoint& point : ring) {
          if (Finite(point)) extent.Include(point.x, point.y);
        }
      }
    }
    extent_.Include(extent);
    stratum_extents_.push_back(extent);
  }
}

bool StrataGeometry::InsideAStratum(double x, double y) const { return StratumAt(shapes_, x, y) >= 0; }

double StrataGeometry::DistanceToRegion(double x, double y) const {
  double nearest = std::numeric_limits<double>::infinity();
  for (const StratumGeometry& stratum : shapes_.strata) {
    ForEachEdge(stratum, [&](const MapPoint& a, const MapPoint& b) {
      nearest = std::min(nearest, SegmentDistance(a, b, x, y));
    });
  }
  return nearest;
}

double StrataGeometry::CellCount(double spacing) const { return StrataRaster::CellCount(extent_, spacing); }

std::vector<std::size_t> StrataGeometry::StrataWithoutCellCentre(double spacing) const {
  std::vector<std::size_t> without;
  if (extent_.empty || !(spacing > 0) || !std::isfinite(spacing)) return without;
  for (std::size_t i = 0; i < shapes_.strata.size(); ++i) {
    if (!HoldsCellCentre(i, spacing)) without.push_back(i);
  }
  return without;
}

bool StrataGeometry::HoldsCellCentre(std::size_t stratum, double spacing) const {
  const MapExtent& box = stratum_extents_[stratum];
  if (box.empty) return false;
  const double first_row = FirstCentreAtOrAbove(box.min_y, extent_.min_y, spacing);
  const double last_row = LastCentreAtOrBelow(box.max_y, extent_.min_y, spacing);
  const double first_column = FirstCentreAtOrAbove(box.min_x, extent_.min_x, spacing);
  const double last_column = LastCentreAtOrBelow(box.max_x, extent_.min_x, spacing);
  if (first_row > last_row || first_column > last_column) return false;
  // A stratum that spans this many rows times edges and still missed every centre would be a sliver
  // thinner than the spacing along its whole length; it is taken as holding one rather than letting
  // the check stall the editor's typing.
  std::size_t edges = 0;
  ForEachEdge(shapes_.strata[stratum], [&](const MapPoint&, const MapPoint&) { ++edges; });
  if ((last_row - first_row + 1) * static_cast<double>(edges) > kMaxRowEdgeWork) return true;
  // Row by row, between the crossings of the stratum's edges (even-odd), until a centre is inside:
  // a stratum that is wide against the spacing answers on its first row.
  std::vector<double> crossings;
  for (double row = first_row; row <= last_row; ++row) {
    const double y = extent_.min_y + (row + 0.5) * spacing;
    crossings.clear();
    ForEachEdge(shapes_.strata[stratum], [&](const MapPoint& a, const MapPoint& b) {
      if ((a.y > y) != (b.y > y)) crossings.push_back(a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y));
    });
    std::sort(crossings.begin(), crossings.end());
    for (std::size_t k = 0; k + 1 < crossings.size(); k += 2) {
      const double column = FirstCentreAtOrAbove(crossings[k], extent_.min_x, spacing);
      if (extent_.min_x + (column + 0.5) * spacing < crossings[k + 1]) return true;
    }
  }
  return false;
}

}  // namespace zrsimprp
