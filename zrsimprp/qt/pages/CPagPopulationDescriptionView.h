#pragma once

#include "zrsimprp/pages/CPagPopulationDescription/CPagPopulationDescription.h"
#include "zrsimprp/qt/pages/PageView.h"

namespace zrsimprp {

// The "General" page of the Population tab: population size and cluster sizes.
class CPagPopulationDescriptionView : public PageView {
  Q_OBJECT

 public:
  CPagPopulationDescriptionView(CPagPopulationDescription& page, QWidget* parent = nullptr);
};

}  // namespace zrsimprp
