#pragma once

#include <QGroupBox>

#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// Frame -> QGroupBox titled with the caption.
class FrameBinder : public ControlBinder {
  Q_OBJECT

 public:
  FrameBinder(Frame& frame, QGroupBox* box);

 protected:
  void Mirror() override;

 private:
  Frame& frame_;
  QGroupBox* box_;
};

}  // namespace zrsimprp
