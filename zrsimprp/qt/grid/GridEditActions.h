#pragma once

#include <QObject>
#include <QString>

#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/GridBlockEdit.h"

class QKeyEvent;
class QWidget;

namespace zrsimprp {

class GridView;

// What a person does to blocks of cells in a grid's view, as in a spreadsheet: Ctrl+V pastes the
// clipboard's block at the current cell, Ctrl+C copies the selected block (tab-separated, CR LF),
// Delete clears the selected cells, Ctrl+D fills down and Ctrl+R fills right. Every cell goes through
// the grid's own edit (GridBlockEdit), and each block action is one step a person can undo. Pasting a
// block while a cell's editor is open pastes the block from that cell instead of into the editor.
class GridEditActions : public QObject {
  Q_OBJECT

 public:
  GridEditActions(Grid& grid, GridView* view);

  // How a paste that runs past the last row adds one (the page's own add action); none by default.
  void SetRowAdder(GridBlockEdit::AddRow add_row) { add_row_ = std::move(add_row); }

  void Copy() const;
  void Paste();
  void Clear();
  void FillDown();
  void FillRight();

  // The last action's account ("Pasted 281 cells, skipped 2."), also shown beside the cell.
  const QString& LastMessage() const { return last_message_; }

 signals:
  void Reported(const QString& message);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool HandleViewKey(QKeyEvent* key);
  bool HandleEditorKey(QWidget* editor, QKeyEvent* key);
  void WatchEditor(QWidget* editor);
  CellRange SelectedRange() const;
  void PasteText(const QString& text);
  // Runs one block edit as one undoable step named `what` ("paste"), then reports its count.
  void Apply(const QString& verb, const QString& what, const std::function<BlockEditCount()>& edit);
  void Report(const QString& message);

  Grid& grid_;
  GridView* view_;
  GridBlockEdit::AddRow add_row_;
  QString last_message_;
};

}  // namespace zrsimprp
