#include "zrsimprp/qt/binders/GridBinder.h"

#include <QEvent>
#include <QHeaderView>
#include <algorithm>
#include <utility>

#include "zrsimprp/qt/EventBoundary.h"

namespace zrsimprp {

GridBinder::GridBinder(Grid& grid, GridView* view)
    : ControlBinder(grid, view),
      grid_(grid),
      view_(view),
      model_(new GridTableModel(grid, view, this)),
      edit_actions_(new GridEditActions(grid, view)),
      text_widths_([this](const std::string& text) { return TextWidth(text); },
                   [view](const std::string& text) { return view->CellWidthBound(text); }) {
  view->setModel(model_);
  view->SetCanEdit([this](int row, int col) {
    bool can_edit = false;
    EventBoundary::Run(this, "Grid_BeforeEdit", [&] { can_edit = grid_.UserCanEditCell(row, col); });
    return can_edit;
  });
  // A heading wider than the page's label widens its column.
  connect(model_, &GridTableModel::HeadingsChanged, this, [this] { ScheduleRefresh(); });
  connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current, const QModelIndex&) { OnCurrentChanged(current); });
  RefreshNow();
}

void GridBinder::Mirror() {
  const bool shape_changed = model_->rowCount() != grid_.Rows() || model_->columnCount() != grid_.Cols();
  model_->Sync();
  // Row captions stay in view while a wide table scrolls.
  if (shape_changed) view_->SetFrozenFirstColumn(grid_.FixedCols() > 0);
  MirrorColumnWidths(shape_changed);
  MirrorCursor();
  view_->viewport()->update();
}

int GridBinder::LeastWidth(int col) const {
  // The grid's width is a floor: a caption or value wider than it widens the column.
  const int twips = grid_.ColWidth(col);
  if (twips >= 0) return twips / kTwipsPerPixel;
  return col >= grid_.FixedCols() ? view_->horizontalHeader()->defaultSectionSize() : 0;
}

int GridBinder::WantedWidth(int col) const {
  int wanted = text_widths_.Width(col);
  for (int row = 0; row < grid_.FixedRows(); ++row) {
    if (const auto* shown = model_->HeadingAt(row, col)) wanted = text_widths_.Widen(wanted, shown->text);
  }
  return wanted;
}

int GridBinder::TextWidth(const std::string& text) const {
  // A pasted block repeats a few values over thousands of cells: each text is shaped once per font.
  const auto known = measured_texts_.find(text);
  if (known != measured_texts_.end()) return known->second;
  const int width = view_->CellWidthFor(text);
  measured_texts_.emplace(text, width);
  return width;
}

void GridBinder::MirrorColumnWidths(bool shape_changed) {
  // A new shape resets every section to the default width: all of them are set again.
  if (shape_changed || shown_widths_.size() != static_cast<size_t>(grid_.Cols())) {
    shown_widths_.assign(static_cast<size_t>(grid_.Cols()), -1);
  }
  text_widths_.Update(grid_, [this](int col) { return LeastWidth(col); });
  std::vector<std::pair<int, int>> changed;
  for (int col = 0; col < grid_.Cols(); ++col) {
    const int wanted = WantedWidth(col);
    int& shown = shown_widths_[static_cast<size_t>(col)];
    if (wanted == shown) continue;
    shown = wanted;
    changed.emplace_back(col, wanted);
  }
  view_->ResizeColumns(changed);
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
  EventBoundary::Run(this, "Grid_RowColChange",
                     [this, &current] { grid_.UserSelectCell(current.row(), current.column()); });
  RefreshNow();
}

bool GridBinder::eventFilter(QObject* watched, QEvent* event) {
  if (watched == view_ && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)) {
    // Every text takes another width in the new font.
    text_widths_.Forget();
    measured_texts_.clear();
    shown_widths_.clear();
    ScheduleRefresh();
  }
  return ControlBinder::eventFilter(watched, event);
}

}  // namespace zrsimprp
