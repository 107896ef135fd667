#include "zrsimprp/qt/grid/GridCellDelegate.h"

#include <QAbstractItemView>

#include "zrsimprp/qt/grid/GridTableModel.h"

namespace zrsimprp {
namespace {

bool ViewHasFocus(const QWidget* widget) {
  const auto* view = qobject_cast<const QAbstractItemView*>(widget);
  if (view == nullptr) return widget != nullptr && widget->hasFocus();
  return view->hasFocus() || view->viewport()->hasFocus();
}

}  // namespace

bool GridCellDelegate::ShowsSelected(const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (!(option.state & QStyle::State_Selected)) return false;
  if (index.data(GridTableModel::kFixedCellRole).toBool()) return false;
  return ViewHasFocus(option.widget);
}

void GridCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  if (ShowsSelected(option, index) || !(option.state & QStyle::State_Selected)) {
    QStyledItemDelegate::paint(painter, option, index);
    return;
  }
  QStyleOptionViewItem plain(option);
  plain.state &= ~QStyle::State_Selected;
  QStyledItemDelegate::paint(painter, plain, index);
}

}  // namespace zrsimprp
