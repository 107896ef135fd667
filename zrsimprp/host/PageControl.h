#pragma once

#include <functional>

#include "zrsimprp/host/ChangeNotifier.h"

namespace zrsimprp {

// What every page has besides its own controls: whether it is shown. The Population and Covariates
// pages share one tab and are shown in turn.
class PageControl {
 public:
  PageControl() = default;
  PageControl(const PageControl&) = delete;
  PageControl& operator=(const PageControl&) = delete;
  virtual ~PageControl() = default;

  bool Visible() const { return visible_; }
  void SetVisible(bool visible) {
    if (visible_ == visible) return;
    visible_ = visible;
    notifier_.Notify();
  }
  int Subscribe(std::function<void()> listener) { return notifier_.Subscribe(std::move(listener)); }
  void Unsubscribe(int id) { notifier_.Unsubscribe(id); }

 private:
  bool visible_ = true;
  ChangeNotifier notifier_;
};

}  // namespace zrsimprp
