#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "zrsim-editor/EditorDocument.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"

class QPushButton;

namespace zrsim_editor {

class WarningsBar;

// The host's properties form: the control and OK / Cancel / Apply / Reset. OK and Apply validate the
// shown page, read the definition back and save it; an empty definition (the control could not
// write it) is never saved.
class EditorWindow : public QDialog {
  Q_OBJECT

 public:
  // Where the window's own messages go; by default a modal box.
  using MessageSink = std::function<void(const std::string& text, const std::string& title)>;

  explicit EditorWindow(EditorDocument& document, QWidget* parent = nullptr);

  // Hands the project and the saved definition to the control and initialises it. False (after a
  // message) when the control could not be initialised.
  bool Load();
  // Validate, write back and save. True when saved.
  bool Apply();
  // Apply, then close when saved.
  void Ok();
  // The control's default definition for a new simulation; nothing is saved until OK or Apply.
  void Reset();

  zrsimprp::SIMPropertiesWidget& Properties() { return *properties_; }
  QPushButton* OkButton() const { return ok_; }
  QPushButton* ApplyButton() const { return apply_; }
  QPushButton* CancelButton() const { return cancel_; }
  QPushButton* ResetButton() const { return reset_; }
  WarningsBar& Warnings() { return *warnings_; }

  // Sends both the window's and the control's messages to `sink` instead of modal boxes.
  void SetMessageSink(MessageSink sink);

  static constexpr const char* kTitle = "Simulation properties";

 private:
  void Tell(const std::string& text);
  void UpdateTitle();

  EditorDocument& document_;
  zrsimprp::SIMPropertiesWidget* properties_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QPushButton* apply_ = nullptr;
  QPushButton* reset_ = nullptr;
  WarningsBar* warnings_ = nullptr;
  MessageSink sink_;
};

}  // namespace zrsim_editor
