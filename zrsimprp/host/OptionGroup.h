#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/CaptionedControl.h"

namespace zrsimprp {

// One button of an option group; whether it is on is the group's business.
class OptionButton : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
};

// A control array of option buttons (optDesign(0), optDesign(1), ...). Selecting a button from code
// runs the click handler with its index every time, even when it was already on.
class OptionGroup : public Control {
 public:
  explicit OptionGroup(const std::vector<std::string>& captions);

  int Count() const { return static_cast<int>(buttons_.size()); }
  int Selected() const { return selected_; }  // -1: none is on
  bool Value(int index) const;                // error 340 for a missing button
  OptionButton& Button(int index);
  const OptionButton& Button(int index) const;

  void Select(int index);  // error 340 for a missing button
  void SetClickHandler(std::function<void(int)> handler) { on_click_ = std::move(handler); }

  // A person's click on a button: refused when the group or that button is disabled or hidden.
  bool UserSelect(int index);

  // The selection only: each button saves its own state.
  std::unique_ptr<ControlState> SaveState() const override { return MakeState(std::make_tuple(selected_)); }
  void RestoreState(const ControlState& state) override {
    std::tie(selected_) = RestoreOwnState<std::tuple<int>>(state);
    Changed();
  }

 private:
  void CheckIndex(int index) const;

  std::vector<std::unique_ptr<OptionButton>> buttons_;
  int selected_ = -1;
  std::function<void(int)> on_click_;
};

}  // namespace zrsimprp
