#include "zrsimprp/host/Chart.h"

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

void Chart::SetChartType(Type type) {
  type_ = type;
  Changed();
}

void Chart::SetSize(int width_twips, int height_twips) {
  width_ = width_twips;
  height_ = height_twips;
  Changed();
}

void Chart::SetXAxis(const Axis& axis) {
  x_axis_ = axis;
  Changed();
}

void Chart::SetYAxis(const Axis& axis) {
  y_axis_ = axis;
  Changed();
}

void Chart::SetDataGridSize(int row_label_count, int column_label_count, int rows, int cols) {
  if (rows < 0 || cols < 0)
    throw RuntimeError(error_number::kInvalidPropertyValue, "Chart", "Invalid property value");
  row_label_count_ = row_label_count;
  column_label_count_ = column_label_count;
  rows_ = rows;
  cols_ = cols;
  data_.assign(static_cast<size_t>(rows) * static_cast<size_t>(cols), 0.0);
  Changed();
}

size_t Chart::Index(int row, int col) const {
  if (row < 1 || row > rows_ || col < 1 || col > cols_) {
    throw RuntimeError(error_number::kInvalidPropertyArrayIndex, "Chart", "Invalid property array index");
  }
  return static_cast<size_t>(row - 1) * static_cast<size_t>(cols_) + static_cast<size_t>(col - 1);
}

double Chart::Data(int row, int col) const { return data_[Index(row, col)]; }

void Chart::SetData(int row, int col, double value) {
  data_[Index(row, col)] = value;
  Changed();
}

}  // namespace zrsimprp
