#include "zrsimprp/host/GridBlockEdit.h"

#include <algorithm>

namespace zrsimprp {

CellRange GridBlockEdit::Clipped(const Grid& grid, const CellRange& range) {
  CellRange clipped;
  clipped.top = std::max(std::min(range.top, range.bottom), 0);
  clipped.left = std::max(std::min(range.left, range.right), 0);
  clipped.bottom = std::min(std::max(range.top, range.bottom), grid.Rows() - 1);
  clipped.right = std::min(std::max(range.left, range.right), grid.Cols() - 1);
  return clipped;
}

void GridBlockEdit::Edit(Grid& grid, int row, int col, const std::string& text, BlockEditCount& count) {
  if (grid.UserEditCell(row, col, text)) {
    ++count.applied;
  } else {
    ++count.skipped;
  }
}

BlockEditCount GridBlockEdit::Paste(Grid& grid, int row, int col, const ClipboardBlock::Rows& block,
                                    const AddRow& add_row) {
  BlockEditCount count;
  if (row < 0 || col < 0) return count;
  row = std::max(row, grid.FixedRows());
  col = std::max(col, grid.FixedCols());
  if (col >= grid.Cols()) return count;
  for (size_t r = 0; r < block.size(); ++r) {
    const int target_row = row + static_cast<int>(r);
    while (target_row >= grid.Rows()) {
      const int rows_before = grid.Rows();
      // An action that adds no row would otherwise be asked again for ever.
      if (!add_row || !add_row() || grid.Rows() <= rows_before) return count;
    }
    const auto& cells = block[r];
    for (size_t c = 0; c < cells.size(); ++c) {
      const int target_col = col + static_cast<int>(c);
      if (target_col >= grid.Cols()) break;
      Edit(grid, target_row, target_col, cells[c], count);
    }
  }
  return count;
}

BlockEditCount GridBlockEdit::Clear(Grid& grid, const CellRange& range) {
  BlockEditCount count;
  const CellRange cells = Clipped(grid, range);
  for (int r = cells.top; r <= cells.bottom; ++r) {
    for (int c = cells.left; c <= cells.right; ++c) {
      // A fixed cell is a heading: it is not part of what a person clears.
      if (grid.IsFixedCell(r, c)) continue;
      Edit(grid, r, c, "", count);
    }
  }
  return count;
}

BlockEditCount GridBlockEdit::FillDown(Grid& grid, const CellRange& range) {
  BlockEditCount count;
  const CellRange cells = Clipped(grid, range);
  for (int c = cells.left; c <= cells.right; ++c) {
    const std::string text = grid.TextMatrix(cells.top, c);
    for (int r = cells.top + 1; r <= cells.bottom; ++r) Edit(grid, r, c, text, count);
  }
  return count;
}

BlockEditCount GridBlockEdit::FillRight(Grid& grid, const CellRange& range) {
  BlockEditCount count;
  const CellRange cells = Clipped(grid, range);
  for (int r = cells.top; r <= cells.bottom; ++r) {
    const std::string text = grid.TextMatrix(r, cells.left);
    for (int c = cells.left + 1; c <= cells.right; ++c) Edit(grid, r, c, text, count);
  }
  return count;
}

ClipboardBlock::Rows GridBlockEdit::Copy(const Grid& grid, const CellRange& range) {
  ClipboardBlock::Rows rows;
  const CellRange cells = Clipped(grid, range);
  for (int r = cells.top; r <= cells.bottom; ++r) {
    std::vector<std::string> row;
    for (int c = cells.left; c <= cells.right; ++c) row.push_back(grid.TextMatrix(r, c));
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace zrsimprp
