#include "zrsimprp/qt/binders/LabelLineBinder.h"

#include "zrsimprp/qt/AccessibleText.h"

namespace zrsimprp {

LabelLineBinder::LabelLineBinder(LabelLine& label_line, SectionHeader* header)
    : ControlBinder(label_line, header), label_line_(label_line), header_(header) {
  RefreshNow();
}

void LabelLineBinder::Mirror() {
  header_->CaptionLabel()->setText(QString::fromStdString(label_line_.Caption()));
  const QString name = AccessibleText::FromCaption(label_line_.Caption());
  header_->setAccessibleName(name);
  header_->CaptionLabel()->setAccessibleName(name);
}

}  // namespace zrsimprp
