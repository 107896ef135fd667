#pragma once

#include <QChartView>
#include <QValueAxis>

#include "zrsimprp/host/Chart.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// Chart -> QChartView: a 2-D XY chart of line series, series s taking its x values from data column
// 2s-1 and its y values from column 2s, on value axes with the model's range and major divisions.
// Colours follow the palette.
class ChartBinder : public ControlBinder {
  Q_OBJECT

 public:
  ChartBinder(Chart& chart, QChartView* view);

  QValueAxis* XAxis() const { return x_axis_; }
  QValueAxis* YAxis() const { return y_axis_; }

  static constexpr int kTwipsPerPixel = 15;

 protected:
  void Mirror() override;

 private:
  static void MirrorAxis(const Chart::Axis& model, QValueAxis* axis);
  void MirrorSeries();
  void MirrorColours();

  Chart& chart_;
  QChartView* view_;
  QValueAxis* x_axis_;
  QValueAxis* y_axis_;
};

}  // namespace zrsimprp
