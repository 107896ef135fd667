#include "zrsimprp/qt/binders/CheckBoxBinder.h"

#include "zrsimprp/qt/AccessibleText.h"
#include "zrsimprp/qt/UndoRecorder.h"

namespace zrsimprp {

CheckBoxBinder::CheckBoxBinder(CheckBox& check_box, QCheckBox* widget)
    : ControlBinder(check_box, widget), check_box_(check_box), widget_box_(widget) {
  connect(widget, &QCheckBox::clicked, this, &CheckBoxBinder::OnClicked);
  RefreshNow();
}

void CheckBoxBinder::Mirror() {
  widget_box_->setText(AccessibleText::Literal(check_box_.Caption()));
  widget_box_->setAccessibleName(AccessibleText::FromCaption(check_box_.Caption()));
  Qt::CheckState state = Qt::Unchecked;
  if (check_box_.Value() == CheckBox::kChecked) state = Qt::Checked;
  if (check_box_.Value() == CheckBox::kGrayed) state = Qt::PartiallyChecked;
  widget_box_->setTristate(state == Qt::PartiallyChecked);
  widget_box_->setCheckState(state);
}

void CheckBoxBinder::OnClicked() {
  if (Mirroring()) return;
  UndoRecorder::Run(this, "CheckBox_Click",
                    QStringLiteral("tick of %1").arg(UndoRecorder::NameOf(widget_box_)),
                    [this] { check_box_.UserClick(); });
  RefreshNow();
}

}  // namespace zrsimprp
