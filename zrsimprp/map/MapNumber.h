#pragma once

#include <string>

namespace zrsimprp {

// Numbers as the map shows them: short, C locale, no trailing zeros.
class MapNumber {
 public:
  // Up to `significant` significant digits ("1.25", "0.001", "1.5e+07").
  static std::string Text(double value, int significant = 4);
  // A coordinate: whole map units for large values, more decimals for small ones (degrees).
  static std::string Coordinate(double value);
};

}  // namespace zrsimprp
