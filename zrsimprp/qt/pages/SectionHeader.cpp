#include "zrsimprp/qt/pages/SectionHeader.h"

#include <QFrame>
#include <QHBoxLayout>

namespace zrsimprp {

SectionHeader::SectionHeader(QWidget* parent) : QWidget(parent), caption_(new QLabel(this)) {
  auto* rule = new QFrame(this);
  rule->setFrameShape(QFrame::HLine);
  rule->setFrameShadow(QFrame::Sunken);
  rule_ = rule;
  caption_->setTextFormat(Qt::PlainText);
  QFont font = caption_->font();
  font.setBold(true);
  caption_->setFont(font);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 6, 0, 2);
  layout->addWidget(caption_);
  layout->addWidget(rule_, 1);
}

}  // namespace zrsimprp
