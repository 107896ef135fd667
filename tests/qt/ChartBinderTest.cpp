#include <gtest/gtest.h>

#include <QChart>
#include <QChartView>
#include <QLineSeries>

#include "QtTestSupport.h"
#include "zrsimprp/host/Chart.h"
#include "zrsimprp/qt/binders/ChartBinder.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;

TEST(ChartBinder, DrawsTheModelsSeriesOnItsAxes) {
  Chart chart;
  chart.SetXAxis({0, 50, 2, true});
  chart.SetYAxis({0, 30, 10, false});
  chart.SetDataGridSize(1, 2, 50, 2);
  for (int row = 1; row <= 50; ++row) {
    chart.SetData(row, 1, row);
    chart.SetData(row, 2, 30.0 - row * 0.5);
  }
  chart.SetSize(3000, 2000);
  QWidget form;
  auto* view = new QChartView(&form);
  auto* binder = new ChartBinder(chart, view);
  ASSERT_EQ(view->chart()->series().size(), 1);
  auto* series = qobject_cast<QLineSeries*>(view->chart()->series().front());
  ASSERT_NE(series, nullptr);
  ASSERT_EQ(series->count(), 50);
  EXPECT_DOUBLE_EQ(series->at(9).x(), 10.0);
  EXPECT_DOUBLE_EQ(series->at(9).y(), 25.0);
  EXPECT_DOUBLE_EQ(binder->XAxis()->min(), 0.0);
  EXPECT_DOUBLE_EQ(binder->XAxis()->max(), 50.0);
  EXPECT_EQ(binder->XAxis()->tickCount(), 3);
  EXPECT_DOUBLE_EQ(binder->YAxis()->max(), 30.0);
  EXPECT_TRUE(binder->XAxis()->isVisible());
  EXPECT_FALSE(binder->YAxis()->isVisible());
  EXPECT_EQ(view->size(), QSize(200, 133));
}

TEST(ChartBinder, NewDataAndDisablingShowAfterOneTurn) {
  Chart chart;
  QWidget form;
  auto* view = new QChartView(&form);
  new ChartBinder(chart, view);
  EXPECT_TRUE(view->chart()->series().isEmpty());
  chart.SetDataGridSize(1, 2, 3, 2);
  chart.SetData(3, 1, 7);
  chart.SetEnabled(false);
  RunEventLoopTurn();
  ASSERT_EQ(view->chart()->series().size(), 1);
  EXPECT_DOUBLE_EQ(qobject_cast<QLineSeries*>(view->chart()->series().front())->at(2).x(), 7.0);
  EXPECT_FALSE(view->isEnabled());
}

TEST(ChartBinder, ChartBackgroundFollowsThePalette) {
  Chart chart;
  QWidget form;
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  dark.setColor(QPalette::Text, QColor(250, 250, 250));
  form.setPalette(dark);
  auto* view = new QChartView(&form);
  auto* binder = new ChartBinder(chart, view);
  EXPECT_EQ(view->chart()->backgroundBrush().color(), QColor(20, 20, 20));
  EXPECT_EQ(binder->XAxis()->labelsBrush().color(), QColor(250, 250, 250));
}

}  // namespace
}  // namespace zrsimprp
