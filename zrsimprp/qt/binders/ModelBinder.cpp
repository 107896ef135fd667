#include "zrsimprp/qt/binders/ModelBinder.h"

namespace zrsimprp {

ModelBinder::ModelBinder(QObject* parent) : QObject(parent) {}

ModelBinder::~ModelBinder() {
  for (auto& unsubscribe : unsubscribers_) unsubscribe();
}

void ModelBinder::ScheduleRefresh() {
  if (pending_) return;
  pending_ = true;
  emit ModelChanged();
  // Queued with this binder as context: a binder deleted before the next turn is simply not called.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (pending_) RefreshNow();
      },
      Qt::QueuedConnection);
}

void ModelBinder::RefreshNow() {
  pending_ = false;
  const bool was_mirroring = mirroring_;
  mirroring_ = true;
  ++refresh_count_;
  Refresh();
  mirroring_ = was_mirroring;
}

}  // namespace zrsimprp
