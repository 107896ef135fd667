#include "zrsimprp/qt/grid/GridTextWidths.h"

#include <algorithm>

namespace zrsimprp {

void GridTextWidths::Update(const Grid& grid, const Floor& floor) {
  measured_ = 0;
  columns_.resize(static_cast<size_t>(grid.Cols()));
  for (int col = 0; col < grid.Cols(); ++col) {
    Column& column = columns_[static_cast<size_t>(col)];
    const int least = floor(col);
    // Texts skipped against another least width may need measuring against this one.
    if (column.floor == least && SameTexts(grid, col, column)) continue;
    column.floor = least;
    MeasureColumn(grid, col, column);
    ++measured_;
  }
}

int GridTextWidths::Width(int col) const {
  if (col < 0 || col >= static_cast<int>(columns_.size())) return 0;
  return columns_[static_cast<size_t>(col)].width;
}

int GridTextWidths::Widen(int width, const std::string& text) const {
  if (text.empty()) return width;
  const int bound = bound_(text);
  if (bound >= 0 && bound <= width) return width;
  ++shaped_;
  return std::max(width, measure_(text));
}

bool GridTextWidths::SameTexts(const Grid& grid, int col, const Column& column) {
  if (column.texts.size() != static_cast<size_t>(grid.Rows())) return false;
  for (int row = 0; row < grid.Rows(); ++row) {
    if (column.texts[static_cast<size_t>(row)] != grid.TextMatrix(row, col)) return false;
  }
  return true;
}

void GridTextWidths::MeasureColumn(const Grid& grid, int col, Column& column) const {
  column.texts.resize(static_cast<size_t>(grid.Rows()));
  column.width = std::max(column.floor, 0);
  for (int row = 0; row < grid.Rows(); ++row) {
    std::string& kept = column.texts[static_cast<size_t>(row)];
    kept = grid.TextMatrix(row, col);
    column.width = Widen(column.width, kept);
  }
}

}  // namespace zrsimprp
