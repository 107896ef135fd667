#pragma once

#include <string>

#include "zrsimprp/host/Control.h"

namespace zrsimprp {

// A free-text box. Setting the text from code raises no event.
class TextBox : public Control {
 public:
  explicit TextBox(std::string text = "") : text_(std::move(text)) {}

  const std::string& Text() const { return text_; }
  void SetText(const std::string& text) {
    if (text_ == text) return;
    text_ = text;
    Changed();
  }

  // A person typed: accepted only while the box is enabled.
  bool UserType(const std::string& text) {
    if (!Enabled()) return false;
    SetText(text);
    return true;
  }

  std::unique_ptr<ControlState> SaveState() const override { return MakeState(std::make_tuple(text_)); }
  void RestoreState(const ControlState& state) override {
    std::tie(text_) = RestoreOwnState<std::tuple<std::string>>(state);
    Changed();
  }

 private:
  std::string text_;
};

}  // namespace zrsimprp
