#pragma once

#include <QString>
#include <QWidget>
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
  const MapPainter& Painter() const { return painter_; }

 signals:
  // The status line for the pointer: its x, y and value, or "" off the map.
  void PointerDescribed(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  MapPainter painter_;
  QSize minimum_;
};

}  // namespace zrsimprp
