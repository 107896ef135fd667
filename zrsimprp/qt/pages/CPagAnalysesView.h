#pragma once

#include "zrsimprp/pages/CPagAnalyses/CPagAnalyses.h"
#include "zrsimprp/qt/pages/PageView.h"

namespace zrsimprp {

// The "&Analysis" tab: whether and how the simulated data are analysed.
class CPagAnalysesView : public PageView {
  Q_OBJECT

 public:
  CPagAnalysesView(CPagAnalyses& page, QWidget* parent = nullptr);
};

}  // namespace zrsimprp
