#include "zrsimprp/qt/binders/LabelBinder.h"

#include "zrsimprp/qt/AccessibleText.h"

namespace zrsimprp {

LabelBinder::LabelBinder(Label& label, QLabel* widget)
    : ControlBinder(label, widget), label_(label), widget_label_(widget) {
  widget->setTextFormat(Qt::PlainText);
  RefreshNow();
}

void LabelBinder::Mirror() {
  const QString text = QString::fromStdString(label_.Caption());
  if (widget_label_->text() != text) widget_label_->setText(text);
  widget_label_->setWordWrap(text.size() > kWrapLength);
  widget_label_->setAccessibleName(AccessibleText::FromCaption(label_.Caption()));
}

}  // namespace zrsimprp
