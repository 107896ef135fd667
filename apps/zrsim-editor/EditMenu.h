#pragma once

#include <QObject>

class QAction;
class QBoxLayout;
class QMenu;

namespace zrsimprp {
class SIMPropertiesWidget;
}

namespace zrsim_editor {

// The window's Edit menu: the control's undo and redo, named after the step they take back or do
// again ("Undo paste of 281 cells"), with their keys. It goes into the menu bar of the window's
// layout, which it makes when the window has none yet.
class EditMenu : public QObject {
  Q_OBJECT

 public:
  EditMenu(QBoxLayout& window_layout, zrsimprp::SIMPropertiesWidget& properties);

  QMenu* Menu() const { return menu_; }
  QAction* UndoAction() const;
  QAction* RedoAction() const;

 private:
  zrsimprp::SIMPropertiesWidget& properties_;
  QMenu* menu_;
};

}  // namespace zrsim_editor
