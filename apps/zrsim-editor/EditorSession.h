#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "zrsim-editor/EditorWindow.h"

class QAction;
class QDialog;
class QMenu;

namespace zrsim_editor {

class EditorDocument;
class SimulationsPanel;

// The editor as a person lives in it: the properties form of one simulation (an EditorWindow) with the
// File menu (new, open, recent, save, save as, close), the Project menu (import a layer, new design,
// new survey) and the list of the project's simulations beside the pages. Opening another simulation
// or project replaces the form, after asking about unsaved changes. Every change of the project goes
// through the same GeoPackageProject calls as `zrsim project`, so the checks and refusals are the same.
class EditorSession : public QMainWindow {
  Q_OBJECT

 public:
  using Choice = EditorWindow::Choice;
  // Asks for a name ("" when the person cancels), showing `suggestion` first.
  using NameSink = std::function<std::string(const std::string& question, const std::string& suggestion)>;
  // Shows a dialog and tells whether the person accepted it.
  using DialogSink = std::function<bool(QDialog& dialog)>;
  // What to do when the editor starts without a project and none was opened before.
  enum class Start { kNewProject, kOpen, kSample, kQuit };
  using StartSink = std::function<Start()>;

  explicit EditorSession(QWidget* parent = nullptr);
  ~EditorSession() override;

  // Opens a simulation (the first when `simulation` is "") of a project, after asking about unsaved
  // changes of the open one. False, after a message, when it could not be opened; the open one stays.
  bool OpenProject(const std::string& path, const std::string& simulation = "");
  // Another simulation of the open project, asking about unsaved changes first.
  bool OpenSimulation(const std::string& name);
  // Writes a new project (empty, with one simulation of the default options, or a copy of the
  // sample) and opens it. Never replaces a file.
  bool NewProject(const std::string& path, bool from_sample);
  // Replaces the form by one of `document`; false (after a message; the old form stays) when the
  // control cannot load it. Does not ask about unsaved changes.
  bool ShowDocument(std::unique_ptr<EditorDocument> document);
  // With no project named: the last one opened, or the person's choice of a new, an existing or the
  // sample project. False when nothing was opened.
  bool StartWithoutProject(const std::string& sample_path);

  // File menu.
  bool Save();
  bool SaveAs();
  void OpenWithDialog();
  void NewWithDialog(bool from_sample);

  // The simulations list.
  bool NewSimulation();
  bool DuplicateSimulation();
  bool RenameSimulation();
  bool DeleteSimulation();

  // Project menu.
  bool ImportLayer();
  bool NewDesign();
  bool NewSurvey();

  EditorWindow* Window() const { return window_; }
  EditorDocument* Document() const { return document_.get(); }
  SimulationsPanel& Simulations() const { return *simulations_; }
  QMenu* RecentMenu() const { return recent_menu_; }
  QAction* SaveAction() const { return save_action_; }
  QAction* OpenAction() const { return open_action_; }

  void SetMessageSink(EditorWindow::MessageSink sink) { messages_ = std::move(sink); }
  void SetQuestionSink(EditorWindow::QuestionSink sink) { questions_ = std::move(sink); }
  // Who names a project to open, and a file to write.
  void SetOpenPathSink(EditorWindow::PathSink sink) { open_paths_ = std::move(sink); }
  void SetSavePathSink(EditorWindow::PathSink sink) { save_paths_ = std::move(sink); }
  void SetNameSink(NameSink sink) { names_ = std::move(sink); }
  void SetDialogSink(DialogSink sink) { dialogs_ = std::move(sink); }
  void SetStartSink(StartSink sink) { starts_ = std::move(sink); }

  static constexpr const char* kSwitchQuestion =
      "The open simulation has changes that are not saved. Save them before opening another?";
  static constexpr const char* kFirstSimulation = "Simulation 1";

 protected:
  void closeEvent(QCloseEvent* event) override;
  // Esc pressed outside the form (in the simulations list) cancels as it does in the form.
  void keyPressEvent(QKeyEvent* event) override;
  // Mirrors the form's unsaved-changes marker into the title bar.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus();
  void RefreshRecent();
  void AdoptEditMenu();
  void RefreshSimulations();
  // True when the open simulation may be left: nothing unsaved, saved, or thrown away by choice.
  bool MayLeave();
  // Opens the same simulation again, so the form offers what the project now has; only without edits.
  void ReloadAfterProjectChange(const std::string& done);
  void Tell(const std::string& text);
  Choice Ask(const std::string& text, const std::vector<Choice>& choices);
  std::string AskName(const std::string& question, const std::string& suggestion);
  bool RunDialog(QDialog& dialog);
  // Runs a change of the project, telling a refusal; true when it was made.
  bool Change(const std::function<void()>& change);
  std::string UnusedSimulationName(const std::string& base) const;

  std::unique_ptr<EditorDocument> document_;
  EditorWindow* window_ = nullptr;
  SimulationsPanel* simulations_ = nullptr;
  QMenu* recent_menu_ = nullptr;
  QMenu* project_menu_ = nullptr;
  QAction* save_action_ = nullptr;
  QAction* open_action_ = nullptr;
  std::vector<QAction*> project_actions_;
  EditorWindow::MessageSink messages_;
  EditorWindow::QuestionSink questions_;
  EditorWindow::PathSink open_paths_;
  EditorWindow::PathSink save_paths_;
  NameSink names_;
  DialogSink dialogs_;
  StartSink starts_;
  bool closing_ = false;
};

}  // namespace zrsim_editor
