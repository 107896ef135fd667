#include "zrsimprp/qt/map/SettledWatch.h"

#include "zrsimprp/host/Control.h"

namespace zrsimprp {

SettledWatch::SettledWatch(int pause_ms, QObject* context, std::function<void()> settled) {
  timer_.setSingleShot(true);
  timer_.setInterval(pause_ms);
  QObject::connect(&timer_, &QTimer::timeout, context, std::move(settled));
}

SettledWatch::~SettledWatch() {
  for (const auto& [control, id] : subscriptions_) control->Unsubscribe(id);
}

void SettledWatch::Watch(Control& control) {
  subscriptions_.emplace_back(&control, control.Subscribe([this]() { Schedule(); }));
}

}  // namespace zrsimprp
