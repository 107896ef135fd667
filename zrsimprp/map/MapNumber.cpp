#include "zrsimprp/map/MapNumber.h"

#include <cmath>
#include <cstdio>

namespace zrsimprp {

std::string MapNumber::Text(double value, int significant) {
  if (value == 0) return "0";
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*g", significant, value);
  return buffer;
}

std::string MapNumber::Coordinate(double value) {
  const double magnitude = std::fabs(value);
  const int decimals = magnitude >= 1000 ? 0 : magnitude >= 10 ? 2 : 4;
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  return buffer;
}

}  // namespace zrsimprp
