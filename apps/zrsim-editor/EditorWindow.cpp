#include "zrsim-editor/EditorWindow.h"

#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "zrsim-editor/WarningsBar.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsim_editor {

namespace {

std::string Describe(const std::exception& error) {
  if (const auto* runtime = dynamic_cast<const zrsimprp::RuntimeError*>(&error)) return runtime->description;
  return error.what();
}

}  // namespace

EditorWindow::EditorWindow(EditorDocument& document, QWidget* parent) : QDialog(parent), document_(document) {
  properties_ = new zrsimprp::SIMPropertiesWidget(this);
  properties_->Platform().SetDialogParent(this);

  auto* buttons = new QDialogButtonBox(this);
  ok_ = buttons->addButton(QDialogButtonBox::Ok);
  cancel_ = buttons->addButton(QDialogButtonBox::Cancel);
  apply_ = buttons->addButton(QDialogButtonBox::Apply);
  reset_ = buttons->addButton(QDialogButtonBox::Reset);
  reset_->setToolTip(tr("Replace every option by the project's defaults for a new simulation"));
  connect(ok_, &QPushButton::clicked, this, &EditorWindow::Ok);
  connect(cancel_, &QPushButton::clicked, this, &EditorWindow::reject);
  connect(apply_, &QPushButton::clicked, this, [this] { Apply(); });
  connect(reset_, &QPushButton::clicked, this, &EditorWindow::Reset);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(properties_, 1);
  warnings_ = new WarningsBar(this);
  layout->addWidget(warnings_);
  layout->addWidget(buttons);
  UpdateTitle();
}

void EditorWindow::SetMessageSink(MessageSink sink) {
  sink_ = sink;
  if (!sink) {
    properties_->Platform().SetMessageSink({});
    return;
  }
  properties_->Platform().SetMessageSink([sink](const std::string& text, const std::string& title,
                                                zrsimprp::MessageIcon) { sink(text, title); });
}

bool EditorWindow::Load() {
  try {
    properties_->SetProjectDatabase(document_.Project());
    properties_->SetDefinition(document_.SavedDefinition());
    properties_->Initialize();
  } catch (const std::exception& error) {
    Tell("The simulation '" + document_.SimulationName() + "' could not be loaded: " + Describe(error));
    return false;
  }
  warnings_->ShowFindingsFor(document_.Project(), document_.SavedDefinition());
  return true;
}

bool EditorWindow::Apply() {
  // The control shows the page's own message when the shown page is not valid.
  if (!properties_->IsValid()) return false;
  EditorDocument::SaveOutcome outcome = document_.Save(properties_->Definition());
  if (!outcome.saved) {
    Tell(outcome.message);
    return false;
  }
  warnings_->ShowFindingsFor(document_.Project(), document_.SavedDefinition());
  return true;
}

void EditorWindow::Ok() {
  if (Apply()) accept();
}

void EditorWindow::Reset() {
  try {
    properties_->ResetDefinition();
  } catch (const std::exception& error) {
    Tell("The default options could not be loaded: " + Describe(error));
  }
}

void EditorWindow::Tell(const std::string& text) {
  if (sink_) {
    sink_(text, kTitle);
    return;
  }
  QMessageBox::warning(this, QString::fromUtf8(kTitle), QString::fromStdString(text));
}

void EditorWindow::UpdateTitle() {
  setWindowTitle(
      QString::fromStdString(document_.SimulationName() + " - " + document_.Project()->Path() + " - ") +
      QString::fromUtf8(kTitle));
}

}  // namespace zrsim_editor
