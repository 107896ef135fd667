#include "zrsim-editor/EditMenu.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QMenu>
#include <QMenuBar>

#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/grid/GridEditActions.h"

namespace zrsim_editor {
namespace {

QMenuBar* MenuBarOf(QBoxLayout& layout) {
  if (auto* bar = qobject_cast<QMenuBar*>(layout.menuBar())) return bar;
  auto* bar = new QMenuBar(layout.parentWidget());
  layout.setMenuBar(bar);
  return bar;
}

// The edit actions of the grid `widget` belongs to (the grid's view, its viewport or a cell's
// editor), or none.
zrsimprp::GridEditActions* GridActionsOf(QWidget* widget) {
  for (QWidget* w = widget; w != nullptr; w = w->parentWidget()) {
    if (auto* actions = w->findChild<zrsimprp::GridEditActions*>(QString(), Qt::FindDirectChildrenOnly)) {
      return actions;
    }
    if (w->isWindow()) break;
  }
  return nullptr;
}

// Menus and the menu bar take the focus only while a person picks an action for the grid before.
bool IsMenu(QWidget* widget) {
  return qobject_cast<QMenu*>(widget) != nullptr || qobject_cast<QMenuBar*>(widget) != nullptr;
}

}  // namespace

EditMenu::EditMenu(QBoxLayout& window_layout, zrsimprp::SIMPropertiesWidget& properties)
    : QObject(&properties), properties_(properties) {
  menu_ = MenuBarOf(window_layout)->addMenu(tr("&Edit"));
  // The control's own actions: one shortcut each, whether the keys come from a field or the menu.
  menu_->addAction(properties.UndoAction());
  menu_->addAction(properties.RedoAction());
  menu_->addSeparator();
  copy_ =
      AddGridAction(tr("&Copy"), QKeySequence::Copy, [](zrsimprp::GridEditActions& grid) { grid.Copy(); });
  paste_ =
      AddGridAction(tr("&Paste"), QKeySequence::Paste, [](zrsimprp::GridEditActions& grid) { grid.Paste(); });
  delete_ = AddGridAction(tr("&Delete"), QKeySequence(Qt::Key_Delete),
                          [](zrsimprp::GridEditActions& grid) { grid.Clear(); });
  fill_down_ = AddGridAction(tr("Fill D&own"), QKeySequence(Qt::CTRL | Qt::Key_D),
                             [](zrsimprp::GridEditActions& grid) { grid.FillDown(); });
  fill_right_ = AddGridAction(tr("Fill &Right"), QKeySequence(Qt::CTRL | Qt::Key_R),
                              [](zrsimprp::GridEditActions& grid) { grid.FillRight(); });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowFocus(now); });
  FollowFocus(QApplication::focusWidget());
}

QAction* EditMenu::AddGridAction(const QString& text, const QKeySequence& keys,
                                 std::function<void(zrsimprp::GridEditActions&)> operation) {
  QAction* action = menu_->addAction(text);
  action->setShortcut(keys);
  // The grid answers these keys itself; the menu only names them.
  action->setShortcutContext(Qt::WidgetShortcut);
  connect(action, &QAction::triggered, this, [this, operation = std::move(operation)] {
    if (grid_ != nullptr) operation(*grid_);
  });
  return action;
}

void EditMenu::FollowFocus(QWidget* now) {
  if (now == nullptr || IsMenu(now)) return;
  zrsimprp::GridEditActions* grid = properties_.isAncestorOf(now) ? GridActionsOf(now) : nullptr;
  grid_ = grid;
  EnableGridActions(grid != nullptr);
}

void EditMenu::EnableGridActions(bool enabled) {
  for (QAction* action : {copy_, paste_, delete_, fill_down_, fill_right_}) action->setEnabled(enabled);
}

QAction* EditMenu::UndoAction() const { return properties_.UndoAction(); }
QAction* EditMenu::RedoAction() const { return properties_.RedoAction(); }

}  // namespace zrsim_editor
