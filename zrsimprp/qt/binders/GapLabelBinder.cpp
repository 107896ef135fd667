#include "zrsimprp/qt/binders/GapLabelBinder.h"

#include "zrsimprp/qt/AccessibleText.h"

namespace zrsimprp {

GapLabelBinder::GapLabelBinder(Label& label, QLabel* before, QLabel* after)
    : ControlBinder(label, before), label_(label), before_(before), after_(after) {
  before->setTextFormat(Qt::PlainText);
  after->setTextFormat(Qt::PlainText);
  RefreshNow();
}

std::pair<std::string, std::string> GapLabelBinder::Split(const std::string& caption) {
  size_t best_start = std::string::npos;
  size_t best_length = 1;
  size_t i = 0;
  while (i < caption.size()) {
    if (caption[i] != ' ') {
      ++i;
      continue;
    }
    const size_t start = i;
    while (i < caption.size() && caption[i] == ' ') ++i;
    if (i - start > best_length) {
      best_start = start;
      best_length = i - start;
    }
  }
  if (best_start == std::string::npos) return {caption, std::string()};
  return {caption.substr(0, best_start), caption.substr(best_start + best_length)};
}

void GapLabelBinder::Mirror() {
  const auto parts = Split(label_.Caption());
  before_->setText(QString::fromStdString(parts.first));
  after_->setText(QString::fromStdString(parts.second));
  after_->setEnabled(label_.Enabled());
  MirrorVisible(after_, label_.Visible());
  const QString name = AccessibleText::FromCaption(label_.Caption());
  before_->setAccessibleName(name);
  after_->setAccessibleName(name);
}

}  // namespace zrsimprp
