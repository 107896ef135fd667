#include "zrsimprp/map/DensityMapInputs.h"

#include "zrsimprp/pages/CPagDensity/CPagDensity.h"

namespace zrsimprp {

namespace {

std::string DescriptionOf(const OptionGroup& options) {
  switch (options.Selected()) {
    case 0:
      return "Uniform";
    case 1:
      return "Simple";
    case 2:
      return "DSM";
    default:
      return "";
  }
}

}  // namespace

DensityMapInputs DensityMapInputs::FromPage(const CPagDensity& page) {
  DensityMapInputs inputs;
  // Read the controls themselves: the page's own getters are user-mode properties and may raise.
  inputs.description = DescriptionOf(page.optDensity);
  const Grid& strata = page.flxConstantDensity;
  if (strata.Rows() >= 2) {
    for (int col = 1; col < strata.Cols(); ++col) {
      inputs.strata.push_back(strata.TextMatrix(0, col));
      inputs.densities.push_back(strata.TextMatrix(1, col));
    }
  }
  inputs.formula = page.txtFormula.Text();
  inputs.grid_spacing = page.txtGridSpace.Text();
  inputs.dsm_layer = page.cboLayer.Text();
  inputs.dsm_field = page.cboField.Text();
  const Grid& hotspots = page.flxHotspots;
  if (hotspots.Cols() >= 4) {
    for (int col = 0; col < 4; ++col) inputs.hotspot_headings[col] = hotspots.TextMatrix(0, col);
    if (page.chkHotspots.Value() == 1) {
      for (int row = 1; row < hotspots.Rows(); ++row) {
        std::array<std::string, 4> cells;
        for (int col = 0; col < 4; ++col) cells[col] = hotspots.TextMatrix(row, col);
        inputs.hotspots.push_back(cells);
      }
    }
  }
  return inputs;
}

DensitySurfaceInputs DensityMapInputs::SurfaceInputs() const {
  DensitySurfaceInputs surface;
  surface.strata = strata;
  surface.densities = densities;
  surface.formula = formula;
  surface.grid_spacing = grid_spacing;
  surface.hotspots.reserve(hotspots.size());
  for (const std::array<std::string, 4>& cells : hotspots)
    surface.hotspots.emplace_back(cells.begin(), cells.end());
  return surface;
}

}  // namespace zrsimprp
