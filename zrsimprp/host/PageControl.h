#pragma once

#include <functional>

#include "zrsimprp/host/ChangeNotifier.h"
#include "zrsimprp/host/Control.h"

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

  // Where the page's last check failed, so that a view can point a person at it: the control and,
  // in a grid, the cell (-1 for no row or column). Empty after a check that passed.
  struct InvalidSpot {
    const Control* control = nullptr;
    int row = -1;
    int col = -1;
  };
  const InvalidSpot& Invalid() const { return invalid_; }

 protected:
  void MarkInvalid(const Control& control, int row = -1, int col = -1) {
    invalid_ = InvalidSpot{&control, row, col};
    notifier_.Notify();
  }
  void ClearInvalid() {
    if (invalid_.control == nullptr) return;
    invalid_ = InvalidSpot();
    notifier_.Notify();
  }

 private:
  bool visible_ = true;
  InvalidSpot invalid_;
  ChangeNotifier notifier_;
};

}  // namespace zrsimprp
