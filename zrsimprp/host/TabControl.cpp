#include "zrsimprp/host/TabControl.h"

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

const std::string& TabControl::Caption(int index) const {
  if (index < 0 || index >= TabCount()) {
    throw RuntimeError(error_number::kInvalidPropertyArrayIndex, "TabControl",
                       "Invalid property array index");
  }
  return captions_[static_cast<size_t>(index)];
}

bool TabControl::SetCurrentTab(int index) {
  if (index < 0 || index >= TabCount()) {
    throw RuntimeError(error_number::kInvalidPropertyValue, "TabControl", "Invalid property value");
  }
  if (index == current_) return false;
  int new_index = index;
  if (before_change_) before_change_(new_index);
  if (new_index < 0 || new_index >= TabCount() || new_index == current_) {
    Changed();  // a refused change still makes the view fall back to the current tab
    return false;
  }
  current_ = new_index;
  Changed();
  if (after_change_) after_change_(new_index);
  return true;
}

bool TabControl::UserSelectTab(int index) {
  if (!Enabled() || !Visible() || index < 0 || index >= TabCount()) return false;
  return SetCurrentTab(index);
}

}  // namespace zrsimprp
