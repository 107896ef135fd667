#include "zrsimprp/qt/map/SettledWatch.h"

#include "zrsimprp/host/Control.h"

namespace zrsimprp {

SettledWatch::SettledWatch(int pause_ms, QObject* context, std::function<void()> settled)
    : pause_(pause_ms), settled_(std::move(settled)) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, context, [this]() { Elapsed(); });
}

SettledWatch::~SettledWatch() {
  for (const auto& [control, id] : subscriptions_) control->Unsubscribe(id);
}

void SettledWatch::Schedule() {
  last_change_ = Clock::now();
  if (!timer_.isActive()) timer_.start(pause_);
}

void SettledWatch::Elapsed() {
  const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - last_change_);
  if (waited < pause_) {
    timer_.start(pause_ - waited);
    return;
  }
  settled_();
}

void SettledWatch::Watch(Control& control) {
  subscriptions_.emplace_back(&control, control.Subscribe([this]() { Schedule(); }));
}

}  // namespace zrsimprp
