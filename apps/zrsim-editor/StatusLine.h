#pragma once

#include <QLabel>
#include <QTimer>

class QUndoStack;

namespace zrsim_editor {

// The line under the pages that tells what a block action did to a grid ("Pasted 281 cells, skipped
// 2 that cannot be changed here."). It says it until the next edit, undo or redo, or for a while,
// and is hidden when there is nothing to say.
class StatusLine : public QLabel {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent = nullptr);

  // The next step on `stack` (an edit, an undo, a redo) clears the line.
  void ClearOnNextStep(QUndoStack* stack);

  void Show(const QString& message);
  void Clear();

  // How long a message stays when nothing else happens.
  static constexpr int kShownMs = 10000;

 private:
  QTimer expiry_;
};

}  // namespace zrsim_editor
