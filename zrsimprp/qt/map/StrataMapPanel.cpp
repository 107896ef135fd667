#include "zrsimprp/qt/map/StrataMapPanel.h"

#include <QVBoxLayout>

#include "zrsimprp/map/DensityMapBuilder.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"
#include "zrsimprp/qt/map/MapCanvas.h"

namespace zrsimprp {

StrataMapPanel::StrataMapPanel(CPagSimulation& simulation, QWidget* parent)
    : QWidget(parent),
      simulation_(simulation),
      canvas_(new MapCanvas(QSize(220, 170), this)),
      status_(new QLabel(this)),
      settle_(50, this, [this]() { Recompute(); }) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(canvas_, 1);
  status_->setWordWrap(true);
  status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  layout->addWidget(status_);
  connect(canvas_, &MapCanvas::PointerDescribed, status_, &QLabel::setText);
  settle_.Watch(simulation_.cboRegionLayer);
  settle_.Schedule();
}

StrataMapPanel::~StrataMapPanel() = default;

void StrataMapPanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (settle_.Pending()) RedrawNow();
}

void StrataMapPanel::RedrawNow() {
  settle_.Cancel();
  Recompute();
}

void StrataMapPanel::Recompute() {
  const std::shared_ptr<ProjectDatabase> database = CModGlobal::ProjectDatabase();
  const std::string layer = simulation_.cboRegionLayer.Text();
  if (model_ && database == database_ && layer == layer_) return;
  database_ = database;
  layer_ = layer;
  MapLayers layers;
  MapLayers::LoadRegion(layers, database, layer);
  model_ = std::make_shared<const MapModel>(DensityMapBuilder::StrataOnly(layers));
  canvas_->ShowModel(model_);
}

}  // namespace zrsimprp
