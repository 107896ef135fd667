#include "zrsimprp/map/ScaleTicks.h"

#include <cmath>

namespace zrsimprp {

std::vector<double> ScaleTicks::Between(double low, double high, int count) {
  const double span = high - low;
  if (!(span > 0) || !std::isfinite(span) || count < 1) return {low};
  const double rough = span / count;
  const double power = std::pow(10.0, std::floor(std::log10(rough)));
  double step = 10 * power;
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= rough) {
      step = factor * power;
      break;
    }
  }
  std::vector<double> ticks;
  for (double index = std::ceil(low / step); index * step <= high + step * 1e-9; ++index) {
    ticks.push_back(std::fabs(index) < 1e-9 ? 0.0 : index * step);
  }
  return ticks;
}

}  // namespace zrsimprp
