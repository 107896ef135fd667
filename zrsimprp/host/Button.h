#pragma once

#include <functional>
#include <string>

#include "zrsimprp/host/CaptionedControl.h"

namespace zrsimprp {

// A command button; its click handler runs only on a person's click while it is enabled.
class Button : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;

  void SetClickHandler(std::function<void()> handler) { on_click_ = std::move(handler); }

  bool UserClick() {
    if (!Enabled() || !Visible()) return false;
    if (on_click_) on_click_();
    return true;
  }

 private:
  std::function<void()> on_click_;
};

}  // namespace zrsimprp
