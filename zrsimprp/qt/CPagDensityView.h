#pragma once

#include "zrsimprp/pages/CPagDensity/CPagDensity.h"
#include "zrsimprp/qt/PageView.h"

namespace zrsimprp {

// The "&Density" tab: the density surface, grid spacing and hotspots.
class CPagDensityView : public PageView {
  Q_OBJECT

 public:
  CPagDensityView(CPagDensity& page, QWidget* parent = nullptr);
};

}  // namespace zrsimprp
