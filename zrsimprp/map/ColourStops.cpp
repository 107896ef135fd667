#include "zrsimprp/map/ColourStops.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace zrsimprp {

namespace {

// A raster of a million cells would otherwise be sorted at every edit: beyond this many cells the
// ranks are taken from an evenly strided sample of them, which a smooth surface fills as well.
constexpr size_t kMaxSample = size_t{1} << 14;

// The distinct finite values of `values`, increasing, when there are at most `limit` of them.
std::optional<std::vector<double>> FewDistinct(const std::vector<float>& values, size_t limit) {
  std::vector<double> distinct;
  float last = std::numeric_limits<float>::quiet_NaN();
  for (const float value : values) {
    // Neighbouring cells mostly share a stratum and so a value: those cost one comparison.
    if (value == last || !std::isfinite(value)) continue;
    last = value;
    const auto place = std::lower_bound(distinct.begin(), distinct.end(), static_cast<double>(value));
    if (place != distinct.end() && *place == value) continue;
    if (distinct.size() == limit) return std::nullopt;
    distinct.insert(place, value);
  }
  return distinct;
}

// The distinct finite values of an evenly strided sample of `values`, increasing, with the smallest
// and largest of all of them at the ends.
std::vector<double> SampledDistinct(const std::vector<float>& values) {
  const size_t stride = std::max<size_t>(1, (values.size() + kMaxSample - 1) / kMaxSample);
  std::vector<double> sample;
  sample.reserve(values.size() / stride + 2);
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -lowest;
  for (const float value : values) {
    if (!std::isfinite(value)) continue;
    lowest = std::min(lowest, static_cast<double>(value));
    highest = std::max(highest, static_cast<double>(value));
  }
  for (size_t i = 0; i < values.size(); i += stride) {
    if (std::isfinite(values[i])) sample.push_back(values[i]);
  }
  sample.push_back(lowest);
  sample.push_back(highest);
  std::sort(sample.begin(), sample.end());
  sample.erase(std::unique(sample.begin(), sample.end()), sample.end());
  return sample;
}

}  // namespace

ColourStops ColourStops::Of(const std::vector<float>& values) {
  ColourStops stops;
  if (auto few = FewDistinct(values, kMaxStops)) {
    stops.stops_ = std::move(*few);
    return stops;
  }
  const std::vector<double> distinct = SampledDistinct(values);
  stops.exact_ = false;
  const double last = static_cast<double>(distinct.size() - 1);
  for (size_t k = 0; k < kMaxStops; ++k) {
    const auto rank = static_cast<size_t>(std::lround(last * static_cast<double>(k) / (kMaxStops - 1)));
    stops.stops_.push_back(distinct[rank]);
  }
  // A sample of few distinct values may repeat a stop; the scale needs them increasing.
  stops.stops_.erase(std::unique(stops.stops_.begin(), stops.stops_.end()), stops.stops_.end());
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
