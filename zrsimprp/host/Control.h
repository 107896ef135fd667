#pragma once

#include <functional>

#include "zrsimprp/host/ChangeNotifier.h"
#include "zrsimprp/host/Color.h"

namespace zrsimprp {

// What every headless control has: enabled and visible state, a back colour and a change
// notification for the view. Controls are owned by their page and never copied, because the page's
// click handlers refer to them.
class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  Color BackColor() const { return back_color_; }
  void SetBackColor(Color color);

  int Subscribe(std::function<void()> listener) { return notifier_.Subscribe(std::move(listener)); }
  void Unsubscribe(int id) { notifier_.Unsubscribe(id); }

 protected:
  void Changed() const { notifier_.Notify(); }

 private:
  bool enabled_ = true;
  bool visible_ = true;
  Color back_color_ = Color::System(SystemColorRole::kWindowBackground);
  ChangeNotifier notifier_;
};

}  // namespace zrsimprp
