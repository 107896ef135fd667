#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "zrsimprp/host/Grid.h"
#include "zrsimprp/qt/binders/ControlBinder.h"
#include "zrsimprp/qt/grid/GridEditActions.h"
#include "zrsimprp/qt/grid/GridTableModel.h"
#include "zrsimprp/qt/grid/GridTextWidths.h"
#include "zrsimprp/qt/grid/GridView.h"

namespace zrsimprp {

// Grid -> GridView. Cells, colours, alignment and column widths come from the grid; an editor opens
// only where Grid::UserCanEditCell allows it, Enter or leaving the cell commits through UserEditCell,
// Esc cancels; moving the cursor is Grid::UserSelectCell. A column is as wide as the grid asks and
// never narrower than its widest text.
class GridBinder : public ControlBinder {
  Q_OBJECT

 public:
  GridBinder(Grid& grid, GridView* view);

  GridTableModel* Model() const { return model_; }
  // Copy, paste, clear and fill on the view.
  GridEditActions* EditActions() const { return edit_actions_; }
  // How many columns the last refresh measured the texts of (only those whose texts changed).
  int ColumnsMeasured() const { return text_widths_.Measured(); }
  // How many cell and heading texts have been shaped to find their width.
  int TextsShaped() const { return text_widths_.Shaped(); }

  static constexpr int kTwipsPerPixel = 15;

 protected:
  void Mirror() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MirrorColumnWidths(bool shape_changed);
  int WantedWidth(int col) const;
  int LeastWidth(int col) const;
  int TextWidth(const std::string& text) const;
  void MirrorCursor();
  void OnCurrentChanged(const QModelIndex& current);

  Grid& grid_;
  GridView* view_;
  GridTableModel* model_;
  GridEditActions* edit_actions_;
  GridTextWidths text_widths_;
  mutable std::unordered_map<std::string, int> measured_texts_;
  std::vector<int> shown_widths_;
};

}  // namespace zrsimprp
