#pragma once

#include <cstdint>

namespace zrsimprp {

// The viridis colour map: perceptually uniform, readable in grey and by most colour-blind readers.
class ViridisScale {
 public:
  struct Rgb {
    uint8_t r;
    uint8_t g;
    uint8_t b;
  };
  // t from 0 (dark violet, lowest) to 1 (yellow, highest); clamped.
  static Rgb At(double t);
};

}  // namespace zrsimprp
