#pragma once

#include <QUndoCommand>

#include "zrsimprp/control/ControlSnapshot.h"

namespace zrsimprp {

class UndoRecorder;

// One step of the control's undo history: the controls before and after it. The "after" is taken
// again each time the step is undone, so that what followed the step outside any person's action
// (values handed from page to page) comes back with its redo.
class SnapshotCommand : public QUndoCommand {
 public:
  SnapshotCommand(UndoRecorder& recorder, ControlSnapshot before, ControlSnapshot after, const QString& text,
                  int merge_id);

  void undo() override;
  void redo() override;
  int id() const override { return merge_id_; }
  bool mergeWith(const QUndoCommand* other) override;
  // Later typing starts a step of its own.
  void StopMerging() { merge_id_ = -1; }

 private:
  UndoRecorder& recorder_;
  ControlSnapshot before_;
  ControlSnapshot after_;
  int merge_id_;
  bool done_ = true;  // pushed after the action ran: the first redo has nothing to do
};

}  // namespace zrsimprp
