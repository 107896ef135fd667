#include "zrsimprp/qt/PopulationTabView.h"

#include <QVBoxLayout>

#include "zrsimprp/qt/CPagPopulationCovarsView.h"
#include "zrsimprp/qt/CPagPopulationDescriptionView.h"
#include "zrsimprp/qt/TabStripBinder.h"

namespace zrsimprp {

PopulationTabView::PopulationTabView(TabStrip& strip, CPagPopulationDescription& population,
                                     CPagPopulationCovars& covariates, QWidget* parent)
    : QWidget(parent),
      bar_(new QTabBar(this)),
      population_view_(new CPagPopulationDescriptionView(population, this)),
      covariates_view_(new CPagPopulationCovarsView(covariates, this)) {
  bar_->setAccessibleName(QStringLiteral("Population description"));
  bar_->setDrawBase(true);
  new TabStripBinder(strip, bar_);
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
