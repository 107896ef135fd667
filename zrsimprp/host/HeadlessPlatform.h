#pragma once

#include <string>
#include <vector>

#include "zrsimprp/host/Platform.h"

namespace zrsimprp {

// The platform for tests and the command line: message boxes are recorded, not shown.
class HeadlessPlatform : public Platform {
 public:
  struct Message {
    std::string text;
    std::string title;
    MessageIcon icon;
  };

  bool UserMode() override { return user_mode_; }
  void SetUserMode(bool user_mode) { user_mode_ = user_mode; }

  void MessageBox(const std::string& text, const std::string& title, MessageIcon icon) override {
    messages_.push_back(Message{text, title, icon});
  }
  const std::vector<Message>& Messages() const { return messages_; }
  void ClearMessages() { messages_.clear(); }

  void Beep() override { ++beeps_; }
  int Beeps() const { return beeps_; }

  void ResetMousePointer() override { ++mouse_pointer_resets_; }
  int MousePointerResets() const { return mouse_pointer_resets_; }

  Color SystemColor(SystemColorRole role) override { return Color::System(role); }
  std::string ComponentName() override { return "ZrSIMPrp"; }

 private:
  bool user_mode_ = true;
  std::vector<Message> messages_;
  int beeps_ = 0;
  int mouse_pointer_resets_ = 0;
};

}  // namespace zrsimprp
