#pragma once

#include <QAbstractTableModel>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "zrsimprp/control/StrataHeadings.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/qt/grid/GridCellColors.h"

namespace zrsimprp {

// The Qt item model over a headless Grid: every cell, fixed ones included, is an item (fixed cells are
// drawn grey like headers, the Qt headers themselves are hidden). Values are read from the grid when
// drawn; an edit goes through Grid::UserEditCell, and the cell then shows the grid's text.
class GridTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // True for a fixed (header) cell: the view never paints it as selected.
  static constexpr int kFixedCellRole = Qt::UserRole + 1;

  // `palette_source` is the widget whose palette resolves the grid's system colours.
  GridTableModel(Grid& grid, QWidget* palette_source, QObject* parent);

  // The headless grid the table shows.
  const Grid& Model() const { return grid_; }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  // Brings the item model in step with the grid: a reset when its shape changed, else one repaint.
  void Sync();

  // Strata headings shown in row `row` from column `first_col` on, with their tooltips, for as long
  // as the grid's own texts there are the headings' labels (a grid of other strata shows its texts).
  // The headings are shared by every strata table of the control.
  void SetColumnHeadings(int row, int first_col,
                         std::shared_ptr<const std::vector<StrataHeadings::Heading>> headings);
  const std::vector<StrataHeadings::Heading>& Headings() const { return *headings_; }
  // The heading shown in cell (row, col), or null.
  const StrataHeadings::Heading* HeadingAt(int row, int col) const;

 signals:
  void HeadingsChanged();

 private:
  bool InGrid(const QModelIndex& index) const;
  // Which of the kinds a person tells apart the cell is; none for a colour the page chose itself.
  std::optional<GridCellColors::Kind> KindOf(int row, int col) const;

  Grid& grid_;
  QPointer<QWidget> palette_source_;
  int rows_ = 0;
  int cols_ = 0;
  int heading_row_ = -1;
  int heading_first_col_ = 0;
  std::shared_ptr<const std::vector<StrataHeadings::Heading>> headings_ =
      std::make_shared<const std::vector<StrataHeadings::Heading>>();
};

}  // namespace zrsimprp
