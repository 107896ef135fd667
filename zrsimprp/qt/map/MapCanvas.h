#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

#include "zrsimprp/qt/map/MapPainter.h"

namespace zrsimprp {

// A widget that shows a map model and reports what lies under the pointer.
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

 signals:
  // The status line for the pointer: its x, y and value, or "" off the map.
  void PointerDescribed(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  MapPainter painter_;
  Overlay overlay_;
  QSize minimum_;
};

}  // namespace zrsimprp
