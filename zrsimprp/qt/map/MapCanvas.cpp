#include "zrsimprp/qt/map/MapCanvas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

namespace zrsimprp {

MapCanvas::MapCanvas(QSize minimum, QWidget* parent) : QWidget(parent), minimum_(minimum) {
  setMouseTracking(true);
  setMinimumSize(minimum);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(QStringLiteral("Map"));
  // Home needs the keys: a click gives them, Tab passes by.
  setFocusPolicy(Qt::ClickFocus);
}

void MapCanvas::HighlightStratum(int stratum) {
  if (painter_.Highlighted() == stratum) return;
  painter_.SetHighlighted(stratum);
  update();
}

QString MapCanvas::StratumText(const QPointF& at) const {
  const int stratum = painter_.StratumAt(at);
  const auto& model = painter_.Model();
  if (stratum < 0 || !model || !model->strata ||
      static_cast<size_t>(stratum) >= model->strata->strata.size()) {
    return QString();
  }
  const StratumGeometry& shape = model->strata->strata[static_cast<size_t>(stratum)];
  QString text = QStringLiteral("stratum %1 of %2, id %3")
                     .arg(stratum + 1)
                     .arg(model->strata->strata.size())
                     .arg(QString::fromStdString(shape.id));
  if (!shape.label.empty()) text += QStringLiteral(", ") + QString::fromStdString(shape.label);
  return text;
}

void MapCanvas::wheelEvent(QWheelEvent* event) {
  if (!painter_.Model()) return QWidget::wheelEvent(event);
  const double steps = event->angleDelta().y() / 120.0;
  if (steps == 0) return QWidget::wheelEvent(event);
  painter_.ZoomAbout(event->position(), std::pow(1.25, steps));
  event->accept();
  update();
}

void MapCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  pressed_at_ = dragged_to_ = event->position();
  dragging_ = true;
}

void MapCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !dragging_) return QWidget::mouseReleaseEvent(event);
  dragging_ = false;
  // A press and release in one place is a click on what lies there, not a drag.
  if ((event->position() - pressed_at_).manhattanLength() < 4) {
    const int stratum = painter_.StratumAt(event->position());
    if (stratum >= 0) emit StratumClicked(stratum);
  }
}

void MapCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
  painter_.ShowWholeRegion();
  event->accept();
  update();
}

void MapCanvas::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Home) return QWidget::keyPressEvent(event);
  painter_.ShowWholeRegion();
  update();
}

QSize MapCanvas::sizeHint() const { return minimum_ * 1.25; }

void MapCanvas::ShowModel(std::shared_ptr<const MapModel> model) {
  painter_.SetModel(std::move(model));
  const auto& shown = painter_.Model();
  setAccessibleDescription(shown && !shown->notices.empty() ? QString::fromStdString(shown->notices.front())
                                                            : QString());
  update();
}

void MapCanvas::SetOverlay(Overlay overlay) {
  overlay_ = std::move(overlay);
  update();
}

void MapCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter_.Paint(painter, rect(), palette());
  QTransform to_widget;
  if (overlay_ && painter_.ToWidget(to_widget)) overlay_(painter, to_widget);
}

void MapCanvas::mouseMoveEvent(QMouseEvent* event) {
  if (dragging_ && (event->buttons() & Qt::LeftButton)) {
    painter_.Pan(event->position() - dragged_to_);
    dragged_to_ = event->position();
    update();
  }
  MapPoint point;
  if (painter_.Model() && painter_.MapPointAt(event->position(), point)) {
    QString text = QString::fromStdString(painter_.Model()->Describe(point.x, point.y));
    const QString stratum = StratumText(event->position());
    if (!stratum.isEmpty()) text = stratum + QStringLiteral(" · ") + text;
    emit PointerDescribed(text);
  } else {
    emit PointerDescribed(QString());
  }
}

void MapCanvas::leaveEvent(QEvent*) { emit PointerDescribed(QString()); }

}  // namespace zrsimprp
