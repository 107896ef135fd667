#pragma once

#include <vector>

#include "zrsimprp/host/Control.h"

namespace zrsimprp {

// The preview chart: a 2-D XY chart whose data grid holds, for each series s, x values in column
// 2s-1 and y values in column 2s. Data rows and columns count from 1.
class Chart : public Control {
 public:
  enum class Type { kXY2D };
  struct Axis {
    double minimum = 0;
    double maximum = 100;
    double major_division = 10;
    bool shown = true;
  };

  Type ChartType() const { return type_; }
  void SetChartType(Type type);

  int Height() const { return height_; }  // twips
  int Width() const { return width_; }
  void SetSize(int width_twips, int height_twips);

  const Axis& XAxis() const { return x_axis_; }
  const Axis& YAxis() const { return y_axis_; }
  void SetXAxis(const Axis& axis);
  void SetYAxis(const Axis& axis);

  int RowLabelCount() const { return row_label_count_; }
  int ColumnLabelCount() const { return column_label_count_; }
  int RowCount() const { return rows_; }
  int ColumnCount() const { return cols_; }
  // Reshapes the data grid; every value becomes 0.
  void SetDataGridSize(int row_label_count, int column_label_count, int rows, int cols);
  double Data(int row, int col) const;  // error 381 outside 1..RowCount(), 1..ColumnCount()
  void SetData(int row, int col, double value);

 private:
  size_t Index(int row, int col) const;

  Type type_ = Type::kXY2D;
  int height_ = 0;
  int width_ = 0;
  Axis x_axis_;
  Axis y_axis_;
  int row_label_count_ = 1;
  int column_label_count_ = 1;
  int rows_ = 0;
  int cols_ = 0;
  std::vector<double> data_;
};

}  // namespace zrsimprp
