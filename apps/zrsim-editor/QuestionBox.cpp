#include "zrsim-editor/QuestionBox.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>
#include <utility>

namespace zrsim_editor {

namespace {

constexpr const char* kTitle = "zrsim-editor";

using Choice = EditorWindow::Choice;

QString ChoiceText(Choice choice) {
  switch (choice) {
    case Choice::kSave:
      return EditorWindow::tr("&Save");
    case Choice::kDiscard:
      return EditorWindow::tr("&Discard changes");
    case Choice::kGoBack:
      return EditorWindow::tr("&Go back");
    case Choice::kOverwrite:
      return EditorWindow::tr("&Overwrite");
    case Choice::kSaveAs:
      return EditorWindow::tr("Save &As…");
    case Choice::kSaveAnyway:
      return EditorWindow::tr("&Save anyway");
    case Choice::kDelete:
      return EditorWindow::tr("&Delete");
  }
  return QString();
}

QMessageBox::ButtonRole ChoiceRole(Choice choice) {
  switch (choice) {
    case Choice::kSave:
    case Choice::kOverwrite:
    case Choice::kSaveAs:
    case Choice::kSaveAnyway:
      return QMessageBox::AcceptRole;
    case Choice::kDiscard:
    case Choice::kDelete:
      return QMessageBox::DestructiveRole;
    case Choice::kGoBack:
      break;
  }
  return QMessageBox::RejectRole;
}

}  // namespace

Choice QuestionBox::Ask(QWidget* parent, const std::string& text, const std::vector<Choice>& choices) {
  QMessageBox box(QMessageBox::Question, QString::fromUtf8(kTitle), QString::fromStdString(text),
                  QMessageBox::NoButton, parent);
  std::vector<std::pair<QAbstractButton*, Choice>> buttons;
  QPushButton* default_button = nullptr;
  for (const Choice choice : choices) {
    QPushButton* button = box.addButton(ChoiceText(choice), ChoiceRole(choice));
    if (default_button == nullptr && ChoiceRole(choice) != QMessageBox::DestructiveRole)
      default_button = button;
    buttons.emplace_back(button, choice);
  }
  if (default_button != nullptr) box.setDefaultButton(default_button);
  box.exec();
  for (const auto& [button, choice] : buttons) {
    if (box.clickedButton() == button) return choice;
  }
  return Choice::kGoBack;
}

}  // namespace zrsim_editor
