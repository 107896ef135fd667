#include "zrsimprp/qt/pages/PopulationTabView.h"

#include <QVBoxLayout>

#include "zrsimprp/qt/binders/TabStripBinder.h"
#include "zrsimprp/qt/pages/CPagPopulationCovarsView.h"
#include "zrsimprp/qt/pages/CPagPopulationDescriptionView.h"

namespace zrsimprp {

PopulationTabView::PopulationTabView(TabStrip& strip, CPagPopulationDescription& population,
                                     CPagPopulationCovars& covariates, QWidget* parent)
    : QWidget(parent),
      bar_(new QTabBar(this)),
      population_view_(new CPagPopulationDescriptionView(population, this)),
      covariates_view_(new CPagPopulationCovarsView(covariates, this)) {
  bar_->setAccessibleName(QStringLiteral("Population description"));
  bar_->setDrawBase(true);
  // Connected around the binder's own connection, so that these run before and after the model
  // hears of the switch.
  connect(bar_, &QTabBar::currentChanged, this, [this, &strip](int index) {
    if (index + 1 != strip.SelectedIndex()) emit TabSwitching();
  });
  new TabStripBinder(strip, bar_);
  connect(bar_, &QTabBar::currentChanged, this, &PopulationTabView::TabSwitched);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(bar_);
  layout->addWidget(population_view_);
  layout->addWidget(covariates_view_);
}

std::vector<QWidget*> PopulationTabView::FocusChain() const {
  std::vector<QWidget*> chain{bar_};
  for (QWidget* widget : population_view_->FocusChain()) chain.push_back(widget);
  for (QWidget* widget : covariates_view_->FocusChain()) chain.push_back(widget);
  return chain;
}

}  // namespace zrsimprp
