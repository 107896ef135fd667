#pragma once

#include <QPointer>
#include <QStackedWidget>
#include <QTabBar>

#include "zrsimprp/host/TabControl.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// TabControl -> QTabBar (captions keep their "&" mnemonics), and optionally the stack of pages it
// switches. A click asks the model for the tab; a refused change leaves the bar on the model's tab.
class TabControlBinder : public ControlBinder {
  Q_OBJECT

 public:
  TabControlBinder(TabControl& tabs, QTabBar* bar, QStackedWidget* pages = nullptr);

 protected:
  void Mirror() override;

 private:
  void OnCurrentChanged(int index);

  TabControl& tabs_;
  QTabBar* bar_;
  QPointer<QStackedWidget> pages_;
};

}  // namespace zrsimprp
