#pragma once

#include <QTableView>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zrsimprp {

// The table a grid is drawn in: no Qt headers (the grid's fixed cells are its headers), one block of
// cells selected at a time, and an editor that opens only where the grid allows the edit. The view is as
// tall as its rows (up to kMaxVisibleRows, then it scrolls) and no wider than its columns, so that a
// short table leaves no empty band and its last row is never cut off.
class GridView : public QTableView {
  Q_OBJECT

 public:
  using CanEdit = std::function<bool(int row, int col)>;

  static constexpr int kMaxVisibleRows = 12;

  explicit GridView(QWidget* parent = nullptr);

  void SetCanEdit(CanEdit can_edit) { can_edit_ = std::move(can_edit); }

  // True while an editor is open in a cell.
  bool Editing() const { return state() == EditingState; }

  // The width a cell needs to show `text` whole in this view's font, margins and grid line included.
  int CellWidthFor(const std::string& text) const;
  // A width no smaller than CellWidthFor(text), from each character's advance alone, so without
  // shaping the text; -1 for a text with other than printable ASCII characters.
  int CellWidthBound(const std::string& text) const;
  // Sets the widths of these (column, pixels) pairs, then fits the view to the new content once.
  void ResizeColumns(const std::vector<std::pair<int, int>>& widths);
  // Follows the content's size: the rows' height, the columns' width and the scroll bars they need.
  void FitToContents();

  // Keeps the first column (the row captions) in view while the others scroll sideways. The frozen
  // copy is made only once the table is scrolled, so a table that fits costs nothing.
  void SetFrozenFirstColumn(bool frozen);
  // The view drawn over the first column while it is frozen and the table scrolled; else null.
  QTableView* FrozenColumnView() const { return frozen_view_; }

  // The rows' height, plus the horizontal scroll bar when the columns need more than `width`.
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  // An editor opened in a cell (the block actions watch its keys).
  void EditorOpened(QWidget* editor);

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  bool WouldOpenEditor(const QModelIndex& index, EditTrigger trigger, QEvent* event) const;
  void OnHorizontalScroll(int value);
  void MakeFrozenView();
  void SyncFrozenView();
  void PlaceFrozenView();
  bool NeedsVerticalBar() const;
  bool NeedsHorizontalBar(int width) const;
  int ContentHeight(int width) const;
  int ContentWidth() const;
  int CellMargins() const;

  CanEdit can_edit_;
  bool freeze_first_column_ = false;
  QTableView* frozen_view_ = nullptr;
  bool resizing_columns_ = false;
  int fitted_height_ = -1;
  int fitted_width_ = -1;
  // Each printable ASCII character's advance in the view's font; empty until first asked for.
  mutable std::vector<double> ascii_advances_;
  mutable int cell_margins_ = -1;  // asked of the style once per style
};

}  // namespace zrsimprp
