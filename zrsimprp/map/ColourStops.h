#pragma once

#include <cstddef>
#include <vector>

namespace zrsimprp {

// Where each value of a surface sits on the colour scale. The distinct values the surface takes (or,
// when it takes many, evenly ranked ones among them: over a sample of a large raster, with its true
// smallest and largest values at the ends) are spread evenly over the scale and the colours run
// linearly between them, so neighbouring values a person typed (0.5 and 1 beside a 3)
// get clearly different colours however far the largest value lies.
class ColourStops {
 public:
  // More distinct values than this are thinned to this many, evenly by rank.
  static constexpr size_t kMaxStops = 65;

  // The stops of `values`; NaN and infinite values are left out.
  static ColourStops Of(const std::vector<float>& values);

  // The place of `value` on the scale, from 0 (the lowest stop) to 1 (the highest); 0.5 when the
  // surface has one value or none.
  double Position(double value) const;

  // The values spread evenly over the scale, increasing.
  const std::vector<double>& Values() const { return stops_; }
  // True when every distinct value of the surface is a stop.
  bool Exact() const { return exact_; }

 private:
  std::vector<double> stops_;
  bool exact_ = true;
};

}  // namespace zrsimprp
