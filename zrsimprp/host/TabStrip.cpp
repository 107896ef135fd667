#include "zrsimprp/host/TabStrip.h"

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

const TabStrip::Tab& TabStrip::At(int index) const {
  if (index < 1 || index > TabCount()) {
    throw RuntimeError(error_number::kInvalidPropertyArrayIndex, "TabStrip", "Invalid property array index");
  }
  return tabs_[static_cast<size_t>(index - 1)];
}

const std::string& TabStrip::Key(int index) const { return At(index).key; }
const std::string& TabStrip::Caption(int index) const { return At(index).caption; }

void TabStrip::Select(int index) {
  At(index);
  selected_ = index;
  Changed();  // also a refresh when the tab was already selected
}

bool TabStrip::UserClickTab(int index) {
  if (!Enabled() || !Visible() || index < 1 || index > TabCount()) return false;
  Select(index);
  if (on_click_) on_click_(Key(index));
  return true;
}

}  // namespace zrsimprp
