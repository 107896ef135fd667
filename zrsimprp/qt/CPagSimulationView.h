#pragma once

#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"
#include "zrsimprp/qt/PageView.h"

namespace zrsimprp {

// The "&Simulation" tab: survey or design, the region/strata layer and the repetitions.
class CPagSimulationView : public PageView {
  Q_OBJECT

 public:
  CPagSimulationView(CPagSimulation& page, QWidget* parent = nullptr);
};

}  // namespace zrsimprp
