#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "zrsimprp/host/Control.h"

namespace zrsimprp {

enum class CellAlignment { kGeneral, kLeftCenter, kCenterCenter, kRightCenter };

// A table of text cells with fixed (header) rows and columns. Rows and columns count from 0; a cell is
// fixed when its row is below FixedRows() or its column below FixedCols(). A cell outside the grid
// raises error 381. A cell that was never painted shows the grid's normal back colour, or the fixed
// colour when it is a fixed cell. Appending a row or a column costs amortised O(1) per row.
class Grid : public Control {
 public:
  using BeforeEditHandler = std::function<void(int row, int col, bool& cancel)>;

  Grid(int rows = 2, int cols = 2, int fixed_rows = 1, int fixed_cols = 1);

  int Rows() const { return static_cast<int>(cells_.size()); }
  void SetRows(int rows);  // growing adds empty rows, shrinking drops the last ones
  int Cols() const { return cols_; }
  void SetCols(int cols);  // growing adds empty cells to every row, shrinking drops the last ones
  int FixedRows() const;
  void SetFixedRows(int fixed_rows);
  int FixedCols() const;
  void SetFixedCols(int fixed_cols);
  bool IsFixedCell(int row, int col) const { return row < FixedRows() || col < FixedCols(); }

  const std::string& TextMatrix(int row, int col) const;
  void SetTextMatrix(int row, int col, const std::string& text);

  // The cursor (current cell); -1 when the grid has no rows or no columns.
  int Row() const { return row_; }
  void SetRow(int row);
  int Col() const { return col_; }
  void SetCol(int col);

  bool Editable() const { return editable_; }
  void SetEditable(bool editable);

  // BackColor() (from Control) is the normal cell colour; BackColorFixed() the grey of fixed cells.
  Color BackColorFixed() const { return back_color_fixed_; }
  void SetBackColorFixed(Color color);
  Color CellBackColor(int row, int col) const;
  void SetCellBackColor(int row1, int col1, int row2, int col2, Color color);
  CellAlignment CellAlignmentAt(int row, int col) const;
  void SetCellAlignment(int row1, int col1, int row2, int col2, CellAlignment alignment);

  int ColWidth(int col) const;  // twips; -1 means the view's own width
  void SetColWidth(int col, int twips);

  void AddItem(const std::string& tab_separated_cells = "");  // a row at the end
  void RemoveItem(int row);
  void InsertRow(int row);  // an empty row before `row` (Rows() appends)

  void SetBeforeEditHandler(BeforeEditHandler handler) { before_edit_ = std::move(handler); }

  // A person wants to edit a cell: the cursor moves there, and the edit is refused when the grid is
  // disabled or not editable, the cell is fixed or outside the grid, or the before-edit handler cancels.
  bool UserCanEditCell(int row, int col);
  // A person finished editing a cell: applied only where UserCanEditCell allows it.
  bool UserEditCell(int row, int col, const std::string& text);
  // A person moved the cursor (clicked a cell); refused outside the grid.
  bool UserSelectCell(int row, int col);

  // Cells, shape, widths and colours; the cursor stays where it is (kept inside the grid).
  std::unique_ptr<ControlState> SaveState() const override;
  void RestoreState(const ControlState& state) override;

 private:
  struct Cell {
    std::string text;
    std::optional<Color> back_color;
    CellAlignment alignment = CellAlignment::kGeneral;

    bool operator==(const Cell& other) const {
      return text == other.text && back_color == other.back_color && alignment == other.alignment;
    }
  };
  using Content = std::tuple<std::vector<std::vector<Cell>>, int, int, int, bool, Color, std::vector<int>>;

  void CheckCell(int row, int col) const;
  void CheckRow(int row) const;
  void ClampCursor();
  template <class Apply>
  void ForRange(int row1, int col1, int row2, int col2, Apply apply);

  std::vector<std::vector<Cell>> cells_;
  int cols_ = 0;
  int fixed_rows_ = 0;
  int fixed_cols_ = 0;
  int row_ = -1;
  int col_ = -1;
  bool editable_ = false;
  Color back_color_fixed_ = Color::System(SystemColorRole::kButtonFace);
  std::vector<int> col_widths_;
  BeforeEditHandler before_edit_;
};

}  // namespace zrsimprp
