#pragma once

#include "zrsimprp/pages/CPagDetectability/CPagDetectability.h"
#include "zrsimprp/qt/pages/PageView.h"

namespace zrsimprp {

// The "D&etectability" tab: key function, parameter table and the preview chart.
class CPagDetectabilityView : public PageView {
  Q_OBJECT

 public:
  CPagDetectabilityView(CPagDetectability& page, QWidget* parent = nullptr);
};

}  // namespace zrsimprp
