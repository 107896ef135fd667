#include "zrsimprp/host/ComboBox.h"

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

void ComboBox::Clear() {
  items_.clear();
  list_index_ = -1;
  text_.clear();
  Changed();
}

void ComboBox::AddItem(std::string_view item) {
  items_.emplace_back(item);
  Changed();
}

const std::string& ComboBox::List(int index) const {
  if (index < 0 || index >= ListCount()) {
    throw RuntimeError(error_number::kInvalidPropertyArrayIndex, "ComboBox", "Invalid property array index");
  }
  return items_[static_cast<size_t>(index)];
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= ListCount()) {
    throw RuntimeError(error_number::kInvalidPropertyValue, "ComboBox", "Invalid property value");
  }
  if (index == -1) {
    list_index_ = -1;
    if (style_ == Style::kListOnly) text_.clear();
    Changed();
    return;
  }
  list_index_ = index;
  text_ = items_[static_cast<size_t>(index)];
  Changed();
  if (on_click_) on_click_();
}

void ComboBox::SetText(const std::string& text) {
  if (style_ == Style::kEditable) {
    text_ = text;
    list_index_ = -1;
    Changed();
    return;
  }
  for (size_t i = 0; i < items_.size(); ++i) {
    if (TextEquals(items_[i], text)) {
      list_index_ = static_cast<int>(i);
      text_ = items_[i];
      Changed();
      return;
    }
  }
  throw RuntimeError(error_number::kPropertyIsReadOnly, "ComboBox", "'Text' property is read-only");
}

bool ComboBox::UserSelect(int index) {
  if (!Enabled() || !Visible() || index < 0 || index >= ListCount()) return false;
  SetListIndex(index);
  return true;
}

bool ComboBox::UserType(const std::string& text) {
  if (!Enabled() || !Visible() || style_ != Style::kEditable) return false;
  SetText(text);
  return true;
}

}  // namespace zrsimprp
