#include "zrsimprp/qt/map/DensityMapPanel.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QThreadPool>
#include <QVBoxLayout>
#include <optional>

#include "zrsimprp/map/DensityMapBuilder.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/pages/CPagDensity/CPagDensity.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"
#include "zrsimprp/qt/map/MapCanvas.h"
#include "zrsimprp/surface/DensitySurfaceReader.h"

namespace zrsimprp {

namespace {

QString Hint() { return QStringLiteral("Point at the map to read x, y and the relative density."); }

}  // namespace

DensityMapPanel::DensityMapPanel(CPagDensity& density, CPagSimulation& simulation, QWidget* parent)
    : QWidget(parent),
      density_(density),
      simulation_(simulation),
      canvas_(new MapCanvas(QSize(260, 240), this)),
      status_(new QLabel(Hint(), this)),
      settle_(kSettleMs, this, [this]() { Recompute(false); }) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(canvas_, 1);
  status_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  status_->setWordWrap(true);
  status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  status_->setAccessibleName(QStringLiteral("Map status"));
  layout->addWidget(status_);
  connect(canvas_, &MapCanvas::PointerDescribed, this,
          [this](const QString& text) { status_->setText(text.isEmpty() ? Hint() : text); });

  for (Control* control : std::initializer_list<Control*>{
           &density_.optDensity, &density_.flxConstantDensity, &density_.txtFormula, &density_.txtGridSpace,
           &density_.cboLayer, &density_.cboField, &density_.chkHotspots, &density_.flxHotspots,
           &simulation_.cboRegionLayer}) {
    settle_.Watch(*control);
  }
  settle_.Schedule();
}

DensityMapPanel::~DensityMapPanel() = default;

void DensityMapPanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (settle_.Pending()) RedrawNow();
}

void DensityMapPanel::RedrawNow() {
  settle_.Cancel();
  Recompute(true);
}

void DensityMapPanel::Recompute(bool wait) {
  if (computing_) {
    // One computation at a time: edits made meanwhile are taken up, all at once, when it ends.
    again_ = true;
    if (!wait) return;
    while (computing_) {
      QThreadPool::globalInstance()->waitForDone(5);
      QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    again_ = false;
  }
  kept_.Follow(CModGlobal::ProjectDatabase(), density_, simulation_);
  const DensityMapInputs inputs = DensityMapInputs::FromPage(density_);
  const int64_t generation = ++generation_;
  const std::shared_ptr<const MapLayers> layers = kept_.Layers();
  const std::shared_ptr<const MapModel> previous = model_;
  DensitySurfaceInputs spacing_only;
  spacing_only.grid_spacing = inputs.grid_spacing;
  const std::optional<double> spacing = DensitySurfaceReader::Read(spacing_only).grid_spacing->number;
  const double cells =
      layers->region && spacing ? StrataRaster::CellCount(layers->region_extent, *spacing) : 0;
  const auto build = [layers, inputs, previous]() {
    return std::make_shared<const MapModel>(DensityMapBuilder::Build(*layers, inputs, previous.get()));
  };
  if (cells <= kInlineCells) {
    Show(build(), generation);
    return;
  }
  computing_ = true;
  QPointer<DensityMapPanel> guard(this);
  QThreadPool::globalInstance()->start([build, guard, generation]() {
    std::shared_ptr<const MapModel> model = build();
    // Back on the GUI thread; the panel may be gone by then.
    QMetaObject::invokeMethod(
        qApp,
        [guard, model, generation]() {
          if (guard) guard->Finished(model, generation);
        },
        Qt::QueuedConnection);
  });
  if (wait) {
    while (computing_) {
      QThreadPool::globalInstance()->waitForDone(5);
      QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
  }
}

void DensityMapPanel::Finished(std::shared_ptr<const MapModel> model, int64_t generation) {
  computing_ = false;
  Show(std::move(model), generation);
  if (again_) {
    again_ = false;
    Recompute(false);
  }
}

void DensityMapPanel::Show(std::shared_ptr<const MapModel> model, int64_t generation) {
  if (generation != generation_) return;  // a newer edit is being computed
  model_ = std::move(model);
  ++redraws_;
  canvas_->ShowModel(model_);
}

}  // namespace zrsimprp
