#pragma once

#include <QTimer>
#include <chrono>
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
  void Schedule();
  // A change is waiting for the pause to end.
  bool Pending() const { return timer_.isActive(); }
  void Cancel() { timer_.stop(); }

 private:
  using Clock = std::chrono::steady_clock;

  // The pause ended or was cut short by a later change: runs `settled_` or waits out the rest.
  void Elapsed();

  std::chrono::milliseconds pause_;
  std::function<void()> settled_;
  // Loading a simulation changes thousands of cells; restarting a timer for each costs more than
  // noting the time, so the timer runs on and, when it ends, waits out what remains of the pause.
  Clock::time_point last_change_;
  QTimer timer_;
  std::vector<std::pair<Control*, int>> subscriptions_;
};

}  // namespace zrsimprp
