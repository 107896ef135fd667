#include "zrsimprp/qt/UndoRecorder.h"

#include <QUndoStack>
#include <QVariant>
#include <QWidget>

#include "zrsimprp/control/ControlSnapshot.h"
#include "zrsimprp/qt/EventBoundary.h"
#include "zrsimprp/qt/SnapshotCommand.h"

namespace zrsimprp {
namespace {

constexpr const char* kRecorderProperty = "zrsimprp_undo_recorder";
// Typing steps merge by this id; every other step keeps its own.
constexpr int kTypingId = 1;

}  // namespace

UndoRecorder::UndoRecorder(SIMProperties& control, QWidget* root)
    : QObject(root), control_(control), root_(root), stack_(new QUndoStack(this)) {
  root->setProperty(kRecorderProperty, QVariant::fromValue(static_cast<void*>(this)));
}

void UndoRecorder::Reset() {
  stack_->clear();
  typing_key_ = nullptr;
}

UndoRecorder* UndoRecorder::For(QObject* context) {
  for (QObject* object = context; object != nullptr; object = object->parent()) {
    const QVariant recorder = object->property(kRecorderProperty);
    if (recorder.isValid()) return static_cast<UndoRecorder*>(recorder.value<void*>());
  }
  return nullptr;
}

bool UndoRecorder::Run(QObject* context, const char* event, const QString& text,
                       const std::function<void()>& action, const void* typing_key) {
  UndoRecorder* recorder = For(context);
  if (recorder == nullptr || recorder->recording_) return EventBoundary::Run(context, event, action);
  return recorder->Record(
      context, event, [&text] { return text; }, action, typing_key);
}

bool UndoRecorder::RunNamedAfter(QObject* context, const char* event, const std::function<void()>& action,
                                 const std::function<QString()>& name) {
  UndoRecorder* recorder = For(context);
  if (recorder == nullptr || recorder->recording_) return EventBoundary::Run(context, event, action);
  return recorder->Record(context, event, name, action, nullptr);
}

void UndoRecorder::EndTyping(QObject* context) {
  if (UndoRecorder* recorder = For(context)) recorder->CloseTyping();
}

void UndoRecorder::CloseTyping() {
  typing_key_ = nullptr;
  if (stack_->index() == 0) return;
  // The stack merges a step into the one before it only while both carry the typing id.
  const QUndoCommand* last = stack_->command(stack_->index() - 1);
  static_cast<SnapshotCommand*>(const_cast<QUndoCommand*>(last))->StopMerging();
}

QString UndoRecorder::NameOf(const QWidget* widget) {
  if (widget == nullptr) return QStringLiteral("a field");
  if (!widget->accessibleName().isEmpty()) return widget->accessibleName();
  if (!widget->objectName().isEmpty()) return widget->objectName();
  return QStringLiteral("a field");
}

ControlSnapshot UndoRecorder::Take() const { return ControlSnapshot::Take(control_); }

void UndoRecorder::Apply(const ControlSnapshot& snapshot) {
  recording_ = true;
  EventBoundary::Run(root_, "Undo", [&] { snapshot.Restore(control_); });
  recording_ = false;
  // Typing after an undo or a redo is a new step.
  typing_key_ = nullptr;
}

bool UndoRecorder::Record(QObject* context, const char* event, const std::function<QString()>& name,
                          const std::function<void()>& action, const void* typing_key) {
  ControlSnapshot before = Take();
  recording_ = true;
  const bool ran = EventBoundary::Run(context, event, action);
  recording_ = false;
  ControlSnapshot after = Take();
  if (after == before) return ran;
  if (typing_key == nullptr || typing_key != typing_key_) CloseTyping();
  typing_key_ = typing_key;
  stack_->push(new SnapshotCommand(*this, std::move(before), std::move(after), name(),
                                   typing_key != nullptr ? kTypingId : -1));
  return ran;
}

}  // namespace zrsimprp
