#pragma once

#include "zrsimprp/pages/CPagDensity/CPagDensity.h"
#include "zrsimprp/qt/pages/PageView.h"

namespace zrsimprp {

class CPagSimulation;
class DensityMapPanel;

// The "&Density" tab: the density surface, grid spacing and hotspots.
class CPagDensityView : public PageView {
  Q_OBJECT

 public:
  CPagDensityView(CPagDensity& page, QWidget* parent = nullptr);

  // Puts the density map beside the controls; the strata come from the Simulation page's layer.
  DensityMapPanel* ShowMap(CPagSimulation& simulation);

 private:
  CPagDensity& page_;
};

}  // namespace zrsimprp
