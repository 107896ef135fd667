#pragma once

#include <algorithm>

namespace zrsimprp {

// An axis-aligned rectangle in map coordinates; empty until a point is included.
struct MapExtent {
  double min_x = 0;
  double min_y = 0;
  double max_x = 0;
  double max_y = 0;
  bool empty = true;

  void Include(double x, double y) {
    if (empty) {
      min_x = max_x = x;
      min_y = max_y = y;
      empty = false;
      return;
    }
    min_x = std::min(min_x, x);
    max_x = std::max(max_x, x);
    min_y = std::min(min_y, y);
    max_y = std::max(max_y, y);
  }
  void Include(const MapExtent& other) {
    if (other.empty) return;
    Include(other.min_x, other.min_y);
    Include(other.max_x, other.max_y);
  }
  bool Contains(double x, double y) const {
    return !empty && x >= min_x && x <= max_x && y >= min_y && y <= max_y;
  }
  double Width() const { return max_x - min_x; }
  double Height() const { return max_y - min_y; }
};

}  // namespace zrsimprp
