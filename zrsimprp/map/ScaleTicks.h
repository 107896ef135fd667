#pragma once

#include <vector>

namespace zrsimprp {

// Round values (steps of 1, 2 or 5 times a power of ten) to mark along the colour scale.
class ScaleTicks {
 public:
  // About `count` ticks within [low, high], in increasing order; one tick at `low` when the range is
  // empty or not finite.
  static std::vector<double> Between(double low, double high, int count);
};

}  // namespace zrsimprp
