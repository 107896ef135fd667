#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

#include "zrsimprp/qt/map/MapPainter.h"

namespace zrsimprp {

// A widget that shows a map model and reports what lies under the pointer. The wheel zooms about the
// pointer, a drag pans, Home or a double click shows the whole region again; a click on a stratum
// reports which one it is, and a stratum can be outlined.
class MapCanvas : public QWidget {
  Q_OBJECT

 public:
  MapCanvas(QSize minimum, QWidget* parent = nullptr);

  void ShowModel(std::shared_ptr<const MapModel> model);
  const std::shared_ptr<const MapModel>& Model() const { return painter_.Model(); }
  QSize sizeHint() const override;
  // Drawn over the map, in map coordinates through `to_widget` (a drawn survey); empty for nothing.
  using Overlay = std::function<void(QPainter& painter, const QTransform& to_widget)>;
  void SetOverlay(Overlay overlay);
  bool HasOverlay() const { return static_cast<bool>(overlay_); }

  // Outlines stratum `stratum` (its position in the layer's records); -1 for none.
  void HighlightStratum(int stratum);
  int HighlightedStratum() const { return painter_.Highlighted(); }
  double Zoom() const { return painter_.Zoom(); }

 signals:
  // The status line for the pointer: its x, y and value, or "" off the map.
  void PointerDescribed(const QString& text);
  // A person clicked stratum `stratum` (its position in the layer's records).
  void StratumClicked(int stratum);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString StratumText(const QPointF& at) const;

  MapPainter painter_;
  Overlay overlay_;
  QSize minimum_;
  QPointF pressed_at_;
  QPointF dragged_to_;
  bool dragging_ = false;
};

}  // namespace zrsimprp
