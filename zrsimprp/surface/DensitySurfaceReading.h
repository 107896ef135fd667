#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "zrsimprp/surface/DensitySurfaceProblem.h"

namespace zrsimprp {

// What the density surface reader made of the inputs: the numbers it could read and every problem,
// in the order densities, grid spacing, formula, hotspots (each hotspot's values in grid order).
struct DensitySurfaceReading {
  struct Value {
    // The number, when the text is one; kept even when it breaks its input's rule.
    std::optional<double> number;
    // The value's problem in `problems`, when it has one (a value has at most one).
    std::optional<std::size_t> problem;

    bool Usable() const { return number.has_value() && !problem.has_value(); }
  };

  // One per stratum: as many as there are strata or densities, whichever is more.
  std::vector<Value> densities;
  std::optional<Value> grid_spacing;  // when given
  // The formula's expression: blanks and one leading "=" dropped ("" when not given).
  std::string formula;
  // The formula's problem in `problems` when it was given blank.
  std::optional<std::size_t> formula_problem;
  std::vector<std::array<Value, kHotspotFields>> hotspots;
  std::vector<DensitySurfaceProblem> problems;

  // The value's problem, or null.
  const DensitySurfaceProblem* ProblemOf(const Value& value) const {
    return value.problem ? &problems[*value.problem] : nullptr;
  }
};

}  // namespace zrsimprp
