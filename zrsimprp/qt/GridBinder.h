#pragma once

#include <vector>

#include "zrsimprp/host/Grid.h"
#include "zrsimprp/qt/ControlBinder.h"
#include "zrsimprp/qt/GridTableModel.h"
#include "zrsimprp/qt/GridView.h"

namespace zrsimprp {

// Grid -> GridView. Cells, colours, alignment and column widths come from the grid; an editor opens
// only where Grid::UserCanEditCell allows it, Enter or leaving the cell commits through UserEditCell,
// Esc cancels; moving the cursor is Grid::UserSelectCell.
class GridBinder : public ControlBinder {
  Q_OBJECT

 public:
  GridBinder(Grid& grid, GridView* view);

  GridTableModel* Model() const { return model_; }

  static constexpr int kTwipsPerPixel = 15;

 protected:
  void Mirror() override;

 private:
  void MirrorColumnWidths(bool shape_changed);
  void MirrorCursor();
  void OnCurrentChanged(const QModelIndex& current);

  Grid& grid_;
  GridView* view_;
  GridTableModel* model_;
  std::vector<int> shown_widths_;
};

}  // namespace zrsimprp
