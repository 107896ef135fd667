#include "zrsimprp/qt/map/SurveyMapCanvas.h"

#include <QPainter>

namespace zrsimprp {

SurveyMapCanvas::SurveyMapCanvas(QWidget* parent) : MapCanvas(QSize(240, 180), parent) {
  setAccessibleName(QStringLiteral("Drawn survey"));
}

void SurveyMapCanvas::ShowSurvey(std::shared_ptr<const DrawnSurvey> survey) {
  survey_ = std::move(survey);
  update();
}

void SurveyMapCanvas::paintEvent(QPaintEvent* event) {
  MapCanvas::paintEvent(event);
  QTransform to_widget;
  if (!survey_ || !Painter().ToWidget(to_widget)) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(QColor(40, 80, 200), 1));
  for (const SurveyLine& line : survey_->lines) {
    painter.drawLine(to_widget.map(QPointF(line.x, line.y0)), to_widget.map(QPointF(line.x, line.y1)));
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(90, 90, 90));
  for (const DrawnAnimal& animal : survey_->animals) {
    if (!animal.detected) painter.drawRect(QRectF(to_widget.map(QPointF(animal.x, animal.y)), QSizeF(1, 1)));
  }
  painter.setPen(QPen(QColor(255, 255, 255), 1));
  painter.setBrush(QColor(210, 30, 30));
  for (const DrawnAnimal& animal : survey_->animals) {
    if (animal.detected) {
      const QPointF at = to_widget.map(QPointF(animal.x, animal.y));
      painter.drawRect(QRectF(at.x() - 2, at.y() - 2, 4, 4));
    }
  }
}

}  // namespace zrsimprp
