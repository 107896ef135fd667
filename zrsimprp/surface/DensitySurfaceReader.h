#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "zrsimprp/surface/DensitySurfaceInputs.h"
#include "zrsimprp/surface/DensitySurfaceProblem.h"
#include "zrsimprp/surface/DensitySurfaceReading.h"

namespace zrsimprp {

// Reads the inputs of a density surface once, for everything that needs their numbers or their
// problems: the definition lint, the density map, previews. Numbers are read with the system's
// numeric test and conversion (C locale), whatever locale the process has. The rules are the
// surface's own: densities and amplitudes are not negative, the grid spacing and sigmas are above 0.
// Pure and without shared state; it never throws for anything typed, and its work grows in
// proportion to the number of values.
class DensitySurfaceReader {
 public:
  static DensitySurfaceReading Read(const DensitySurfaceInputs& inputs);

  // The strata of a table of values per stratum (densities, and population sizes alike) that have no
  // value of their own when only the first `given` values were typed: one kMissing problem each,
  // for the stratum named in `strata`.
  static std::vector<DensitySurfaceProblem> StrataWithoutValue(const std::vector<std::string>& strata,
                                                               std::size_t given);

  // The expression of a formula as typed: blanks and one leading "=" dropped.
  static std::string FormulaExpression(std::string_view text);
};

}  // namespace zrsimprp
