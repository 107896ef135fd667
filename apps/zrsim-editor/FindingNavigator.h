#pragma once

#include "zrsimprp/lint/Finding.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"

namespace zrsim_editor {

// Takes the person to where a finding points: its page (outer and inner tab, through the control's
// own tab navigation, so a page that refuses to be left still says why) and the control on it. In a grid
// the cell of the first stratum, hotspot or parameter the finding concerns is selected as a person's
// click would select it; in an option group the selected option button takes the focus.
class FindingNavigator {
 public:
  // True when the finding's page is shown afterwards.
  static bool GoTo(zrsimprp::SIMPropertiesWidget& properties, const zrsimprp::Finding& finding);
};

}  // namespace zrsim_editor
