#pragma once

#include <QTabBar>

#include "zrsimprp/host/TabStrip.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// TabStrip -> QTabBar (strip tab i is bar tab i - 1). A click is the model's tab click; the bar then
// shows the model's selected tab, which its click handler may have put back.
class TabStripBinder : public ControlBinder {
  Q_OBJECT

 public:
  TabStripBinder(TabStrip& strip, QTabBar* bar);

 protected:
  void Mirror() override;

 private:
  void OnCurrentChanged(int index);

  TabStrip& strip_;
  QTabBar* bar_;
};

}  // namespace zrsimprp
