#include "zrsimprp/qt/map/SurveyOverlay.h"

#include <QPainter>

#include "zrsimprp/qt/map/MapCanvas.h"

namespace zrsimprp {

void SurveyOverlay::Paint(QPainter& painter, const QTransform& to_widget, const DrawnSurvey& survey) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(QColor(255, 255, 255), 1.5));
  for (const SurveyLine& line : survey.lines) {
    painter.drawLine(to_widget.map(QPointF(line.x, line.y0)), to_widget.map(QPointF(line.x, line.y1)));
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(40, 40, 40));
  for (const DrawnAnimal& animal : survey.animals) {
    if (!animal.detected) painter.drawRect(QRectF(to_widget.map(QPointF(animal.x, animal.y)), QSizeF(1, 1)));
  }
  painter.setPen(QPen(QColor(255, 255, 255), 1));
  painter.setBrush(QColor(210, 30, 30));
  for (const DrawnAnimal& animal : survey.animals) {
    if (!animal.detected) continue;
    const QPointF at = to_widget.map(QPointF(animal.x, animal.y));
    painter.drawRect(QRectF(at.x() - 2, at.y() - 2, 4, 4));
  }
  painter.restore();
}

void SurveyOverlay::ShowOn(MapCanvas& canvas, std::shared_ptr<const DrawnSurvey> survey) {
  if (!survey) {
    canvas.SetOverlay({});
    return;
  }
  canvas.SetOverlay(
      [survey](QPainter& painter, const QTransform& to_widget) { Paint(painter, to_widget, *survey); });
}

}  // namespace zrsimprp
