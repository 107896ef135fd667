#include "zrsim-editor/PreviewBeside.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/map/PreviewPanel.h"

namespace zrsim_editor {

namespace {

constexpr int kPanelWidth = 340;

}  // namespace

PreviewBeside::PreviewBeside(zrsimprp::SIMPropertiesWidget* properties, QWidget* parent)
    : QWidget(parent),
      properties_(properties),
      toggle_(new QPushButton(tr("Pre&view ▸"), this)),
      side_(new QVBoxLayout()) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(properties_, 1);
  toggle_->setCheckable(true);
  toggle_->setToolTip(
      tr("Show what one repetition is expected to give: detection curves, expected detections and a drawn "
         "survey"));
  side_->addWidget(toggle_, 0, Qt::AlignTop | Qt::AlignRight);
  layout->addLayout(side_);
  connect(toggle_, &QPushButton::toggled, this, &PreviewBeside::SetPreviewShown);
}

void PreviewBeside::SetPreviewShown(bool shown) {
  if (toggle_->isChecked() != shown) toggle_->setChecked(shown);  // comes back here through toggled
  if (shown && panel_ == nullptr) {
    panel_ = new zrsimprp::PreviewPanel(properties_->Control(), this);
    panel_->setMinimumWidth(kPanelWidth);
    side_->addWidget(panel_, 1);
  }
  if (panel_ != nullptr) panel_->setVisible(shown);
  toggle_->setText(shown ? tr("Pre&view ◂") : tr("Pre&view ▸"));
}

}  // namespace zrsim_editor
