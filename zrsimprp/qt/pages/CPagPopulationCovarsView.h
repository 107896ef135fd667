#pragma once

#include "zrsimprp/pages/CPagPopulationCovars/CPagPopulationCovars.h"
#include "zrsimprp/qt/pages/PageView.h"

namespace zrsimprp {

// The "Covariates" page of the Population tab: one continuous and one categorical covariate.
class CPagPopulationCovarsView : public PageView {
  Q_OBJECT

 public:
  CPagPopulationCovarsView(CPagPopulationCovars& page, QWidget* parent = nullptr);
};

}  // namespace zrsimprp
