#include "zrsimprp/qt/binders/ChartBinder.h"

#include <QLineSeries>
#include <algorithm>
#include <cmath>

namespace zrsimprp {

ChartBinder::ChartBinder(Chart& chart, QChartView* view)
    : ControlBinder(chart, view),
      chart_(chart),
      view_(view),
      x_axis_(new QValueAxis),
      y_axis_(new QValueAxis) {
  QChart* qchart = view->chart();
  qchart->legend()->hide();
  qchart->addAxis(x_axis_, Qt::AlignBottom);
  qchart->addAxis(y_axis_, Qt::AlignLeft);
  x_axis_->setLabelFormat(QStringLiteral("%g"));
  y_axis_->setLabelFormat(QStringLiteral("%g"));
  view->setRenderHint(QPainter::Antialiasing);
  RefreshNow();
}

void ChartBinder::MirrorAxis(const Chart::Axis& model, QValueAxis* axis) {
  axis->setRange(model.minimum, model.maximum);
  // A major division of n cuts the axis into n parts, so n + 1 ticks.
  const double divisions = std::isfinite(model.major_division) ? model.major_division : 1.0;
  axis->setTickCount(std::clamp(static_cast<int>(std::lround(divisions)) + 1, 2, 101));
  axis->setVisible(model.shown);
}

void ChartBinder::MirrorSeries() {
  QChart* qchart = view_->chart();
  qchart->removeAllSeries();
  for (int x_col = 1; x_col + 1 <= chart_.ColumnCount(); x_col += 2) {
    QList<QPointF> points;
    points.reserve(chart_.RowCount());
    for (int row = 1; row <= chart_.RowCount(); ++row) {
      points.append(QPointF(chart_.Data(row, x_col), chart_.Data(row, x_col + 1)));
    }
    auto* series = new QLineSeries;
    series->replace(points);
    qchart->addSeries(series);
    series->attachAxis(x_axis_);
    series->attachAxis(y_axis_);
  }
}

void ChartBinder::MirrorColours() {
  const QPalette palette = view_->palette();
  QChart* qchart = view_->chart();
  qchart->setBackgroundBrush(palette.brush(QPalette::Base));
  qchart->setPlotAreaBackgroundVisible(false);
  view_->setBackgroundBrush(palette.brush(QPalette::Window));
  for (QValueAxis* axis : {x_axis_, y_axis_}) {
    axis->setLabelsBrush(palette.brush(QPalette::Text));
    axis->setLinePenColor(palette.color(QPalette::Text));
    axis->setGridLineColor(palette.color(QPalette::Mid));
  }
}

void ChartBinder::Mirror() {
  MirrorAxis(chart_.XAxis(), x_axis_);
  MirrorAxis(chart_.YAxis(), y_axis_);
  MirrorSeries();
  MirrorColours();
  if (chart_.Width() > 0 && chart_.Height() > 0) {
    view_->setFixedSize(chart_.Width() / kTwipsPerPixel, chart_.Height() / kTwipsPerPixel);
  }
}

}  // namespace zrsimprp
