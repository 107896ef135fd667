#include "zrsimprp/qt/SnapshotCommand.h"

#include "zrsimprp/qt/UndoRecorder.h"

namespace zrsimprp {

SnapshotCommand::SnapshotCommand(UndoRecorder& recorder, ControlSnapshot before, ControlSnapshot after,
                                 const QString& text, int merge_id)
    : recorder_(recorder), before_(std::move(before)), after_(std::move(after)), merge_id_(merge_id) {
  setText(text);
}

void SnapshotCommand::undo() {
  after_ = recorder_.Take();
  recorder_.Apply(before_);
  done_ = false;
  StopMerging();
}

void SnapshotCommand::redo() {
  if (done_) return;
  recorder_.Apply(after_);
  done_ = true;
}

bool SnapshotCommand::mergeWith(const QUndoCommand* other) {
  if (other->id() != id() || id() < 0) return false;
  after_ = static_cast<const SnapshotCommand*>(other)->after_;
  return true;
}

}  // namespace zrsimprp
