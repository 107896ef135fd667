#pragma once

#include <functional>
#include <string>
#include <vector>

#include "zrsimprp/host/Control.h"

namespace zrsimprp {

// The outer tab control (tabs from 0). A change of the current tab, from code or from a click, runs
// the before-change handler, which may refuse it by setting the new index to -1, then the
// after-change handler.
class TabControl : public Control {
 public:
  using BeforeChangeHandler = std::function<void(int& new_index)>;
  using AfterChangeHandler = std::function<void(int new_index)>;

  explicit TabControl(std::vector<std::string> captions) : captions_(std::move(captions)) {}

  int TabCount() const { return static_cast<int>(captions_.size()); }
  const std::string& Caption(int index) const;  // error 381 outside the tabs
  int CurrentTab() const { return current_; }
  // Returns true when the tab changed. Error 380 for an index outside the tabs.
  bool SetCurrentTab(int index);

  void SetBeforeChangeHandler(BeforeChangeHandler handler) { before_change_ = std::move(handler); }
  void SetAfterChangeHandler(AfterChangeHandler handler) { after_change_ = std::move(handler); }

  bool UserSelectTab(int index);

 private:
  std::vector<std::string> captions_;
  int current_ = 0;
  BeforeChangeHandler before_change_;
  AfterChangeHandler after_change_;
};

}  // namespace zrsimprp
