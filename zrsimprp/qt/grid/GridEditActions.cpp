#include "zrsimprp/qt/grid/GridEditActions.h"

#include <QAbstractItemDelegate>
#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>

#include "zrsimprp/host/ClipboardBlock.h"
#include "zrsimprp/qt/UndoRecorder.h"
#include "zrsimprp/qt/grid/GridView.h"

namespace zrsimprp {
namespace {

// Text that holds more than one cell: a separator or a line break before its last character.
bool IsBlock(const QString& text) {
  QString body = text;
  while (body.endsWith('\n') || body.endsWith('\r')) body.chop(1);
  return body.contains('\t') || body.contains('\n') || body.contains('\r');
}

QString CellsWord(int count) {
  return count == 1 ? QStringLiteral("1 cell") : QStringLiteral("%1 cells").arg(count);
}

}  // namespace

GridEditActions::GridEditActions(Grid& grid, GridView* view) : QObject(view), grid_(grid), view_(view) {
  view->installEventFilter(this);
  connect(view, &GridView::EditorOpened, this, &GridEditActions::WatchEditor);
}

void GridEditActions::WatchEditor(QWidget* editor) {
  if (editor != nullptr) editor->installEventFilter(this);
}

CellRange GridEditActions::SelectedRange() const {
  const QModelIndex current = view_->currentIndex();
  CellRange range{current.row(), current.column(), current.row(), current.column()};
  const QModelIndexList selected =
      view_->selectionModel() != nullptr ? view_->selectionModel()->selectedIndexes() : QModelIndexList();
  if (selected.isEmpty()) return range;
  range = CellRange{selected.front().row(), selected.front().column(), selected.front().row(),
                    selected.front().column()};
  for (const QModelIndex& index : selected) {
    range.top = std::min(range.top, index.row());
    range.left = std::min(range.left, index.column());
    range.bottom = std::max(range.bottom, index.row());
    range.right = std::max(range.right, index.column());
  }
  return range;
}

void GridEditActions::Copy() const {
  const CellRange range = SelectedRange();
  if (range.top < 0 || range.left < 0) return;
  const std::string text = ClipboardBlock::Format(GridBlockEdit::Copy(grid_, range));
  QApplication::clipboard()->setText(QString::fromStdString(text));
}

void GridEditActions::Paste() { PasteText(QApplication::clipboard()->text()); }

void GridEditActions::PasteText(const QString& text) {
  const QModelIndex current = view_->currentIndex();
  if (!current.isValid()) return;
  const ClipboardBlock::Rows block = ClipboardBlock::Parse(text.toStdString());
  if (block.empty()) return;
  const int row = current.row();
  const int col = current.column();
  Apply(QStringLiteral("Pasted"), QStringLiteral("paste"),
        [&] { return GridBlockEdit::Paste(grid_, row, col, block, add_row_); });
}

void GridEditActions::Clear() {
  const CellRange range = SelectedRange();
  if (range.top < 0 || range.left < 0) return;
  Apply(QStringLiteral("Cleared"), QStringLiteral("clear"),
        [&] { return GridBlockEdit::Clear(grid_, range); });
}

void GridEditActions::FillDown() {
  const CellRange range = SelectedRange();
  if (range.top < 0 || range.left < 0) return;
  Apply(QStringLiteral("Filled"), QStringLiteral("fill down"),
        [&] { return GridBlockEdit::FillDown(grid_, range); });
}

void GridEditActions::FillRight() {
  const CellRange range = SelectedRange();
  if (range.top < 0 || range.left < 0) return;
  Apply(QStringLiteral("Filled"), QStringLiteral("fill right"),
        [&] { return GridBlockEdit::FillRight(grid_, range); });
}

void GridEditActions::Apply(const QString& verb, const QString& what,
                            const std::function<BlockEditCount()>& edit) {
  const QModelIndex current = view_->currentIndex();
  BlockEditCount count;
  // The step is named after what it changed, which is known only once it ran.
  UndoRecorder::RunNamedAfter(
      this, "Grid_AfterEdit", [&] { count = edit(); },
      [&] { return QStringLiteral("%1 of %2").arg(what, CellsWord(count.applied)); });
  // The cursor stays where the block started, as in a spreadsheet.
  if (current.isValid() && current.row() < grid_.Rows() && current.column() < grid_.Cols()) {
    grid_.UserSelectCell(current.row(), current.column());
  }
  QString message = QStringLiteral("%1 %2").arg(verb, CellsWord(count.applied));
  if (count.skipped > 0) {
    message += QStringLiteral(", skipped %1 that cannot be changed here").arg(count.skipped);
  }
  Report(message + '.');
}

void GridEditActions::Report(const QString& message) {
  last_message_ = message;
  const QRect cell = view_->visualRect(view_->currentIndex());
  if (view_->isVisible())
    QToolTip::showText(view_->viewport()->mapToGlobal(cell.bottomLeft()), message, view_);
  emit Reported(message);
}

bool GridEditActions::HandleViewKey(QKeyEvent* key) {
  if (key->matches(QKeySequence::Paste)) {
    Paste();
  } else if (key->matches(QKeySequence::Copy)) {
    Copy();
  } else if (key->key() == Qt::Key_Delete && key->modifiers() == Qt::NoModifier) {
    Clear();
  } else if (key->key() == Qt::Key_D && key->modifiers() == Qt::ControlModifier) {
    FillDown();
  } else if (key->key() == Qt::Key_R && key->modifiers() == Qt::ControlModifier) {
    FillRight();
  } else {
    return false;
  }
  return true;
}

bool GridEditActions::HandleEditorKey(QWidget* editor, QKeyEvent* key) {
  if (!key->matches(QKeySequence::Paste)) return false;
  const QString text = QApplication::clipboard()->text();
  // One value goes into the editor as typed text does; a block goes into the cells.
  if (!IsBlock(text)) return false;
  auto* delegate = view_->itemDelegate();
  emit delegate->closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
  PasteText(text);
  return true;
}

bool GridEditActions::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) {
    return QObject::eventFilter(watched, event);
  }
  auto* key = static_cast<QKeyEvent*>(event);
  if (watched == view_) {
    if (view_->Editing()) return false;
    if (event->type() == QEvent::ShortcutOverride) {
      // The grid's own keys win over shortcuts of the window around it.
      const bool own =
          key->matches(QKeySequence::Paste) || key->matches(QKeySequence::Copy) ||
          (key->key() == Qt::Key_Delete && key->modifiers() == Qt::NoModifier) ||
          ((key->key() == Qt::Key_D || key->key() == Qt::Key_R) && key->modifiers() == Qt::ControlModifier);
      if (own) event->accept();
      return false;
    }
    return HandleViewKey(key);
  }
  auto* editor = qobject_cast<QWidget*>(watched);
  if (editor == nullptr || event->type() != QEvent::KeyPress) return false;
  return HandleEditorKey(editor, key);
}

}  // namespace zrsimprp
