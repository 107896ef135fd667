#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zrsimprp {

// The inputs of a density surface as a person typed them, wherever they come from: the Density
// page's controls, a definition's density and hotspot entries, or a host's own fields. An input
// left out (no value) is not read at all; one given as "" is read, and is blank.
struct DensitySurfaceInputs {
  // The strata the density table has, by name, column by column.
  std::vector<std::string> strata;
  // The densities typed in the table, column by column. A stratum after the last of them has none;
  // one beyond the strata is read all the same, without a name.
  std::vector<std::string> densities;
  // A formula with nothing but blanks around its "=" is blank.
  std::optional<std::string> formula;
  std::optional<std::string> grid_spacing;
  // Each hotspot's texts in the grid's order: centre X, centre Y, sigma, amplitude. Fewer than four
  // leave the rest missing; any after the fourth are not read.
  std::vector<std::vector<std::string>> hotspots;
};

}  // namespace zrsimprp
