#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "zrsimprp/host/Control.h"
#include "zrsimprp/host/ReserveGrowing.h"

namespace zrsimprp {

// A drop-down list, either editable (a person may type any text) or list-only. Selecting an entry
// from code with SetListIndex runs the click handler every time.
class ComboBox : public Control {
 public:
  enum class Style { kEditable, kListOnly };

  explicit ComboBox(Style style = Style::kEditable, std::string text = "")
      : style_(style), text_(std::move(text)) {}

  Style ListStyle() const { return style_; }

  void Clear();  // no entries, ListIndex -1, Text ""
  void AddItem(std::string_view item);
  // Room for `count` entries in all (see ReserveGrowing).
  void Reserve(size_t count) { ReserveGrowing(items_, count); }
  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::string& List(int index) const;  // error 381 outside the list
  const std::vector<std::string>& Items() const { return items_; }

  int ListIndex() const { return list_index_; }
  // i >= 0: Text becomes the entry and the click handler runs; -1: nothing is selected, no event.
  void SetListIndex(int index);  // error 380 outside -1..ListCount()-1

  const std::string& Text() const { return text_; }
  // Editable style: any text, and no entry is selected. List-only style: the text must be an entry's
  // (case ignored), which is then selected without an event; other text raises error 383.
  void SetText(const std::string& text);

  void SetClickHandler(std::function<void()> handler) { on_click_ = std::move(handler); }

  // A person's actions; refused while the list is disabled (typing also in the list-only style).
  bool UserSelect(int index);
  bool UserType(const std::string& text);

  std::unique_ptr<ControlState> SaveState() const override {
    return MakeState(std::make_tuple(items_, list_index_, text_));
  }
  void RestoreState(const ControlState& state) override {
    std::tie(items_, list_index_, text_) =
        RestoreOwnState<std::tuple<std::vector<std::string>, int, std::string>>(state);
    Changed();
  }

 private:
  Style style_;
  std::vector<std::string> items_;
  int list_index_ = -1;
  std::string text_;
  std::function<void()> on_click_;
};

}  // namespace zrsimprp
