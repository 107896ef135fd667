#include "zrsim-editor/PreviewBeside.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/map/DensityMapPanel.h"
#include "zrsimprp/qt/map/MapCanvas.h"
#include "zrsimprp/qt/map/PreviewPanel.h"
#include "zrsimprp/qt/map/SurveyOverlay.h"

namespace zrsim_editor {

namespace {

constexpr int kPanelWidth = 340;

}  // namespace

PreviewBeside::PreviewBeside(zrsimprp::SIMPropertiesWidget* properties, QWidget* parent)
    : QWidget(parent),
      properties_(properties),
      toggle_(new QPushButton(tr("Pre&view ▸"), this)),
      row_(new QHBoxLayout(this)) {
  row_->setContentsMargins(0, 0, 0, 0);
  row_->addWidget(properties_, 1);
  toggle_->setCheckable(true);
  toggle_->setToolTip(
      tr("Show what one repetition is expected to give: detection curves, expected detections and a drawn "
         "survey"));
  connect(toggle_, &QPushButton::toggled, this, &PreviewBeside::SetPreviewShown);
}

PreviewBeside::~PreviewBeside() {
  delete panel_;
  panel_ = nullptr;
}

void PreviewBeside::SetPreviewShown(bool shown) {
  if (toggle_->isChecked() != shown) toggle_->setChecked(shown);  // comes back here through toggled
  if (shown && panel_ == nullptr) {
    panel_ = new zrsimprp::PreviewPanel(properties_->Control(), this);
    panel_->setMinimumWidth(kPanelWidth);
    panel_->hide();
    row_->addWidget(panel_);
    connect(panel_, &zrsimprp::PreviewPanel::SurveyChanged, this, &PreviewBeside::ShowOnDensityMap);
  }
  if (panel_ != nullptr && panel_->isHidden() == shown) {
    QWidget* window = this->window();
    const int change = shown ? kPanelWidth + row_->spacing() : -(panel_->width() + row_->spacing());
    panel_->setVisible(shown);
    if (window->isVisible()) window->resize(window->width() + change, window->height());
  }
  toggle_->setText(shown ? tr("Pre&view ◂") : tr("Pre&view ▸"));
  // A closed preview leaves the Density tab's map as it was.
  ShowOnDensityMap(shown && panel_ != nullptr ? panel_->Survey() : nullptr);
}

void PreviewBeside::ShowOnDensityMap(std::shared_ptr<const zrsimprp::DrawnSurvey> survey) {
  zrsimprp::MapCanvas* canvas = DensityMapCanvas();
  if (canvas != nullptr) zrsimprp::SurveyOverlay::ShowOn(*canvas, std::move(survey));
}

zrsimprp::MapCanvas* PreviewBeside::DensityMapCanvas() const {
  auto* density_map = properties_->findChild<zrsimprp::DensityMapPanel*>();
  return density_map != nullptr ? density_map->findChild<zrsimprp::MapCanvas*>() : nullptr;
}

}  // namespace zrsim_editor
