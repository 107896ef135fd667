#pragma once

#include <functional>
#include <string>

#include "zrsimprp/host/ClipboardBlock.h"
#include "zrsimprp/host/Grid.h"

namespace zrsimprp {

// A rectangle of cells, rows and columns inclusive.
struct CellRange {
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;
};

// How many cells a block edit changed through the grid and how many the grid refused (fixed cells,
// greyed cells, cells the before-edit handler cancels).
struct BlockEditCount {
  int applied = 0;
  int skipped = 0;
};

// What a person does to many cells at once, done cell by cell through Grid::UserEditCell, so that
// every cell gets the same checks as one typed by hand. A block never grows a grid by itself: rows
// are added only through `add_row`, the page's own action, and columns never.
class GridBlockEdit {
 public:
  // Asked for one more row; false when the page cannot add one.
  using AddRow = std::function<bool()>;

  // Puts `block` with its first cell at (row, col), or, from a heading, at the first cell below and
  // right of the headings (a table with no rows yet has only its heading to start from). What lies
  // past the last column, or past the last row when no row can be added, is left out and not counted.
  static BlockEditCount Paste(Grid& grid, int row, int col, const ClipboardBlock::Rows& block,
                              const AddRow& add_row = nullptr);
  // Empties every cell of `range`.
  static BlockEditCount Clear(Grid& grid, const CellRange& range);
  // Copies each column's first cell of `range` into the cells below it in the range.
  static BlockEditCount FillDown(Grid& grid, const CellRange& range);
  // Copies each row's first cell of `range` into the cells right of it in the range.
  static BlockEditCount FillRight(Grid& grid, const CellRange& range);
  // The texts of `range`, row by row.
  static ClipboardBlock::Rows Copy(const Grid& grid, const CellRange& range);

 private:
  static CellRange Clipped(const Grid& grid, const CellRange& range);
  static void Edit(Grid& grid, int row, int col, const std::string& text, BlockEditCount& count);
};

}  // namespace zrsimprp
