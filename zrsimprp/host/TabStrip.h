#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "zrsimprp/host/Control.h"

namespace zrsimprp {

// The inner strip of keyed tabs, numbered from 1. Selecting from code raises no event; a person's
// click selects the tab and then runs the click handler with its key.
class TabStrip : public Control {
 public:
  struct Tab {
    std::string key;
    std::string caption;
  };

  explicit TabStrip(std::vector<Tab> tabs) : tabs_(std::move(tabs)) {}

  int TabCount() const { return static_cast<int>(tabs_.size()); }
  const std::string& Key(int index) const;      // error 381 outside 1..TabCount()
  const std::string& Caption(int index) const;  // error 381 outside 1..TabCount()
  int SelectedIndex() const { return selected_; }
  const std::string& SelectedKey() const { return Key(selected_); }
  void Select(int index);  // error 381 outside 1..TabCount()

  void SetClickHandler(std::function<void(const std::string& key)> handler) {
    on_click_ = std::move(handler);
  }
  bool UserClickTab(int index);

 private:
  const Tab& At(int index) const;

  std::vector<Tab> tabs_;
  int selected_ = 1;
  std::function<void(const std::string&)> on_click_;
};

}  // namespace zrsimprp
