#pragma once

#include <QTimer>
#include <functional>
#include <utility>
#include <vector>

namespace zrsimprp {

class Control;

// Watches model controls and calls `settled` once they have stopped changing for a pause, so that a
// run of key strokes costs one recomputation. The subscriptions end with the watch, which must not
// outlive the controls it watches.
class SettledWatch {
 public:
  // `context` ends the calls when it goes (the panel that owns the watch).
  SettledWatch(int pause_ms, QObject* context, std::function<void()> settled);
  ~SettledWatch();
  SettledWatch(const SettledWatch&) = delete;
  SettledWatch& operator=(const SettledWatch&) = delete;

  void Watch(Control& control);
  // Starts the pause again: `settled` runs when it ends.
  void Schedule() { timer_.start(); }
  // A change is waiting for the pause to end.
  bool Pending() const { return timer_.isActive(); }
  void Cancel() { timer_.stop(); }

 private:
  QTimer timer_;
  std::vector<std::pair<Control*, int>> subscriptions_;
};

}  // namespace zrsimprp
