#pragma once

#include "zrsimprp/pages/CPagMisc/CPagMisc.h"
#include "zrsimprp/qt/pages/PageView.h"

namespace zrsimprp {

// The "&Misc." tab: parallel running and the core limit.
class CPagMiscView : public PageView {
  Q_OBJECT

 public:
  CPagMiscView(CPagMisc& page, QWidget* parent = nullptr);
};

}  // namespace zrsimprp
