#pragma once

#include <string>

namespace zrsimprp {

// A scale bar of a round length (1, 2 or 5 times a power of ten) in map units.
struct ScaleBar {
  double length = 0;  // map units; 0 when no bar fits
  std::string label;  // e.g. "500 map units", "0.2°"

  // The longest round length no wider than `max_pixels` at `units_per_pixel`.
  static ScaleBar Choose(double units_per_pixel, double max_pixels, bool degrees);
};

}  // namespace zrsimprp
