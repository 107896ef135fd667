#include "zrsimprp/map/ScaleBar.h"

#include <cmath>
#include <string>

#include "zrsimprp/map/MapNumber.h"

namespace zrsimprp {
namespace {

// A round length as a person writes it: "100000", never "1e+05".
std::string LengthText(double length) {
  if (length >= 1 && length < 1e15) return std::to_string(std::llround(length));
  return MapNumber::Text(length);
}

}  // namespace

ScaleBar ScaleBar::Choose(double units_per_pixel, double max_pixels, Units units) {
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
  switch (units) {
    case Units::kDegrees:
      bar.label = LengthText(bar.length) + "°";
      break;
    case Units::kMetres:
      bar.label = bar.length >= 1000 ? LengthText(bar.length / 1000) + " km" : LengthText(bar.length) + " m";
      break;
    case Units::kUnknown:
      bar.label = LengthText(bar.length) + " map units";
      break;
  }
  return bar;
}

}  // namespace zrsimprp
