#pragma once

#include <QTableView>
#include <functional>

namespace zrsimprp {

// The table a grid is drawn in: no Qt headers (the grid's fixed cells are its headers), one cell
// selected at a time, and an editor that opens only where the grid allows the edit.
class GridView : public QTableView {
  Q_OBJECT

 public:
  using CanEdit = std::function<bool(int row, int col)>;

  explicit GridView(QWidget* parent = nullptr);

  void SetCanEdit(CanEdit can_edit) { can_edit_ = std::move(can_edit); }
  // The view is as tall as this many rows; more rows scroll.
  void SetVisibleRows(int rows);

  // True while an editor is open in a cell.
  bool Editing() const { return state() == EditingState; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

 private:
  bool WouldOpenEditor(const QModelIndex& index, EditTrigger trigger, QEvent* event) const;
  int ContentHeight() const;

  CanEdit can_edit_;
  int visible_rows_ = 6;
};

}  // namespace zrsimprp
