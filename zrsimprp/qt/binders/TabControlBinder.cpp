#include "zrsimprp/qt/binders/TabControlBinder.h"

#include <QSignalBlocker>

#include "zrsimprp/qt/AccessibleText.h"
#include "zrsimprp/qt/EventBoundary.h"

namespace zrsimprp {

TabControlBinder::TabControlBinder(TabControl& tabs, QTabBar* bar, QStackedWidget* pages)
    : ControlBinder(tabs, bar), tabs_(tabs), bar_(bar), pages_(pages) {
  connect(bar, &QTabBar::currentChanged, this, &TabControlBinder::OnCurrentChanged);
  RefreshNow();
}

void TabControlBinder::Mirror() {
  while (bar_->count() > tabs_.TabCount()) bar_->removeTab(bar_->count() - 1);
  for (int i = 0; i < tabs_.TabCount(); ++i) {
    const QString caption = QString::fromStdString(tabs_.Caption(i));
    if (i >= bar_->count()) bar_->addTab(caption);
    if (bar_->tabText(i) != caption) bar_->setTabText(i, caption);
    bar_->setAccessibleTabName(i, AccessibleText::FromCaption(tabs_.Caption(i)));
  }
  if (bar_->currentIndex() != tabs_.CurrentTab()) bar_->setCurrentIndex(tabs_.CurrentTab());
  if (pages_ != nullptr && tabs_.CurrentTab() < pages_->count()) pages_->setCurrentIndex(tabs_.CurrentTab());
}

void TabControlBinder::OnCurrentChanged(int index) {
  if (Mirroring() || index < 0) return;
  // The bar has already moved; it goes back to the page being left while that page is checked, so
  // that a refusal's message is shown over the page that refused.
  {
    const QSignalBlocker quiet(bar_);
    bar_->setCurrentIndex(tabs_.CurrentTab());
  }
  EventBoundary::Run(this, "TabControl_Click", [this, index] { tabs_.UserSelectTab(index); });
  RefreshNow();
}

}  // namespace zrsimprp
