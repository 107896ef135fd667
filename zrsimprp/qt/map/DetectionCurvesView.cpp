#include "zrsimprp/qt/map/DetectionCurvesView.h"

#include <QPainter>
#include <QPainterPath>

#include "zrsimprp/map/MapNumber.h"

namespace zrsimprp {

namespace {

// Colours that stay apart for most colour-blind readers (Okabe and Ito).
const QColor kCurveColours[] = {QColor(0, 114, 178),   QColor(213, 94, 0),  QColor(0, 158, 115),
                                QColor(204, 121, 167), QColor(230, 159, 0), QColor(86, 180, 233)};

constexpr int kCurvePoints = 101;
constexpr size_t kShownCurves = 8;

}  // namespace

DetectionCurvesView::DetectionCurvesView(QWidget* parent) : QWidget(parent) {
  setMinimumSize(200, 140);
  setAccessibleName(QStringLiteral("Detection curves"));
}

void DetectionCurvesView::ShowPreview(std::shared_ptr<const Preview> preview) {
  preview_ = std::move(preview);
  QString description;
  if (preview_) {
    for (const DetectionCurve& curve : preview_->curves) {
      description += QString::fromStdString(curve.Usable() ? curve.label + ": average detectability " +
                                                                 MapNumber::Text(curve.average_detectability)
                                                           : curve.problem) +
                     QLatin1Char('\n');
    }
  }
  setAccessibleDescription(description.trimmed());
  update();
}

void DetectionCurvesView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPalette colours = palette();
  const QFontMetrics metrics(font());
  const int line = metrics.height();
  std::vector<QString> sentences;
  if (!preview_ || preview_->curves.empty()) {
    sentences.push_back(preview_ && !preview_->refusal.empty() ? QString::fromStdString(preview_->refusal)
                                                               : tr("No detection curve to draw yet."));
  } else {
    for (const DetectionCurve& curve : preview_->curves) {
      if (!curve.Usable()) sentences.push_back(QString::fromStdString(curve.problem));
    }
  }
  const int text_height = static_cast<int>(sentences.size()) * line * 2;
  const QRectF plot(metrics.horizontalAdvance(QStringLiteral("0.5")) + 8, line / 2.0,
                    width() - metrics.horizontalAdvance(QStringLiteral("0.5")) - 16,
                    height() - text_height - 2.5 * line);
  painter.setPen(colours.color(QPalette::WindowText));
  if (plot.height() > 20 && preview_ && preview_->truncation > 0) {
    painter.drawLine(plot.bottomLeft(), plot.bottomRight());
    painter.drawLine(plot.bottomLeft(), plot.topLeft());
    painter.drawText(QRectF(0, plot.top() - line / 2.0, plot.left() - 4, line), Qt::AlignRight,
                     QStringLiteral("1"));
    painter.drawText(QRectF(0, plot.bottom() - line / 2.0, plot.left() - 4, line), Qt::AlignRight,
                     QStringLiteral("0"));
    painter.drawText(QRectF(plot.left(), plot.bottom() + 2, plot.width(), line), Qt::AlignLeft,
                     QStringLiteral("0"));
    painter.drawText(QRectF(plot.left(), plot.bottom() + 2, plot.width(), line), Qt::AlignRight,
                     QString::fromStdString("w = " + MapNumber::Text(preview_->truncation)));
    painter.drawText(QRectF(plot.left(), plot.bottom() + 2, plot.width(), line), Qt::AlignHCenter,
                     tr("distance x"));
    size_t colour = 0;
    qreal label_y = plot.top() + 2;
    for (const DetectionCurve& curve : preview_->curves) {
      if (!curve.Usable()) continue;
      // Beyond a handful the curves are a blur: the first ones are drawn, the rest are in the table.
      if (colour == kShownCurves) break;
      const QColor ink = kCurveColours[colour++ % std::size(kCurveColours)];
      QPainterPath path;
      const auto points = curve.Points(kCurvePoints);
      for (size_t i = 0; i < points.size(); ++i) {
        const QPointF at(plot.left() + plot.width() * points[i].first / preview_->truncation,
                         plot.bottom() - plot.height() * points[i].second);
        if (i == 0) {
          path.moveTo(at);
        } else {
          path.lineTo(at);
        }
      }
      painter.setPen(QPen(ink, 2));
      painter.drawPath(path);
      painter.drawText(
          QRectF(plot.left() + 6, label_y, plot.width() - 8, line), Qt::AlignRight,
          QString::fromStdString(curve.label + "  P_a " + MapNumber::Text(curve.average_detectability, 3)));
      label_y += line;
    }
  }
  painter.setPen(colours.color(QPalette::WindowText));
  qreal y = height() - text_height;
  for (const QString& sentence : sentences) {
    painter.drawText(QRectF(4, y, width() - 8, 2 * line), Qt::TextWordWrap, sentence);
    y += 2 * line;
  }
}

}  // namespace zrsimprp
