#pragma once

#include <functional>
#include <memory>
#include <tuple>
#include <utility>

#include "zrsimprp/host/ChangeNotifier.h"
#include "zrsimprp/host/Color.h"
#include "zrsimprp/host/ControlState.h"

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

  // Everything a person or a page can change here, and putting it back as it was without running any
  // handler (undo). The cursor of a grid is where a person is, not what the control holds: it is
  // kept out. A state goes back only into a control of the type that saved it.
  virtual std::unique_ptr<ControlState> SaveState() const { return MakeState(std::tuple<>()); }
  virtual void RestoreState(const ControlState& state) {
    RestoreOwnState<std::tuple<>>(state);
    Changed();
  }

 protected:
  void Changed() const { notifier_.Notify(); }

  template <class Own>
  std::unique_ptr<ControlState> MakeState(Own own) const {
    return std::make_unique<ControlStateOf<Own>>(std::make_tuple(enabled_, visible_, back_color_),
                                                 std::move(own));
  }
  // Puts back the common part of `state` and gives the part the control's own type saved.
  template <class Own>
  const Own& RestoreOwnState(const ControlState& state) {
    const auto& typed = dynamic_cast<const ControlStateOf<Own>&>(state);
    std::tie(enabled_, visible_, back_color_) = typed.Common();
    return typed.OwnPart();
  }

 private:
  bool enabled_ = true;
  bool visible_ = true;
  Color back_color_ = Color::System(SystemColorRole::kWindowBackground);
  ChangeNotifier notifier_;
};

}  // namespace zrsimprp
