#pragma once

#include <QLabel>

#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// Label -> QLabel, the caption shown as it is (blanks and ampersands included); long captions wrap.
class LabelBinder : public ControlBinder {
  Q_OBJECT

 public:
  LabelBinder(Label& label, QLabel* widget);

  // Captions longer than this wrap onto several lines.
  static constexpr int kWrapLength = 60;

 protected:
  void Mirror() override;

 private:
  Label& label_;
  QLabel* widget_label_;
};

}  // namespace zrsimprp
