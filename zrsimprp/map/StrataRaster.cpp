#include "zrsimprp/map/StrataRaster.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zrsimprp {

namespace {

// A row-centre crossing of one edge: the row and the x where the edge meets the row's centre line.
struct Crossing {
  int32_t row;
  double x;
  bool operator<(const Crossing& other) const { return row != other.row ? row < other.row : x < other.x; }
};

// Calls `edge(a, b)` for every edge of the ring, closing it when its last point is not its first.
template <class EdgeFn>
void ForEachEdge(const std::vector<MapPoint>& ring, EdgeFn&& edge) {
  const size_t n = ring.size();
  if (n < 2) return;
  for (size_t i = 0; i + 1 < n; ++i) edge(ring[i], ring[i + 1]);
  if (ring.front().x != ring.back().x || ring.front().y != ring.back().y) edge(ring.back(), ring.front());
}

// The first index i with origin + (i + 0.5) * spacing >= value.
int64_t FirstCentreAtOrAbove(double value, double origin, double spacing) {
  return static_cast<int64_t>(std::ceil((value - origin) / spacing - 0.5));
}

}  // namespace

StrataRaster::StrataRaster(double origin_x, double origin_y, double spacing, int32_t columns, int32_t rows)
    : origin_x_(origin_x),
      origin_y_(origin_y),
      spacing_(spacing),
      columns_(columns),
      rows_(rows),
      owners_(static_cast<size_t>(columns) * static_cast<size_t>(rows), kOutside) {}

double StrataRaster::CellCount(const MapExtent& extent, double spacing) {
  if (extent.empty || !(spacing > 0)) return 0;
  const double columns = std::max(1.0, std::ceil(extent.Width() / spacing));
  const double rows = std::max(1.0, std::ceil(extent.Height() / spacing));
  return columns * rows;
}

std::shared_ptr<const StrataRaster> StrataRaster::Make(const LayerShapes& shapes, const MapExtent& extent,
                                                       double spacing) {
  const auto columns = static_cast<int32_t>(std::max(1.0, std::ceil(extent.Width() / spacing)));
  const auto rows = static_cast<int32_t>(std::max(1.0, std::ceil(extent.Height() / spacing)));
  std::shared_ptr<StrataRaster> raster(new StrataRaster(extent.min_x, extent.min_y, spacing, columns, rows));
  for (size_t i = 0; i < shapes.strata.size(); ++i) {
    raster->FillStratum(shapes.strata[i], static_cast<int32_t>(i));
  }
  return raster;
}

void StrataRaster::FillStratum(const StratumGeometry& stratum, int32_t owner) {
  std::vector<Crossing> crossings;
  const auto add_edge = [&](const MapPoint& a, const MapPoint& b) {
    if (a.y == b.y) return;
    const MapPoint& low = a.y < b.y ? a : b;
    const MapPoint& high = a.y < b.y ? b : a;
    // Half-open in y, so a vertex shared by two edges is counted once.
    const int64_t first = std::max<int64_t>(0, FirstCentreAtOrAbove(low.y, origin_y_, spacing_));
    const int64_t end = std::min<int64_t>(rows_, FirstCentreAtOrAbove(high.y, origin_y_, spacing_));
    const double slope = (high.x - low.x) / (high.y - low.y);
    for (int64_t row = first; row < end; ++row) {
      const double y = CentreY(static_cast<int32_t>(row));
      crossings.push_back({static_cast<int32_t>(row), low.x + (y - low.y) * slope});
    }
  };
  for (const MapPolygon& polygon : stratum.polygons) {
    for (const auto& ring : polygon.rings) ForEachEdge(ring, add_edge);
  }
  std::sort(crossings.begin(), crossings.end());
  for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
    const Crossing& enter = crossings[i];
    const Crossing& leave = crossings[i + 1];
    if (enter.row != leave.row) {  // an odd count on a row: a ring that does not close; skip one
      --i;
      continue;
    }
    const int64_t first = std::max<int64_t>(0, FirstCentreAtOrAbove(enter.x, origin_x_, spacing_));
    const int64_t end = std::min<int64_t>(columns_, FirstCentreAtOrAbove(leave.x, origin_x_, spacing_));
    if (first >= end) continue;
    const size_t base = Index(0, enter.row);
    std::fill(owners_.begin() + static_cast<std::ptrdiff_t>(base + static_cast<size_t>(first)),
              owners_.begin() + static_cast<std::ptrdiff_t>(base + static_cast<size_t>(end)), owner);
  }
}

bool StrataRaster::CellAt(double x, double y, int32_t& col, int32_t& row) const {
  const double fx = std::floor((x - origin_x_) / spacing_);
  const double fy = std::floor((y - origin_y_) / spacing_);
  if (!(fx >= 0 && fx < columns_ && fy >= 0 && fy < rows_)) return false;
  col = static_cast<int32_t>(fx);
  row = static_cast<int32_t>(fy);
  return true;
}

int32_t StratumAt(const LayerShapes& shapes, double x, double y) {
  for (size_t i = 0; i < shapes.strata.size(); ++i) {
    bool inside = false;
    for (const MapPolygon& polygon : shapes.strata[i].polygons) {
      for (const auto& ring : polygon.rings) {
        ForEachEdge(ring, [&](const MapPoint& a, const MapPoint& b) {
          if ((a.y > y) != (b.y > y) && x < a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y)) inside = !inside;
        });
      }
    }
    if (inside) return static_cast<int32_t>(i);
  }
  return -1;
}

}  // namespace zrsimprp
