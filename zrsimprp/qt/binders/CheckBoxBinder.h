#pragma once

#include <QCheckBox>

#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// CheckBox -> QCheckBox; value 2 shows as partially checked. A click is the model's click, and the
// box then shows the model's value, whatever Qt's own toggling did.
class CheckBoxBinder : public ControlBinder {
  Q_OBJECT

 public:
  CheckBoxBinder(CheckBox& check_box, QCheckBox* widget);

 protected:
  void Mirror() override;

 private:
  void OnClicked();

  CheckBox& check_box_;
  QCheckBox* widget_box_;
};

}  // namespace zrsimprp
