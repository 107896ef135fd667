#include "zrsim-editor/EditorSession.h"

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <algorithm>
#include <filesystem>

#include "projectdb/EmptyProject.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsim-editor/EditMenu.h"
#include "zrsim-editor/EditorDocument.h"
#include "zrsim-editor/EditorError.h"
#include "zrsim-editor/ImportLayerDialog.h"
#include "zrsim-editor/NewDesignDialog.h"
#include "zrsim-editor/NewSurveyDialog.h"
#include "zrsim-editor/QuestionBox.h"
#include "zrsim-editor/RecentProjects.h"
#include "zrsim-editor/RememberedView.h"
#include "zrsim-editor/SimulationsPanel.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/EngineDefaults.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsim_editor {

namespace {

constexpr const char* kTitle = "zrsim-editor";

// The next identifier after the highest one in use.
template <class Records>
int32_t NextId(const Records& records) {
  int32_t highest = 0;
  for (const auto& record : records) highest = std::max(highest, record.id);
  return highest + 1;
}

}  // namespace

EditorSession::EditorSession(QWidget* parent) : QMainWindow(parent) {
  setWindowTitle(QString::fromUtf8(kTitle));
  simulations_ = new SimulationsPanel(this);
  auto* holder = new QWidget(this);
  auto* row = new QHBoxLayout(holder);
  row->setContentsMargins(4, 4, 0, 4);
  row->addWidget(simulations_);
  simulations_->setMaximumWidth(220);
  setCentralWidget(holder);
  connect(simulations_, &SimulationsPanel::OpenRequested, this, [this](const QString& name) {
    if (!OpenSimulation(name.toStdString())) RefreshSimulations();
  });
  connect(simulations_, &SimulationsPanel::NewRequested, this, [this] { NewSimulation(); });
  connect(simulations_, &SimulationsPanel::DuplicateRequested, this, [this] { DuplicateSimulation(); });
  connect(simulations_, &SimulationsPanel::RenameRequested, this, [this] { RenameSimulation(); });
  connect(simulations_, &SimulationsPanel::DeleteRequested, this, [this] { DeleteSimulation(); });
  BuildMenus();
  RefreshSimulations();
}

EditorSession::~EditorSession() {
  // The form refers to the document: it goes first.
  delete window_;
  window_ = nullptr;
}

void EditorSession::BuildMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  QMenu* create = file->addMenu(tr("&New project"));
  create->addAction(tr("&Empty project…"), this, [this] { NewWithDialog(false); });
  create->addAction(tr("Copy of the &sample project…"), this, [this] { NewWithDialog(true); });
  open_action_ = file->addAction(tr("&Open…"), this, &EditorSession::OpenWithDialog);
  open_action_->setShortcut(QKeySequence::Open);
  recent_menu_ = file->addMenu(tr("Open &recent"));
  file->addSeparator();
  save_action_ = file->addAction(tr("&Save"), this, [this] { Save(); });
  save_action_->setShortcut(QKeySequence::Save);
  QAction* save_as = file->addAction(tr("Save &as…"), this, [this] { SaveAs(); });
  save_as->setShortcut(QKeySequence::SaveAs);
  file->addSeparator();
  QAction* close_action = file->addAction(tr("&Close"), this, &QWidget::close);
  close_action->setShortcut(QKeySequence::Close);
  QMenu* project = menuBar()->addMenu(tr("&Project"));
  project_menu_ = project;
  project_actions_ = {project->addAction(tr("&Import layer…"), this, [this] { ImportLayer(); }),
                      project->addAction(tr("New &design…"), this, [this] { NewDesign(); }),
                      project->addAction(tr("New &survey…"), this, [this] { NewSurvey(); })};
  project_actions_.push_back(save_action_);
  project_actions_.push_back(save_as);
  RefreshRecent();
}

// The form's Edit menu joins the session's menu bar, between File and Project, instead of a second
// bar of its own; it goes with the form it belongs to.
void EditorSession::AdoptEditMenu() {
  if (window_->Edit() == nullptr) return;
  if (QMenuBar* own_bar = qobject_cast<QMenuBar*>(window_->layout()->menuBar())) own_bar->hide();
  menuBar()->insertMenu(project_menu_->menuAction(), window_->Edit()->Menu());
}

void EditorSession::RefreshRecent() {
  recent_menu_->clear();
  for (const std::string& path : RecentProjects::List()) {
    const QString shown = QString::fromStdString(path);
    recent_menu_->addAction(shown, this, [this, path] { OpenProject(path); });
  }
  recent_menu_->setEnabled(!recent_menu_->isEmpty());
}

void EditorSession::RefreshSimulations() {
  const bool open = document_ != nullptr;
  std::vector<std::string> names;
  if (open) {
    try {
      names = document_->Project()->SimulationNames();
    } catch (const std::exception& error) {
      Tell(ErrorText(error));
    }
  }
  simulations_->SetNames(names, open ? document_->SimulationName() : "");
  const bool writable = open && !document_->IsReadOnly();
  for (QPushButton* button : {simulations_->NewButton(), simulations_->DuplicateButton(),
                              simulations_->RenameButton(), simulations_->DeleteButton()}) {
    button->setEnabled(writable);
  }
  for (QAction* action : project_actions_) action->setEnabled(open);
}

bool EditorSession::ShowDocument(std::unique_ptr<EditorDocument> document) {
  auto* window = new EditorWindow(*document);
  if (messages_) window->SetMessageSink(messages_);
  if (questions_) window->SetQuestionSink(questions_);
  if (save_paths_) window->SetPathSink(save_paths_);
  if (!window->Load()) {
    delete window;
    return false;
  }
  window->setWindowFlags(Qt::Widget);
  auto* row = static_cast<QHBoxLayout*>(centralWidget()->layout());
  if (window_ != nullptr) {
    row->removeWidget(window_);
    delete window_;
  }
  window_ = window;
  document_ = std::move(document);
  AdoptEditMenu();
  row->addWidget(window_, 1);
  window_->show();
  if (!isVisible()) {
    const QSize form = window_->DefaultSize();
    resize(form.width() + simulations_->sizeHint().width() + 16,
           form.height() + menuBar()->sizeHint().height());
  }
  setWindowTitle(window_->windowTitle());
  setWindowModified(window_->isWindowModified());
  window_->installEventFilter(this);
  connect(window_, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
  // OK, Cancel and Close of the form end the editor, as they did when the form was the whole program.
  connect(window_, &QDialog::finished, this, [this] {
    closing_ = true;
    close();
  });
  RecentProjects::Add(document_->Project()->Path());
  RefreshRecent();
  RefreshSimulations();
  return true;
}

void EditorSession::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier && window_ != nullptr) {
    window_->reject();
    return;
  }
  QMainWindow::keyPressEvent(event);
}

bool EditorSession::MayLeave() {
  if (window_ == nullptr || !window_->IsModified()) return true;
  const Choice save = document_->IsReadOnly() ? Choice::kSaveAs : Choice::kSave;
  const Choice choice = Ask(kSwitchQuestion, {save, Choice::kDiscard, Choice::kGoBack});
  if (choice == Choice::kDiscard) return true;
  if (choice == Choice::kSave) return window_->Apply();
  if (choice == Choice::kSaveAs) return window_->SaveAs();
  return false;
}

bool EditorSession::OpenProject(const std::string& path, const std::string& simulation) {
  if (!MayLeave()) return false;
  try {
    return ShowDocument(EditorDocument::Open(path, simulation));
  } catch (const std::exception& error) {
    Tell(ErrorText(error));
    return false;
  }
}

bool EditorSession::OpenSimulation(const std::string& name) {
  if (document_ == nullptr) return false;
  if (zrsimprp::TextEquals(name, document_->SimulationName())) return true;
  return OpenProject(document_->Project()->Path(), name);
}

bool EditorSession::NewProject(const std::string& path, bool from_sample) {
  std::error_code error;
  if (std::filesystem::exists(path, error)) {
    Tell("'" + path + "' already exists; a new project is never written over a file.");
    return false;
  }
  if (!MayLeave()) return false;
  try {
    if (from_sample) {
      zrsimprp::SampleProject::Create(path);
    } else {
      zrsimprp::EmptyProject::Create(path);
      // The form shows one simulation: an empty project starts with one of the default options.
      zrsimprp::GeoPackageProject::Open(path)->SaveSimulationDefinition(
          kFirstSimulation, zrsimprp::EmptyProject::DefaultSimulationDefinition());
    }
  } catch (const std::exception& failure) {
    Tell(ErrorText(failure));
    return false;
  }
  try {
    return ShowDocument(EditorDocument::Open(path, ""));
  } catch (const std::exception& failure) {
    Tell(ErrorText(failure));
    return false;
  }
}

bool EditorSession::StartWithoutProject(const std::string& sample_path) {
  const std::string last = RecentProjects::LastExisting();
  if (!last.empty() && OpenProject(last)) return true;
  for (;;) {
    Start start = Start::kQuit;
    if (starts_) {
      start = starts_();
    } else {
      QMessageBox box(QMessageBox::Question, QString::fromUtf8(kTitle),
                      tr("Which project do you want to work on?"), QMessageBox::NoButton, this);
      QAbstractButton* create = box.addButton(tr("&New project…"), QMessageBox::AcceptRole);
      QAbstractButton* open = box.addButton(tr("&Open…"), QMessageBox::AcceptRole);
      QAbstractButton* sample = box.addButton(tr("The &sample project"), QMessageBox::AcceptRole);
      box.addButton(QMessageBox::Cancel);
      box.exec();
      start = box.clickedButton() == create   ? Start::kNewProject
              : box.clickedButton() == open   ? Start::kOpen
              : box.clickedButton() == sample ? Start::kSample
                                              : Start::kQuit;
    }
    if (start == Start::kQuit) return false;
    if (start == Start::kSample && !sample_path.empty() && OpenProject(sample_path)) return true;
    if (start == Start::kOpen) OpenWithDialog();
    if (start == Start::kNewProject) NewWithDialog(false);
    if (document_ != nullptr) return true;
  }
}

bool EditorSession::Save() { return window_ != nullptr && window_->Apply(); }

bool EditorSession::SaveAs() {
  if (window_ == nullptr || !window_->SaveAs()) return false;
  RecentProjects::Add(document_->Project()->Path());
  RefreshRecent();
  RefreshSimulations();
  return true;
}

void EditorSession::OpenWithDialog() {
  const std::string path = open_paths_ ? open_paths_()
                                       : QFileDialog::getOpenFileName(this, tr("Open project"), QString(),
                                                                      tr("Projects (*.gpkg);;All files (*)"))
                                             .toStdString();
  if (!path.empty()) OpenProject(path);
}

void EditorSession::NewWithDialog(bool from_sample) {
  std::string path =
      save_paths_ ? save_paths_()
                  : QFileDialog::getSaveFileName(this, tr("New project"), QString(), tr("Projects (*.gpkg)"),
                                                 nullptr, QFileDialog::DontConfirmOverwrite)
                        .toStdString();
  if (path.empty()) return;
  if (QFileInfo(QString::fromStdString(path)).suffix().isEmpty()) path += ".gpkg";
  NewProject(path, from_sample);
}

std::string EditorSession::UnusedSimulationName(const std::string& base) const {
  const std::vector<std::string> names = document_->Project()->SimulationNames();
  const auto taken = [&](const std::string& name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& existing) { return zrsimprp::TextEquals(existing, name); });
  };
  if (!taken(base)) return base;
  for (int n = 2;; ++n) {
    const std::string name = base + " " + std::to_string(n);
    if (!taken(name)) return name;
  }
}

bool EditorSession::NewSimulation() {
  if (document_ == nullptr) return false;
  const std::string name = AskName("Name of the new simulation:", UnusedSimulationName("Simulation"));
  if (name.empty() || !MayLeave()) return false;
  auto project = document_->Project();
  const bool added = Change([&] {
    const std::string text = zrsimprp::VariantToText(project->EngineDefaults()->DefaultDefinition("SIM"));
    if (project->SaveSimulationDefinitionIfUnchanged(name, "", text) !=
        zrsimprp::GeoPackageProject::SaveOutcome::kSaved) {
      throw zrsimprp::RuntimeError(zrsimprp::error_number::kInvalidProcedureCall, "ProjectDatabase",
                                   "The project already has a simulation named '" + name + "'.");
    }
  });
  if (!added) return false;
  return ShowDocument(EditorDocument::Open(project->Path(), name));
}

bool EditorSession::DuplicateSimulation() {
  if (document_ == nullptr) return false;
  const std::string from = document_->SimulationName();
  const std::string name =
      AskName("Name of the copy of '" + from + "':", UnusedSimulationName(from + " copy"));
  if (name.empty()) return false;
  auto project = document_->Project();
  if (!Change([&] { project->CopySimulation(from, name); })) return false;
  RefreshSimulations();
  return true;
}

bool EditorSession::RenameSimulation() {
  if (document_ == nullptr) return false;
  const std::string from = document_->SimulationName();
  const std::string name = AskName("New name of '" + from + "':", from);
  if (name.empty() || name == from || !MayLeave()) return false;
  auto project = document_->Project();
  if (!Change([&] { project->RenameSimulation(from, name); })) return false;
  RememberedView::Rename(project->Path(), from, name);
  return ShowDocument(EditorDocument::Open(project->Path(), name));
}

bool EditorSession::DeleteSimulation() {
  if (document_ == nullptr) return false;
  const std::string name = document_->SimulationName();
  auto project = document_->Project();
  if (project->SimulationNames().size() < 2) {
    Tell("'" + name + "' is the project's only simulation, so it is kept; add another one first.");
    return false;
  }
  if (Ask("Delete the simulation '" + name + "' from the project? This cannot be undone.",
          {Choice::kDelete, Choice::kGoBack}) != Choice::kDelete) {
    return false;
  }
  if (!Change([&] { project->RemoveSimulation(name); })) return false;
  // What was being edited is gone with the simulation: the next one opens without a question.
  std::unique_ptr<EditorDocument> next = EditorDocument::Open(project->Path(), "");
  return ShowDocument(std::move(next));
}

bool EditorSession::ImportLayer() {
  if (document_ == nullptr) return false;
  auto project = document_->Project();
  std::vector<std::string> layers;
  for (const auto& layer : project->Layers()) layers.push_back(layer.name);
  ImportLayerDialog dialog(layers, this);
  if (!RunDialog(dialog)) return false;
  const zrsimprp::LayerImportOptions options = dialog.Options();
  if (options.kind == 2 && options.parent.empty() && options.make_region.empty()) {
    Tell("A layer of kind 2 (strata) needs a parent layer, or a region made from it.");
    return false;
  }
  zrsimprp::LayerImportOutcome outcome;
  if (!Change([&] { outcome = project->ImportLayer(options); })) return false;
  std::string done = "Imported " + std::to_string(outcome.count) + " features as the layer '" + options.name +
                     "'" + (outcome.crs.empty() ? "" : " in " + outcome.crs) + ".";
  if (outcome.geographic) {
    done +=
        " Its coordinates are degrees, so distances in the simulation will be in degrees: import it again "
        "in metres (Coordinates: the UTM zone of the layer's centre) after removing it with zrsim project "
        "remove-layer.";
  }
  ReloadAfterProjectChange(done);
  return true;
}

bool EditorSession::NewDesign() {
  if (document_ == nullptr) return false;
  auto project = document_->Project();
  std::vector<std::string> layers;
  for (const auto& layer : project->Layers()) layers.push_back(layer.name);
  NewDesignDialog dialog(layers, NextId(project->Designs()), this);
  if (!RunDialog(dialog)) return false;
  if (!Change([&] {
        project->AddDesign(dialog.Id(), dialog.Name(), dialog.DefinitionText(), dialog.StratumLayer());
      })) {
    return false;
  }
  ReloadAfterProjectChange("Added the design " + std::to_string(dialog.Id()) + " " + dialog.Name() + ".");
  return true;
}

bool EditorSession::NewSurvey() {
  if (document_ == nullptr) return false;
  auto project = document_->Project();
  std::vector<std::pair<int32_t, std::string>> designs;
  for (const auto& design : project->Designs()) designs.emplace_back(design.id, design.name);
  NewSurveyDialog dialog(designs, NextId(project->Surveys()), this);
  if (!RunDialog(dialog)) return false;
  if (!Change([&] { project->AddSurvey(dialog.Id(), dialog.Name(), dialog.Status(), dialog.DesignId()); })) {
    return false;
  }
  ReloadAfterProjectChange("Added the survey " + std::to_string(dialog.Id()) + " " + dialog.Name() + ".");
  return true;
}

void EditorSession::ReloadAfterProjectChange(const std::string& done) {
  if (window_ != nullptr && !window_->IsModified()) {
    ShowDocument(EditorDocument::Open(document_->Project()->Path(), document_->SimulationName()));
    Tell(done);
    return;
  }
  Tell(done + " The open simulation offers it once it is saved and opened again.");
}

bool EditorSession::Change(const std::function<void()>& change) {
  try {
    change();
    return true;
  } catch (const std::exception& error) {
    Tell(ErrorText(error));
    return false;
  }
}

void EditorSession::Tell(const std::string& text) {
  if (messages_) {
    messages_(text, kTitle);
    return;
  }
  QMessageBox::information(this, QString::fromUtf8(kTitle), QString::fromStdString(text));
}

EditorSession::Choice EditorSession::Ask(const std::string& text, const std::vector<Choice>& choices) {
  if (questions_) return questions_(text, choices);
  return QuestionBox::Ask(this, text, choices);
}

std::string EditorSession::AskName(const std::string& question, const std::string& suggestion) {
  if (names_) return names_(question, suggestion);
  bool ok = false;
  const QString name =
      QInputDialog::getText(this, QString::fromUtf8(kTitle), QString::fromStdString(question),
                            QLineEdit::Normal, QString::fromStdString(suggestion), &ok);
  return ok ? name.trimmed().toStdString() : std::string();
}

bool EditorSession::RunDialog(QDialog& dialog) {
  if (dialogs_) return dialogs_(dialog);
  return dialog.exec() == QDialog::Accepted;
}

bool EditorSession::eventFilter(QObject* watched, QEvent* event) {
  if (watched == window_ && event->type() == QEvent::ModifiedChange)
    setWindowModified(window_->isWindowModified());
  return QMainWindow::eventFilter(watched, event);
}

void EditorSession::closeEvent(QCloseEvent* event) {
  if (!closing_ && window_ != nullptr && window_->isVisible()) {
    // The form asks about unsaved changes; it stays when the person goes back.
    window_->reject();
    if (window_->isVisible()) {
      event->ignore();
      return;
    }
  }
  event->accept();
}

}  // namespace zrsim_editor
