#include "zrsim-editor/EditorWindow.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeySequence>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QVBoxLayout>

#include "zrsim-editor/EditMenu.h"
#include "zrsim-editor/EditorError.h"
#include "zrsim-editor/FindingNavigator.h"
#include "zrsim-editor/HelpBrowser.h"
#include "zrsim-editor/LiveLint.h"
#include "zrsim-editor/PersonalSettings.h"
#include "zrsim-editor/PreviewBeside.h"
#include "zrsim-editor/QuestionBox.h"
#include "zrsim-editor/RememberedView.h"
#include "zrsim-editor/StatusLine.h"
#include "zrsim-editor/WarningsBar.h"
#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/lint/PageCheckCause.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsim_editor {

namespace {

// Long enough to let a run of key strokes pass, short enough that the title follows the typing.
constexpr int kModifiedCheckDelayMs = 150;

}  // namespace

EditorWindow::EditorWindow(EditorDocument& document, QWidget* parent) : QDialog(parent), document_(document) {
  properties_ = new zrsimprp::SIMPropertiesWidget(this);
  properties_->Platform().SetDialogParent(this);

  auto* buttons = new QDialogButtonBox(this);
  ok_ = buttons->addButton(QDialogButtonBox::Ok);
  cancel_ = buttons->addButton(QDialogButtonBox::Cancel);
  apply_ = buttons->addButton(QDialogButtonBox::Apply);
  save_as_ = buttons->addButton(tr("Save &As…"), QDialogButtonBox::ActionRole);
  reset_ = buttons->addButton(QDialogButtonBox::Reset);
  help_ = buttons->addButton(QDialogButtonBox::Help);
  preview_ = new PreviewBeside(properties_, this);
  buttons->addButton(preview_->Toggle(), QDialogButtonBox::ActionRole);
  ok_->setToolTip(tr("Save the simulation's options and close the window"));
  apply_->setToolTip(
      tr("Save the simulation's options and keep the window open; enabled when there are "
         "changes to save"));
  save_as_->setToolTip(tr("Save a copy of the project, with these options, under a new file name"));
  reset_->setToolTip(tr("Replace every option by the project's defaults for a new simulation"));
  help_->setToolTip(tr("Explain the options of the shown tab (F1)"));
  connect(ok_, &QPushButton::clicked, this, &EditorWindow::Ok);
  connect(cancel_, &QPushButton::clicked, this, &EditorWindow::reject);
  connect(apply_, &QPushButton::clicked, this, [this] { Apply(); });
  connect(save_as_, &QPushButton::clicked, this, [this] { SaveAs(); });
  connect(reset_, &QPushButton::clicked, this, &EditorWindow::Reset);
  connect(help_, &QPushButton::clicked, this, &EditorWindow::ShowHelp);
  auto* f1 = new QShortcut(QKeySequence::HelpContents, this);
  connect(f1, &QShortcut::activated, this, &EditorWindow::ShowHelp);

  // The written definition is compared with the saved one only after the model settles, never per
  // paint or per key stroke.
  modified_timer_.setSingleShot(true);
  modified_timer_.setInterval(kModifiedCheckDelayMs);
  connect(&modified_timer_, &QTimer::timeout, this, &EditorWindow::CheckModified);
  connect(properties_, &zrsimprp::SIMPropertiesWidget::ModelChanged, this,
          &EditorWindow::ScheduleModifiedCheck);
  connect(properties_, &zrsimprp::SIMPropertiesWidget::TabSwitching, this, &EditorWindow::BeforeTabSwitch);
  connect(properties_, &zrsimprp::SIMPropertiesWidget::TabSwitched, this, &EditorWindow::AfterTabSwitch);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(preview_, 1);
  status_ = new StatusLine(this);
  status_->ClearOnNextStep(properties_->UndoStack());
  connect(properties_, &zrsimprp::SIMPropertiesWidget::StatusMessage, status_, &StatusLine::Show);
  layout->addWidget(status_);
  warnings_ = new WarningsBar(this);
  layout->addWidget(warnings_);
  lint_ = new LiveLint([this] { return QuietDefinition(); }, this);
  connect(properties_, &zrsimprp::SIMPropertiesWidget::ModelChanged, lint_, &LiveLint::Schedule);
  connect(lint_, &LiveLint::Checked, warnings_, &WarningsBar::ShowFindings);
  connect(warnings_, &WarningsBar::FindingActivated, this,
          [this](const zrsimprp::Finding& finding) { FindingNavigator::GoTo(*properties_, finding); });
  layout->addWidget(buttons);
  edit_menu_ = new EditMenu(*layout, *properties_);
  UpdateTitle();
  UpdateButtons();
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

std::shared_ptr<zrsimprp::ProjectSettings> EditorWindow::PersonalStore() const {
  return std::make_shared<PersonalSettings>(document_.Project()->Path(), document_.SimulationName());
}

bool EditorWindow::Load() {
  const auto initialize = [this] {
    properties_->SetProjectDatabase(document_.RoutedDatabase(PersonalStore()));
    properties_->SetDefinition(document_.SavedDefinition());
    properties_->Initialize();
  };
  try {
    try {
      initialize();
    } catch (const std::exception& refused) {
      // What is kept per person never stops a simulation from opening: forget it and try again.
      if (!RememberedView::Forget(document_.Project()->Path(), document_.SimulationName())) throw;
      const std::string reason = ErrorText(refused);
      initialize();
      Tell(RememberedView::ForgottenMessage(document_.SimulationName(), reason));
    }
  } catch (const std::exception& error) {
    Tell("The simulation '" + document_.SimulationName() + "' could not be loaded: " + ErrorText(error));
    return false;
  }
  properties_->RefreshNow();
  RememberSaved();
  ShowWarnings();
  return true;
}

void EditorWindow::ShowWarnings() {
  warnings_->ShowFindings(lint_->Saved(document_.Project(), document_.SavedDefinition()));
}

bool EditorWindow::MaySaveWithNewWarnings(const std::string& text) {
  const std::vector<zrsimprp::Finding> fresh = lint_->NewSinceOpened(text);
  if (fresh.empty()) return true;
  lint_->CheckNow();  // the line under the tabs lists them while the question is asked
  if (Ask(kNewWarningsQuestion, {Choice::kSaveAnyway, Choice::kGoBack}) != Choice::kSaveAnyway) return false;
  lint_->Accept(fresh);
  return true;
}

std::string EditorWindow::QuietDefinition() {
  properties_->Platform().SetQuiet(true);
  std::string text = properties_->Definition();
  properties_->Platform().SetQuiet(false);
  return text;
}

void EditorWindow::BeforeTabSwitch() {
  clean_before_switch_ = !IsModified();
  page_being_left_ = ShownPageName();
  zrsimprp::CModErrorHandling::TakeLastCheckError();  // an earlier check's, already shown
}

void EditorWindow::AfterTabSwitch() {
  ShowPageCheckCause(page_being_left_);
  if (!clean_before_switch_) return;
  clean_before_switch_ = false;
  RememberSaved();
}

std::string EditorWindow::ShownPageName() const {
  // The names `zrsim check` gives the pages, so that the editor's line reads as its report does.
  const zrsimprp::PageEntry* page =
      zrsimprp::PageTable::AtPosition(properties_->CurrentOuterTab(), properties_->CurrentInnerTab());
  return page != nullptr ? page->word : "shown";
}

void EditorWindow::ShowPageCheckCause(const std::string& page) {
  const std::optional<zrsimprp::RuntimeError> error = zrsimprp::CModErrorHandling::TakeLastCheckError();
  warnings_->ShowPageCheckCause(error ? std::optional(zrsimprp::PageCheckCause::Explain(page, *error))
                                      : std::nullopt);
}

bool EditorWindow::ShownPageIsValid() {
  zrsimprp::CModErrorHandling::TakeLastCheckError();
  const std::string page = ShownPageName();
  const bool valid = properties_->IsValid();
  ShowPageCheckCause(page);
  return valid;
}

void EditorWindow::RememberSaved() {
  saved_text_ = QuietDefinition();
  modified_timer_.stop();
  modified_ = saved_text_.empty();
  UpdateTitle();
  UpdateButtons();
}

void EditorWindow::ScheduleModifiedCheck() {
  // Apply is offered at once, so that a click right after typing is never lost; the check that
  // follows takes it back when the edit turned out to change nothing.
  if (!document_.IsReadOnly()) apply_->setEnabled(true);
  modified_timer_.start();
}

void EditorWindow::CheckModified() {
  ++modified_checks_;
  // A text that cannot be written is never taken for "nothing changed".
  const std::string now = QuietDefinition();
  modified_ = now.empty() || now != saved_text_;
  UpdateTitle();
  UpdateButtons();
}

bool EditorWindow::IsModified() {
  if (modified_timer_.isActive()) {
    modified_timer_.stop();
    CheckModified();
  }
  return modified_;
}

bool EditorWindow::Apply() {
  if (document_.IsReadOnly()) return SaveAs();
  if (!IsModified()) {
    UpdateButtons();
    return true;
  }
  // The control shows the page's own message when the shown page is not valid.
  if (!ShownPageIsValid()) return false;
  const std::string text = properties_->Definition();
  if (!text.empty() && !MaySaveWithNewWarnings(text)) return false;
  // Asked before saving; a save by someone else after the answer is still caught by the save itself.
  bool overwrite = false;
  if (!text.empty() && document_.ChangedElsewhere()) {
    if (Ask(kChangedElsewhereQuestion, {Choice::kOverwrite, Choice::kGoBack}) != Choice::kOverwrite)
      return false;
    overwrite = true;
  }
  EditorDocument::SaveOutcome outcome = document_.Save(text, overwrite);
  if (!outcome.saved) {
    Tell(outcome.message);
    return false;
  }
  RememberSaved();
  ShowWarnings();
  return true;
}

bool EditorWindow::SaveAs() {
  if (!ShownPageIsValid()) return false;
  const std::string text = properties_->Definition();
  if (text.empty()) {
    Tell(EditorDocument::kNotWrittenMessage);
    return false;
  }
  if (!MaySaveWithNewWarnings(text)) return false;
  const std::string path = ChooseSaveAsPath();
  if (path.empty()) return false;
  EditorDocument::SaveOutcome outcome = document_.SaveAs(path, text);
  if (!outcome.saved) {
    Tell(outcome.message);
    return false;
  }
  properties_->SetProjectDatabase(document_.RoutedDatabase(PersonalStore()));
  RememberSaved();
  ShowWarnings();
  return true;
}

std::string EditorWindow::ChooseSaveAsPath() {
  if (paths_) return paths_();
  const QFileInfo current(QString::fromStdString(document_.Project()->Path()));
  return QFileDialog::getSaveFileName(this, tr("Save the project as"), current.absolutePath(),
                                      tr("Project files (*.gpkg)"))
      .toStdString();
}

void EditorWindow::Ok() {
  if (!IsModified() || Apply()) accept();
}

void EditorWindow::reject() {
  if (!IsModified()) {
    QDialog::reject();
    return;
  }
  const Choice save = document_.IsReadOnly() ? Choice::kSaveAs : Choice::kSave;
  const Choice choice = Ask(kUnsavedQuestion, {save, Choice::kDiscard, Choice::kGoBack});
  if (choice == Choice::kDiscard) {
    QDialog::reject();
  } else if (choice == save && Apply()) {
    accept();
  }
}

void EditorWindow::Reset() {
  if (IsModified() && Ask(kResetQuestion, {Choice::kDiscard, Choice::kGoBack}) != Choice::kDiscard) return;
  try {
    properties_->ResetDefinition();
  } catch (const std::exception& error) {
    Tell("The default options could not be loaded: " + ErrorText(error));
  }
  properties_->RefreshNow();
  ScheduleModifiedCheck();
}

void EditorWindow::ShowHelp() {
  if (help_browser_ == nullptr) help_browser_ = new HelpBrowser(this);
  help_browser_->show();
  help_browser_->raise();
  help_browser_->ShowSection(
      HelpBrowser::SectionFor(properties_->CurrentOuterTab(), properties_->CurrentInnerTab()));
}

void EditorWindow::Tell(const std::string& text) {
  if (sink_) {
    sink_(text, kTitle);
    return;
  }
  QMessageBox::warning(this, QString::fromUtf8(kTitle), QString::fromStdString(text));
}

EditorWindow::Choice EditorWindow::Ask(const std::string& text, const std::vector<Choice>& choices) {
  if (questions_) return questions_(text, choices);
  return QuestionBox::Ask(this, text, choices);
}

void EditorWindow::UpdateTitle() {
  const QString file = QString::fromStdString(document_.Project()->Path());
  // Edits in a read-only project are unsaved work too (Save As keeps them), so both titles carry the
  // modified marker.
  const QString state = (document_.IsReadOnly() ? tr(" (read-only)") : QString()) + QStringLiteral("[*]");
  setWindowTitle(QString::fromStdString(document_.SimulationName()) + QStringLiteral(" — ") + file + state +
                 QStringLiteral(" — ") + QString::fromUtf8(kTitle));
  setWindowModified(modified_);
}

void EditorWindow::UpdateButtons() {
  const bool read_only = document_.IsReadOnly();
  ok_->setVisible(!read_only);
  apply_->setVisible(!read_only);
  save_as_->setVisible(read_only);
  apply_->setEnabled(modified_);
  cancel_->setText(read_only ? tr("&Close") : tr("Cancel"));
  cancel_->setToolTip(read_only ? tr("Close the window; the read-only project is not changed")
                                : tr("Close the window without saving (asks first when there are changes)"));
}

void EditorWindow::RestoreGeometry() {
  QSettings settings;
  const QByteArray geometry =
      settings
          .value(PersonalSettings::GroupFor(document_.Project()->Path(), document_.SimulationName()) +
                 QStringLiteral("/window/geometry"))
          .toByteArray();
  if (geometry.isEmpty() || !restoreGeometry(geometry)) resize(DefaultSize());
}

QSize EditorWindow::DefaultSize() const {
  const QSize wanted = sizeHint();
  const QScreen* shown_on = screen();
  return shown_on != nullptr ? wanted.boundedTo(shown_on->availableGeometry().size()) : wanted;
}

void EditorWindow::SaveGeometry() {
  QSettings settings;
  settings.setValue(PersonalSettings::GroupFor(document_.Project()->Path(), document_.SimulationName()) +
                        QStringLiteral("/window/geometry"),
                    saveGeometry());
}

void EditorWindow::done(int result) {
  if (isVisible()) SaveGeometry();
  QDialog::done(result);
}

}  // namespace zrsim_editor
