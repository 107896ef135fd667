#pragma once

#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"
#include "zrsimprp/qt/pages/PageView.h"

namespace zrsimprp {

class StrataMapPanel;

// The "&Simulation" tab: survey or design, the region/strata layer and the repetitions.
class CPagSimulationView : public PageView {
  Q_OBJECT

 public:
  CPagSimulationView(CPagSimulation& page, QWidget* parent = nullptr);

  // Puts a small map of the chosen region layer's strata beside the controls.
  StrataMapPanel* ShowMap();

 private:
  CPagSimulation& page_;
};

}  // namespace zrsimprp
