#include "zrsimprp/host/CheckBox.h"

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

void CheckBox::SetValue(int32_t value) {
  if (value < kUnchecked || value > kGrayed) {
    throw RuntimeError(error_number::kInvalidPropertyValue, "CheckBox", "Invalid property value");
  }
  if (value == value_) return;
  value_ = value;
  Changed();
  if (on_click_) on_click_();
}

void CheckBox::RestoreState(const ControlState& state) {
  std::string caption;
  std::tie(caption, value_) = RestoreOwnState<std::tuple<std::string, int32_t>>(state);
  // The caption's own setter tells the views; a value put back runs no click handler.
  SetCaption(caption);
  Changed();
}

bool CheckBox::UserClick() {
  if (!Enabled() || !Visible()) return false;
  SetValue(value_ == kUnchecked ? kChecked : kUnchecked);
  return true;
}

}  // namespace zrsimprp
