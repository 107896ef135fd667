#pragma once

#include <QDialog>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "zrsim-editor/EditorDocument.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"

class QPushButton;

namespace zrsim_editor {

class EditMenu;
class HelpBrowser;
class LiveLint;
class PreviewBeside;
class StatusLine;
class WarningsBar;

// The host's properties form: the control and OK / Cancel / Apply / Reset / Help. OK and Apply
// validate the shown page, read the definition back and save it; an empty definition (the control
// could not write it) is never saved. Edits are never thrown away without asking, and a project
// that may not be written is shown read-only with Close and Save As instead of OK and Apply.
class EditorWindow : public QDialog {
  Q_OBJECT

 public:
  // What a person can answer when the window asks.
  enum class Choice { kSave, kDiscard, kGoBack, kOverwrite, kSaveAs, kSaveAnyway, kDelete };
  // Where the window's own messages go; by default a modal box.
  using MessageSink = std::function<void(const std::string& text, const std::string& title)>;
  // Who answers the window's questions; by default a modal box with one button per choice.
  using QuestionSink = std::function<Choice(const std::string& text, const std::vector<Choice>& choices)>;
  // Who names the file for Save As ("" for none); by default a file dialog.
  using PathSink = std::function<std::string()>;

  explicit EditorWindow(EditorDocument& document, QWidget* parent = nullptr);

  // Hands the project and the saved definition to the control and initialises it. False (after a
  // message) when the control could not be initialised.
  bool Load();
  // Validate, write back and save (in a read-only project: Save As). True when saved.
  bool Apply();
  // Apply when there is something to save, then close.
  void Ok();
  // The control's default definition for a new simulation; asks first when edits would be lost.
  // Nothing is saved until OK or Apply.
  void Reset();
  // Validate, write back and save into a copy of the project file. True when saved.
  bool SaveAs();
  // Cancel, Esc and closing the window: asks first when there are edits.
  void reject() override;
  // Opens the user guide at the section of the shown tab.
  void ShowHelp();

  // Whether the definition the control would write now differs from the one last loaded or saved.
  bool IsModified();
  // Puts the window where the person last left it (for this project and simulation), or gives it
  // DefaultSize.
  void RestoreGeometry();
  // Big enough to show every page without scroll bars, within the screen.
  QSize DefaultSize() const;

  zrsimprp::SIMPropertiesWidget& Properties() { return *properties_; }
  PreviewBeside& Preview() { return *preview_; }
  QPushButton* OkButton() const { return ok_; }
  QPushButton* ApplyButton() const { return apply_; }
  QPushButton* CancelButton() const { return cancel_; }
  QPushButton* ResetButton() const { return reset_; }
  WarningsBar& Warnings() { return *warnings_; }
  StatusLine& Status() { return *status_; }
  LiveLint& Lint() { return *lint_; }
  QPushButton* HelpButton() const { return help_; }
  QPushButton* SaveAsButton() const { return save_as_; }
  HelpBrowser* Help() const { return help_browser_; }
  EditMenu* Edit() const { return edit_menu_; }
  // How many times the written definition was compared with the saved one (for the tests of the
  // debounced check).
  int ModifiedChecks() const { return modified_checks_; }

  // Sends both the window's and the control's messages to `sink` instead of modal boxes.
  void SetMessageSink(MessageSink sink);
  void SetQuestionSink(QuestionSink sink) { questions_ = std::move(sink); }
  void SetPathSink(PathSink sink) { paths_ = std::move(sink); }

  static constexpr const char* kTitle = "Simulation properties";
  static constexpr const char* kUnsavedQuestion =
      "The simulation has changes that are not saved. Save them before closing?";
  static constexpr const char* kResetQuestion =
      "Replacing every option by the project's defaults throws away the changes you made. Replace them?";
  static constexpr const char* kNewWarningsQuestion =
      "The options have warnings that were not there when the simulation was opened (they are listed "
      "under the tabs). Save anyway, or go back and see them?";
  static constexpr const char* kChangedElsewhereQuestion =
      "The simulation was changed in the project file by another window or program since you opened it. "
      "Overwrite those changes with yours?";

 protected:
  void done(int result) override;

 private:
  void Tell(const std::string& text);
  Choice Ask(const std::string& text, const std::vector<Choice>& choices);
  void UpdateTitle();
  void UpdateButtons();
  void ScheduleModifiedCheck();
  void CheckModified();
  void RememberSaved();
  // The lint findings of the saved definition: advice under the tabs, never a refusal.
  void ShowWarnings();
  // Asks once, when `text` has findings the simulation did not have when it was opened, whether to
  // save anyway. True to save.
  bool MaySaveWithNewWarnings(const std::string& text);
  // The definition as the control writes it now, with no message shown if writing fails ("").
  std::string QuietDefinition();
  // The page `zrsim check` would name for the shown tab ("Density", "General", ...).
  std::string ShownPageName() const;
  // Shows, under the tabs, the error that interrupted `page`'s checks (if any did) in words, beside
  // the page's own generic message; clears it once the page's checks run through.
  void ShowPageCheckCause(const std::string& page);
  // The shown page's verdict, as IsValid gives it, with its cause shown as above.
  bool ShownPageIsValid();
  void BeforeTabSwitch();
  void AfterTabSwitch();
  void SaveGeometry();
  std::string ChooseSaveAsPath();
  std::shared_ptr<zrsimprp::ProjectSettings> PersonalStore() const;

  EditorDocument& document_;
  zrsimprp::SIMPropertiesWidget* properties_ = nullptr;
  PreviewBeside* preview_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QPushButton* apply_ = nullptr;
  QPushButton* reset_ = nullptr;
  QPushButton* help_ = nullptr;
  QPushButton* save_as_ = nullptr;
  HelpBrowser* help_browser_ = nullptr;
  EditMenu* edit_menu_ = nullptr;
  WarningsBar* warnings_ = nullptr;
  StatusLine* status_ = nullptr;
  LiveLint* lint_ = nullptr;
  MessageSink sink_;
  QuestionSink questions_;
  PathSink paths_;
  // The definition as the control wrote it right after loading or the last save (or after a tab
  // switch made while there were no edits).
  std::string saved_text_;
  bool modified_ = false;
  std::string page_being_left_;
  // Whether there were no edits when a person began to move a tab: then whatever entering the page
  // rebuilds is the control's own doing, not an edit.
  bool clean_before_switch_ = false;
  int modified_checks_ = 0;
  QTimer modified_timer_;
};

}  // namespace zrsim_editor
