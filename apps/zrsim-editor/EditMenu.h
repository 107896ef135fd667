#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

class QAction;
class QBoxLayout;
class QMenu;
class QWidget;

namespace zrsimprp {
class GridEditActions;
class SIMPropertiesWidget;
}  // namespace zrsimprp

namespace zrsim_editor {

// The window's Edit menu: the control's undo and redo, named after the step they take back or do
// again ("Undo paste of 281 cells"), with their keys; then copy, paste, delete, fill down and fill
// right of the grid that has the focus (or had it last), run by that grid's own edit actions. The
// grid actions are enabled only while a grid of the control has the focus. The menu shows their keys,
// but the keys themselves are the grid's: the menu's actions answer them only while the menu is open,
// so no key is claimed twice in a window. The menu goes into the menu bar of the window's layout,
// which it makes when the window has none yet.
class EditMenu : public QObject {
  Q_OBJECT

 public:
  EditMenu(QBoxLayout& window_layout, zrsimprp::SIMPropertiesWidget& properties);

  QMenu* Menu() const { return menu_; }
  QAction* UndoAction() const;
  QAction* RedoAction() const;
  QAction* CopyAction() const { return copy_; }
  QAction* PasteAction() const { return paste_; }
  QAction* DeleteAction() const { return delete_; }
  QAction* FillDownAction() const { return fill_down_; }
  QAction* FillRightAction() const { return fill_right_; }

 private:
  QAction* AddGridAction(const QString& text, const QKeySequence& keys,
                         std::function<void(zrsimprp::GridEditActions&)> operation);
  void FollowFocus(QWidget* now);
  void EnableGridActions(bool enabled);

  zrsimprp::SIMPropertiesWidget& properties_;
  QMenu* menu_;
  QAction* copy_ = nullptr;
  QAction* paste_ = nullptr;
  QAction* delete_ = nullptr;
  QAction* fill_down_ = nullptr;
  QAction* fill_right_ = nullptr;
  // The grid the actions work on: the focused one, or the last one focused while the menu is open.
  QPointer<zrsimprp::GridEditActions> grid_;
};

}  // namespace zrsim_editor
