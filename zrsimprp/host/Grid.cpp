#include "zrsimprp/host/Grid.h"

#include <algorithm>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {
namespace {

RuntimeError IndexError() {
  return RuntimeError(error_number::kInvalidPropertyArrayIndex, "Grid", "Invalid property array index");
}

RuntimeError ValueError() {
  return RuntimeError(error_number::kInvalidPropertyValue, "Grid", "Invalid property value");
}

}  // namespace

Grid::Grid(int rows, int cols, int fixed_rows, int fixed_cols)
    : fixed_rows_(fixed_rows), fixed_cols_(fixed_cols) {
  SetCols(cols);
  SetRows(rows);
  row_ = std::min(fixed_rows, Rows() - 1);
  col_ = std::min(fixed_cols, Cols() - 1);
  ClampCursor();
}

void Grid::SetRows(int rows) {
  if (rows < 0) throw ValueError();
  cells_.resize(static_cast<size_t>(rows), std::vector<Cell>(static_cast<size_t>(cols_)));
  ClampCursor();
  Changed();
}

void Grid::SetCols(int cols) {
  if (cols < 0) throw ValueError();
  for (auto& row : cells_) row.resize(static_cast<size_t>(cols));
  cols_ = cols;
  col_widths_.resize(static_cast<size_t>(cols), -1);
  ClampCursor();
  Changed();
}

int Grid::FixedRows() const { return std::min(fixed_rows_, Rows()); }
int Grid::FixedCols() const { return std::min(fixed_cols_, Cols()); }

void Grid::SetFixedRows(int fixed_rows) {
  if (fixed_rows < 0 || fixed_rows > Rows()) throw ValueError();
  fixed_rows_ = fixed_rows;
  Changed();
}

void Grid::SetFixedCols(int fixed_cols) {
  if (fixed_cols < 0 || fixed_cols > Cols()) throw ValueError();
  fixed_cols_ = fixed_cols;
  Changed();
}

void Grid::CheckCell(int row, int col) const {
  if (row < 0 || row >= Rows() || col < 0 || col >= cols_) throw IndexError();
}

void Grid::CheckRow(int row) const {
  if (row < 0 || row >= Rows()) throw IndexError();
}

void Grid::ClampCursor() {
  if (Rows() == 0 || cols_ == 0) {
    row_ = col_ = -1;
    return;
  }
  row_ = std::clamp(row_, 0, Rows() - 1);
  col_ = std::clamp(col_, 0, cols_ - 1);
}

const std::string& Grid::TextMatrix(int row, int col) const {
  CheckCell(row, col);
  return cells_[static_cast<size_t>(row)][static_cast<size_t>(col)].text;
}

void Grid::SetTextMatrix(int row, int col, const std::string& text) {
  CheckCell(row, col);
  std::string& cell = cells_[static_cast<size_t>(row)][static_cast<size_t>(col)].text;
  if (cell == text) return;
  cell = text;
  Changed();
}

void Grid::SetRow(int row) {
  CheckRow(row);
  row_ = row;
  Changed();
}

void Grid::SetCol(int col) {
  if (col < 0 || col >= cols_) throw IndexError();
  col_ = col;
  Changed();
}

void Grid::SetEditable(bool editable) {
  if (editable_ == editable) return;
  editable_ = editable;
  Changed();
}

void Grid::SetBackColorFixed(Color color) {
  back_color_fixed_ = color;
  Changed();
}

Color Grid::CellBackColor(int row, int col) const {
  CheckCell(row, col);
  const Cell& cell = cells_[static_cast<size_t>(row)][static_cast<size_t>(col)];
  if (cell.back_color) return *cell.back_color;
  return IsFixedCell(row, col) ? back_color_fixed_ : BackColor();
}

template <class Apply>
void Grid::ForRange(int row1, int col1, int row2, int col2, Apply apply) {
  CheckCell(row1, col1);
  CheckCell(row2, col2);
  const int top = std::min(row1, row2);
  const int bottom = std::max(row1, row2);
  const int left = std::min(col1, col2);
  const int right = std::max(col1, col2);
  for (int r = top; r <= bottom; ++r) {
    auto& row = cells_[static_cast<size_t>(r)];
    for (int c = left; c <= right; ++c) apply(row[static_cast<size_t>(c)]);
  }
  Changed();
}

void Grid::SetCellBackColor(int row1, int col1, int row2, int col2, Color color) {
  ForRange(row1, col1, row2, col2, [&color](Cell& cell) { cell.back_color = color; });
}

CellAlignment Grid::CellAlignmentAt(int row, int col) const {
  CheckCell(row, col);
  return cells_[static_cast<size_t>(row)][static_cast<size_t>(col)].alignment;
}

void Grid::SetCellAlignment(int row1, int col1, int row2, int col2, CellAlignment alignment) {
  ForRange(row1, col1, row2, col2, [alignment](Cell& cell) { cell.alignment = alignment; });
}

int Grid::ColWidth(int col) const {
  if (col < 0 || col >= cols_) throw IndexError();
  return col_widths_[static_cast<size_t>(col)];
}

void Grid::SetColWidth(int col, int twips) {
  if (col < 0 || col >= cols_) throw IndexError();
  col_widths_[static_cast<size_t>(col)] = twips;
  Changed();
}

void Grid::AddItem(const std::string& tab_separated_cells) {
  std::vector<Cell> row(static_cast<size_t>(cols_));
  size_t start = 0;
  for (size_t c = 0; c < row.size() && start <= tab_separated_cells.size(); ++c) {
    const size_t tab = tab_separated_cells.find('\t', start);
    const size_t end = tab == std::string::npos ? tab_separated_cells.size() : tab;
    row[c].text = tab_separated_cells.substr(start, end - start);
    if (tab == std::string::npos) break;
    start = tab + 1;
  }
  cells_.push_back(std::move(row));
  ClampCursor();
  Changed();
}

void Grid::RemoveItem(int row) {
  CheckRow(row);
  cells_.erase(cells_.begin() + row);
  ClampCursor();
  Changed();
}

void Grid::InsertRow(int row) {
  if (row < 0 || row > Rows()) throw IndexError();
  cells_.insert(cells_.begin() + row, std::vector<Cell>(static_cast<size_t>(cols_)));
  ClampCursor();
  Changed();
}

std::unique_ptr<ControlState> Grid::SaveState() const {
  return MakeState(
      Content(cells_, cols_, fixed_rows_, fixed_cols_, editable_, back_color_fixed_, col_widths_));
}

void Grid::RestoreState(const ControlState& state) {
  std::tie(cells_, cols_, fixed_rows_, fixed_cols_, editable_, back_color_fixed_, col_widths_) =
      RestoreOwnState<Content>(state);
  ClampCursor();
  Changed();
}

bool Grid::UserCanEditCell(int row, int col) {
  if (!UserSelectCell(row, col)) return false;
  if (!Enabled() || !Visible() || !editable_ || IsFixedCell(row, col)) return false;
  bool cancel = false;
  if (before_edit_) before_edit_(row, col, cancel);
  return !cancel;
}

bool Grid::UserEditCell(int row, int col, const std::string& text) {
  if (!UserCanEditCell(row, col)) return false;
  SetTextMatrix(row, col, text);
  return true;
}

bool Grid::UserSelectCell(int row, int col) {
  if (row < 0 || row >= Rows() || col < 0 || col >= cols_) return false;
  if (row_ != row || col_ != col) {
    row_ = row;
    col_ = col;
    Changed();
  }
  return true;
}

}  // namespace zrsimprp
