#pragma once

#include <QPointer>
#include <functional>
#include <string>

#include "zrsimprp/host/Platform.h"

class QMessageBox;
class QWidget;

namespace zrsimprp {

// The platform for a control hosted in a Qt Widgets program. Message boxes are modal QMessageBoxes
// with an OK button only, unless a message sink is set: tests and hosts that log instead of showing
// set one, so that a message never blocks a run without a person in front of it.
class QtPlatform : public Platform {
 public:
  using MessageSink =
      std::function<void(const std::string& text, const std::string& title, MessageIcon icon)>;

  bool UserMode() override { return user_mode_; }
  // False while the control sits inside a form designer.
  void SetUserMode(bool user_mode) { user_mode_ = user_mode; }

  void MessageBox(const std::string& text, const std::string& title, MessageIcon icon) override;
  void Beep() override;
  void ResetMousePointer() override;
  Color SystemColor(SystemColorRole role) override { return Color::System(role); }
  std::string ComponentName() override { return "ZrSIMPrp"; }

  // The window the message boxes are modal to (may be null).
  void SetDialogParent(QWidget* parent) { dialog_parent_ = parent; }
  // Messages go to the sink instead of a modal box; an empty sink restores the box.
  void SetMessageSink(MessageSink sink) { message_sink_ = std::move(sink); }

  // While quiet, messages and beeps are dropped: for reading the model in the background, where a
  // box would interrupt a person who asked for nothing.
  void SetQuiet(bool quiet) { quiet_ = quiet; }

  int Beeps() const { return beeps_; }
  int MessagesShown() const { return messages_shown_; }

  // The box MessageBox shows, unshown; the caller owns it.
  static QMessageBox* CreateMessageBox(const std::string& text, const std::string& title, MessageIcon icon,
                                       QWidget* parent);

 private:
  bool user_mode_ = true;
  bool quiet_ = false;
  QPointer<QWidget> dialog_parent_;
  MessageSink message_sink_;
  int beeps_ = 0;
  int messages_shown_ = 0;
};

}  // namespace zrsimprp
