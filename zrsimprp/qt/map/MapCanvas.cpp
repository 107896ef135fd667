#include "zrsimprp/qt/map/MapCanvas.h"

#include <QMouseEvent>
#include <QPainter>

namespace zrsimprp {

MapCanvas::MapCanvas(QSize minimum, QWidget* parent) : QWidget(parent), minimum_(minimum) {
  setMouseTracking(true);
  setMinimumSize(minimum);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(QStringLiteral("Map"));
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
  MapPoint point;
  if (painter_.Model() && painter_.MapPointAt(event->position(), point)) {
    emit PointerDescribed(QString::fromStdString(painter_.Model()->Describe(point.x, point.y)));
  } else {
    emit PointerDescribed(QString());
  }
}

void MapCanvas::leaveEvent(QEvent*) { emit PointerDescribed(QString()); }

}  // namespace zrsimprp
