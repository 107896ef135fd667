#include "zrsimprp/qt/binders/TabStripBinder.h"

#include <QSignalBlocker>

#include "zrsimprp/qt/AccessibleText.h"
#include "zrsimprp/qt/EventBoundary.h"

namespace zrsimprp {

TabStripBinder::TabStripBinder(TabStrip& strip, QTabBar* bar)
    : ControlBinder(strip, bar), strip_(strip), bar_(bar) {
  connect(bar, &QTabBar::currentChanged, this, &TabStripBinder::OnCurrentChanged);
  RefreshNow();
}

void TabStripBinder::Mirror() {
  while (bar_->count() > strip_.TabCount()) bar_->removeTab(bar_->count() - 1);
  for (int tab = 1; tab <= strip_.TabCount(); ++tab) {
    const QString caption = QString::fromStdString(strip_.Caption(tab));
    if (tab - 1 >= bar_->count()) bar_->addTab(caption);
    if (bar_->tabText(tab - 1) != caption) bar_->setTabText(tab - 1, caption);
    bar_->setAccessibleTabName(tab - 1, AccessibleText::FromCaption(strip_.Caption(tab)));
  }
  if (bar_->currentIndex() != strip_.SelectedIndex() - 1) bar_->setCurrentIndex(strip_.SelectedIndex() - 1);
}

void TabStripBinder::OnCurrentChanged(int index) {
  if (Mirroring() || index < 0) return;
  // The bar has already moved; it goes back to the page being left while that page is checked, so
  // that a refusal's message is shown over the page that refused.
  {
    const QSignalBlocker quiet(bar_);
    bar_->setCurrentIndex(strip_.SelectedIndex() - 1);
  }
  EventBoundary::Run(this, "TabStrip_Click", [this, index] { strip_.UserClickTab(index + 1); });
  RefreshNow();
}

}  // namespace zrsimprp
