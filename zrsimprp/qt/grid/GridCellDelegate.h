#pragma once

#include <QStyledItemDelegate>

namespace zrsimprp {

// Draws a grid's cells with their own back colours. The cursor cell shows as selected only while the
// grid has the focus, and a fixed (header) cell never does: elsewhere the cursor would look like a
// selection the person never made, and a highlighted caption like a value.
class GridCellDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  // Whether a cell is drawn as selected, given the state the view asked for.
  static bool ShowsSelected(const QStyleOptionViewItem& option, const QModelIndex& index);
};

}  // namespace zrsimprp
