#include "zrsimprp/host/OptionGroup.h"

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

OptionGroup::OptionGroup(const std::vector<std::string>& captions) {
  buttons_.reserve(captions.size());
  for (const std::string& caption : captions) buttons_.push_back(std::make_unique<OptionButton>(caption));
}

void OptionGroup::CheckIndex(int index) const {
  if (index < 0 || index >= Count()) {
    throw RuntimeError(error_number::kControlArrayElementMissing, "OptionGroup",
                       "Control array element '" + std::to_string(index) + "' doesn't exist");
  }
}

bool OptionGroup::Value(int index) const {
  CheckIndex(index);
  return selected_ == index;
}

OptionButton& OptionGroup::Button(int index) {
  CheckIndex(index);
  return *buttons_[static_cast<size_t>(index)];
}

const OptionButton& OptionGroup::Button(int index) const {
  CheckIndex(index);
  return *buttons_[static_cast<size_t>(index)];
}

void OptionGroup::Select(int index) {
  CheckIndex(index);
  if (selected_ != index) {
    selected_ = index;
    Changed();
  }
  if (on_click_) on_click_(index);
}

bool OptionGroup::UserSelect(int index) {
  if (index < 0 || index >= Count()) return false;
  const OptionButton& button = *buttons_[static_cast<size_t>(index)];
  if (!Enabled() || !Visible() || !button.Enabled() || !button.Visible()) return false;
  Select(index);
  return true;
}

}  // namespace zrsimprp
