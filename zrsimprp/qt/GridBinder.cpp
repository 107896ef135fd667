#include "zrsimprp/qt/GridBinder.h"

#include <QHeaderView>

namespace zrsimprp {

GridBinder::GridBinder(Grid& grid, GridView* view)
    : ControlBinder(grid, view), grid_(grid), view_(view), model_(new GridTableModel(grid, view, this)) {
  view->setModel(model_);
  view->SetCanEdit([this](int row, int col) { return grid_.UserCanEditCell(row, col); });
  connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current, const QModelIndex&) { OnCurrentChanged(current); });
  RefreshNow();
}

void GridBinder::Mirror() {
  const bool shape_changed = model_->rowCount() != grid_.Rows() || model_->columnCount() != grid_.Cols();
  model_->Sync();
  MirrorColumnWidths(shape_changed);
  MirrorCursor();
  if (shape_changed) view_->updateGeometry();
  view_->viewport()->update();
}

void GridBinder::MirrorColumnWidths(bool shape_changed) {
  if (shape_changed || shown_widths_.size() != static_cast<size_t>(grid_.Cols())) {
    shown_widths_.assign(static_cast<size_t>(grid_.Cols()), -1);
  }
  QHeaderView* header = view_->horizontalHeader();
  for (int col = 0; col < grid_.Cols(); ++col) {
    const int twips = grid_.ColWidth(col);
    int& shown = shown_widths_[static_cast<size_t>(col)];
    if (twips == shown && !(twips < 0 && col < grid_.FixedCols())) continue;
    shown = twips;
    if (twips >= 0) {
      header->resizeSection(col, twips / kTwipsPerPixel);
    } else if (col < grid_.FixedCols()) {
      // Label columns without a width of their own fit their captions.
      view_->resizeColumnToContents(col);
    } else {
      header->resizeSection(col, header->defaultSectionSize());
    }
  }
}

void GridBinder::MirrorCursor() {
  if (grid_.Row() < 0 || grid_.Col() < 0) return;
  const QModelIndex cursor = model_->index(grid_.Row(), grid_.Col());
  if (view_->currentIndex() == cursor) return;
  // Moving the cursor closes no editor of another cell that the person is typing in.
  if (view_->Editing()) return;
  view_->selectionModel()->setCurrentIndex(cursor, QItemSelectionModel::ClearAndSelect);
}

void GridBinder::OnCurrentChanged(const QModelIndex& current) {
  if (Mirroring() || !current.isValid()) return;
  grid_.UserSelectCell(current.row(), current.column());
  RefreshNow();
}

}  // namespace zrsimprp
