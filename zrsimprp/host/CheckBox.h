#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <tuple>

#include "zrsimprp/host/CaptionedControl.h"

namespace zrsimprp {

// A check box: 0 unchecked, 1 checked, 2 grayed. Setting the value from code runs the click handler
// when, and only when, the value changes; pages rely on that to enable their dependent controls.
class CheckBox : public CaptionedControl {
 public:
  static constexpr int32_t kUnchecked = 0;
  static constexpr int32_t kChecked = 1;
  static constexpr int32_t kGrayed = 2;

  using CaptionedControl::CaptionedControl;

  int32_t Value() const { return value_; }
  void SetValue(int32_t value);  // error 380 outside 0..2
  void SetClickHandler(std::function<void()> handler) { on_click_ = std::move(handler); }

  // A person's click toggles between unchecked and checked (a grayed box becomes unchecked).
  bool UserClick();

  std::unique_ptr<ControlState> SaveState() const override {
    return MakeState(std::make_tuple(Caption(), value_));
  }
  void RestoreState(const ControlState& state) override;

 private:
  int32_t value_ = kUnchecked;
  std::function<void()> on_click_;
};

}  // namespace zrsimprp
