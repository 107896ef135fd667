#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace zrsimprp {

// Tells subscribed views that a model object changed. Views coalesce the calls and redraw later, so
// a notification is cheap: one call per listener, no payload.
class ChangeNotifier {
 public:
  using Listener = std::function<void()>;

  int Subscribe(Listener listener) {
    listeners_.emplace_back(next_id_, std::move(listener));
    return next_id_++;
  }
  void Unsubscribe(int id) {
    for (auto it = listeners_.begin(); it != listeners_.end(); ++it) {
      if (it->first == id) {
        listeners_.erase(it);
        return;
      }
    }
  }
  void Notify() const {
    for (const auto& entry : listeners_) entry.second();
  }

 private:
  std::vector<std::pair<int, Listener>> listeners_;
  int next_id_ = 1;
};

}  // namespace zrsimprp
