#include "zrsimprp/qt/binders/FrameBinder.h"

#include "zrsimprp/qt/AccessibleText.h"

namespace zrsimprp {

FrameBinder::FrameBinder(Frame& frame, QGroupBox* box) : ControlBinder(frame, box), frame_(frame), box_(box) {
  RefreshNow();
}

void FrameBinder::Mirror() {
  box_->setTitle(AccessibleText::Literal(frame_.Caption()));
  box_->setAccessibleName(AccessibleText::FromCaption(frame_.Caption()));
}

}  // namespace zrsimprp
