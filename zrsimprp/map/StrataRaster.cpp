#include "zrsimprp/map/StrataRaster.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zrsimprp {

namespace {

bool Finite(const MapPoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

// Calls `edge(a, b)` for every edge of the ring, closing it when its last point is not its first.
// Edges with a coordinate that is not a finite number are left out (the layer loader refuses such
// layers; this keeps the grid safe for any caller).
template <class EdgeFn>
void ForEachEdge(const std::vector<MapPoint>& ring, EdgeFn&& edge) {
  const size_t n = ring.size();
  if (n < 2) return;
  const auto visit = [&](const MapPoint& a, const MapPoint& b) {
    if (Finite(a) && Finite(b)) edge(a, b);
  };
  for (size_t i = 0; i + 1 < n; ++i) visit(ring[i], ring[i + 1]);
  if (ring.front().x != ring.back().x || ring.front().y != ring.back().y) visit(ring.back(), ring.front());
}

// The first index i with origin + (i + 0.5) * spacing >= value.
int64_t FirstCentreAtOrAbove(double value, double origin, double spacing) {
  // Clamped before the conversion: callers clamp to the grid, whose sides are far below this.
  const double index = std::ceil((value - origin) / spacing - 0.5);
  return std::isnan(index) ? -1 : static_cast<int64_t>(std::clamp(index, -1.0, 4.0e9));
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

double StrataRaster::CrossingCount(const LayerShapes& shapes, const MapExtent& extent, double spacing) {
  const double rows = std::max(1.0, std::ceil(extent.Height() / spacing));
  double count = 0;
  for (const StratumGeometry& stratum : shapes.strata) {
    for (const MapPolygon& polygon : stratum.polygons) {
      for (const auto& ring : polygon.rings) {
        ForEachEdge(ring, [&](const MapPoint& a, const MapPoint& b) {
          const double low =
              std::clamp(std::ceil((std::min(a.y, b.y) - extent.min_y) / spacing - 0.5), 0.0, rows);
          const double high =
              std::clamp(std::ceil((std::max(a.y, b.y) - extent.min_y) / spacing - 0.5), 0.0, rows);
          count += high - low;
        });
      }
    }
  }
  return count;
}

void StrataRaster::FillStratum(const StratumGeometry& stratum, int32_t owner) {
  // The rows each edge crosses (half-open in y, so a vertex shared by two edges counts once).
  const auto row_span = [&](const MapPoint& a, const MapPoint& b, int64_t& first, int64_t& end) {
    first = std::clamp<int64_t>(FirstCentreAtOrAbove(std::min(a.y, b.y), origin_y_, spacing_), 0, rows_);
    end = std::clamp<int64_t>(FirstCentreAtOrAbove(std::max(a.y, b.y), origin_y_, spacing_), 0, rows_);
  };
  int64_t low_row = rows_;
  int64_t high_row = 0;
  const auto each_edge = [&](auto&& edge) {
    for (const MapPolygon& polygon : stratum.polygons) {
      for (const auto& ring : polygon.rings) ForEachEdge(ring, edge);
    }
  };
  each_edge([&](const MapPoint& a, const MapPoint& b) {
    int64_t first = 0;
    int64_t end = 0;
    row_span(a, b, first, end);
    if (a.y == b.y || first >= end) return;
    low_row = std::min(low_row, first);
    high_row = std::max(high_row, end);
  });
  if (low_row >= high_row) return;

  // Crossings bucketed by row (a counting sort), so only each row's few crossings are sorted.
  std::vector<size_t> starts(static_cast<size_t>(high_row - low_row) + 1, 0);
  each_edge([&](const MapPoint& a, const MapPoint& b) {
    int64_t first = 0;
    int64_t end = 0;
    row_span(a, b, first, end);
    if (a.y == b.y || first >= end) return;
    starts[static_cast<size_t>(first - low_row)] += 1;
    starts[static_cast<size_t>(end - low_row)] -= 1;  // wraps, and unwraps in the running sum below
  });
  size_t running = 0;
  size_t total = 0;
  for (size_t& start : starts) {
    running += start;  // crossings on this row
    start = total;
    total += running;
  }
  std::vector<double> xs(total);
  std::vector<size_t> next(starts.begin(), starts.end());
  each_edge([&](const MapPoint& a, const MapPoint& b) {
    int64_t first = 0;
    int64_t end = 0;
    row_span(a, b, first, end);
    if (a.y == b.y || first >= end) return;
    const MapPoint& low = a.y < b.y ? a : b;
    const MapPoint& high = a.y < b.y ? b : a;
    const double slope = (high.x - low.x) / (high.y - low.y);
    for (int64_t row = first; row < end; ++row) {
      xs[next[static_cast<size_t>(row - low_row)]++] =
          low.x + (CentreY(static_cast<int32_t>(row)) - low.y) * slope;
    }
  });

  for (int64_t row = low_row; row < high_row; ++row) {
    const auto begin = xs.begin() + static_cast<std::ptrdiff_t>(starts[static_cast<size_t>(row - low_row)]);
    const auto finish =
        xs.begin() + static_cast<std::ptrdiff_t>(starts[static_cast<size_t>(row - low_row) + 1]);
    std::sort(begin, finish);
    const size_t base = Index(0, static_cast<int32_t>(row));
    for (auto it = begin; it + 1 < finish; it += 2) {
      const double enter = std::clamp(std::ceil((*it - origin_x_) / spacing_ - 0.5), 0.0, double(columns_));
      const double leave =
          std::clamp(std::ceil((*(it + 1) - origin_x_) / spacing_ - 0.5), 0.0, double(columns_));
      if (enter >= leave) continue;
      std::fill(owners_.begin() + static_cast<std::ptrdiff_t>(base + static_cast<size_t>(enter)),
                owners_.begin() + static_cast<std::ptrdiff_t>(base + static_cast<size_t>(leave)), owner);
    }
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
