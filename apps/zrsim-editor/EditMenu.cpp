#include "zrsim-editor/EditMenu.h"

#include <QAction>
#include <QBoxLayout>
#include <QMenu>
#include <QMenuBar>

#include "zrsimprp/qt/SIMPropertiesWidget.h"

namespace zrsim_editor {
namespace {

QMenuBar* MenuBarOf(QBoxLayout& layout) {
  if (auto* bar = qobject_cast<QMenuBar*>(layout.menuBar())) return bar;
  auto* bar = new QMenuBar(layout.parentWidget());
  layout.setMenuBar(bar);
  return bar;
}

}  // namespace

EditMenu::EditMenu(QBoxLayout& window_layout, zrsimprp::SIMPropertiesWidget& properties)
    : QObject(&properties), properties_(properties) {
  menu_ = MenuBarOf(window_layout)->addMenu(tr("&Edit"));
  // The control's own actions: one shortcut each, whether the keys come from a field or the menu.
  menu_->addAction(properties.UndoAction());
  menu_->addAction(properties.RedoAction());
}

QAction* EditMenu::UndoAction() const { return properties_.UndoAction(); }
QAction* EditMenu::RedoAction() const { return properties_.RedoAction(); }

}  // namespace zrsim_editor
