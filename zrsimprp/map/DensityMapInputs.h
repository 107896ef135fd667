#pragma once

#include <array>
#include <string>
#include <vector>

#include "zrsimprp/surface/DensitySurfaceInputs.h"

namespace zrsimprp {

class CPagDensity;

// What the Density page shows, copied as typed so that the map can be computed away from the page
// (on another thread) while a person keeps typing.
struct DensityMapInputs {
  std::string description;             // "Uniform", "Simple", "DSM" or ""
  std::vector<std::string> strata;     // the strata grid's labels, one per density column
  std::vector<std::string> densities;  // the strata grid's density cells, as typed
  std::string formula;
  std::string grid_spacing;
  std::string dsm_layer;
  std::string dsm_field;
  std::array<std::string, 4> hotspot_headings{"Centre X", "Centre Y", "Sigma", "Amplitude"};
  std::vector<std::array<std::string, 4>> hotspots;  // only when "Add Hotspots" is ticked

  static DensityMapInputs FromPage(const CPagDensity& page);
  // The texts the density surface reader reads: the densities, the formula, the grid spacing and
  // the hotspots.
  DensitySurfaceInputs SurfaceInputs() const;
};

}  // namespace zrsimprp
