#pragma once

#include <QTabBar>
#include <QWidget>
#include <vector>

#include "zrsimprp/host/TabStrip.h"

namespace zrsimprp {

class CPagPopulationCovars;
class CPagPopulationCovarsView;
class CPagPopulationDescription;
class CPagPopulationDescriptionView;

// The "&Population" tab: the inner "General"/"Covariates" strip over the two pages that share it;
// each page is shown while the model says it is visible.
class PopulationTabView : public QWidget {
  Q_OBJECT

 public:
  PopulationTabView(TabStrip& strip, CPagPopulationDescription& population, CPagPopulationCovars& covariates,
                    QWidget* parent = nullptr);

  QTabBar* InnerTabBar() const { return bar_; }
  CPagPopulationDescriptionView* PopulationView() const { return population_view_; }
  CPagPopulationCovarsView* CovariatesView() const { return covariates_view_; }
  std::vector<QWidget*> FocusChain() const;

 signals:
  // A person moves the inner tab: before the model hears of it, and after.
  void TabSwitching();
  void TabSwitched();

 private:
  QTabBar* bar_;
  CPagPopulationDescriptionView* population_view_;
  CPagPopulationCovarsView* covariates_view_;
};

}  // namespace zrsimprp
