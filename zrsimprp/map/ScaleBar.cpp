#include "zrsimprp/map/ScaleBar.h"

#include <cmath>

#include "zrsimprp/map/MapNumber.h"

namespace zrsimprp {

ScaleBar ScaleBar::Choose(double units_per_pixel, double max_pixels, bool degrees) {
  ScaleBar bar;
  const double longest = units_per_pixel * max_pixels;
  if (!(longest > 0) || !std::isfinite(longest)) return bar;
  const double power = std::pow(10.0, std::floor(std::log10(longest)));
  for (const double step : {5.0, 2.0, 1.0}) {
    if (step * power <= longest) {
      bar.length = step * power;
      break;
    }
  }
  bar.label = MapNumber::Text(bar.length) + (degrees ? "°" : " map units");
  return bar;
}

}  // namespace zrsimprp
