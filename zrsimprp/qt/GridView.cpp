#include "zrsimprp/qt/GridView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

namespace zrsimprp {

GridView::GridView(QWidget* parent) : QTableView(parent) {
  horizontalHeader()->hide();
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setDefaultSectionSize(72);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                  QAbstractItemView::AnyKeyPressed);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setTabKeyNavigation(false);  // Tab walks the form, arrows walk the cells
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void GridView::SetVisibleRows(int rows) {
  visible_rows_ = std::max(1, rows);
  updateGeometry();
}

int GridView::ContentHeight() const {
  const int rows = model() != nullptr ? model()->rowCount() : 0;
  const int shown = std::clamp(rows, 1, visible_rows_);
  return shown * verticalHeader()->defaultSectionSize() + 2 * frameWidth() +
         horizontalScrollBar()->sizeHint().height();
}

QSize GridView::sizeHint() const { return QSize(QTableView::sizeHint().width(), ContentHeight()); }
QSize GridView::minimumSizeHint() const {
  return QSize(QTableView::minimumSizeHint().width(), ContentHeight());
}

bool GridView::WouldOpenEditor(const QModelIndex& index, EditTrigger trigger, QEvent* event) const {
  if (!index.isValid() || model() == nullptr) return false;
  if (!(model()->flags(index) & Qt::ItemIsEditable)) return false;
  if (state() == EditingState && currentIndex() == index) return false;
  if (trigger == AllEditTriggers) return true;
  if (!(editTriggers() & trigger)) return false;
  if (trigger == AnyKeyPressed) {
    auto* key =
        event != nullptr && event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    return key != nullptr && !key->text().isEmpty() && key->text().at(0).isPrint();
  }
  return true;
}

bool GridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  if (WouldOpenEditor(index, trigger, event) && can_edit_ && !can_edit_(index.row(), index.column())) {
    return false;
  }
  return QTableView::edit(index, trigger, event);
}

}  // namespace zrsimprp
