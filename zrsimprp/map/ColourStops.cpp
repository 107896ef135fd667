#include "zrsimprp/map/ColourStops.h"

#include <algorithm>
#include <cmath>

namespace zrsimprp {

ColourStops ColourStops::Of(const std::vector<float>& values) {
  std::vector<double> distinct;
  distinct.reserve(values.size());
  for (const float value : values) {
    if (std::isfinite(value)) distinct.push_back(value);
  }
  std::sort(distinct.begin(), distinct.end());
  distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
  ColourStops stops;
  if (distinct.size() <= kMaxStops) {
    stops.stops_ = std::move(distinct);
    return stops;
  }
  stops.exact_ = false;
  const double last = static_cast<double>(distinct.size() - 1);
  for (size_t k = 0; k < kMaxStops; ++k) {
    const auto rank = static_cast<size_t>(std::lround(last * static_cast<double>(k) / (kMaxStops - 1)));
    stops.stops_.push_back(distinct[rank]);
  }
  return stops;
}

double ColourStops::Position(double value) const {
  if (stops_.size() < 2) return 0.5;
  if (!(value > stops_.front())) return 0;  // NaN too
  if (value >= stops_.back()) return 1;
  const size_t upper =
      static_cast<size_t>(std::upper_bound(stops_.begin(), stops_.end(), value) - stops_.begin());
  const size_t lower = upper - 1;
  const double within = (value - stops_[lower]) / (stops_[upper] - stops_[lower]);
  return (static_cast<double>(lower) + within) / static_cast<double>(stops_.size() - 1);
}

}  // namespace zrsimprp
