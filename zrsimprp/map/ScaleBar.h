#pragma once

#include <string>

namespace zrsimprp {

// A scale bar of a round length (1, 2 or 5 times a power of ten) in map units.
struct ScaleBar {
  // What the layer's coordinates measure, as far as its coordinate system tells.
  enum class Units { kUnknown, kMetres, kDegrees };

  double length = 0;  // map units; 0 when no bar fits
  std::string label;  // e.g. "500 m", "20 km", "0.2°", "500 map units" when the unit is unknown

  // The longest round length no wider than `max_pixels` at `units_per_pixel`.
  static ScaleBar Choose(double units_per_pixel, double max_pixels, Units units);
  static ScaleBar Choose(double units_per_pixel, double max_pixels, bool degrees) {
    return Choose(units_per_pixel, max_pixels, degrees ? Units::kDegrees : Units::kUnknown);
  }
};

}  // namespace zrsimprp
