#pragma once

#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/qt/binders/ControlBinder.h"
#include "zrsimprp/qt/pages/SectionHeader.h"

namespace zrsimprp {

// LabelLine -> SectionHeader (caption and rule).
class LabelLineBinder : public ControlBinder {
  Q_OBJECT

 public:
  LabelLineBinder(LabelLine& label_line, SectionHeader* header);

 protected:
  void Mirror() override;

 private:
  LabelLine& label_line_;
  SectionHeader* header_;
};

}  // namespace zrsimprp
