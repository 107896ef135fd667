#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QUndoStack;
class QWidget;

namespace zrsimprp {

class SIMProperties;
class ControlSnapshot;

// Makes a person's actions on the control's widgets steps of one undo history. Each action is run
// between two snapshots of every page's controls (ControlSnapshot); when they differ, the step is
// pushed with both, so that undo and redo put back exactly what was there. Typing in one field is one
// step until the field is left. What runs outside a person's action (a page handing values to
// another when a tab is entered) belongs to the step before it.
class UndoRecorder : public QObject {
  Q_OBJECT

 public:
  // Records the actions on `root` and every widget inside it; `root` owns the recorder.
  UndoRecorder(SIMProperties& control, QWidget* root);

  QUndoStack* Stack() const { return stack_; }

  // Starts the history afresh from the control as it is now (after Initialize).
  void Reset();

  // Runs a person's `event` on a widget inside `context` through the EventBoundary, as one step named
  // `text` ("paste of 281 cells"). Steps with the same nonzero `typing_key` in a row are one step
  // until EndTyping. Outside any recorded control it only runs the action. False when it raised.
  static bool Run(QObject* context, const char* event, const QString& text,
                  const std::function<void()>& action, const void* typing_key = nullptr);
  // As Run, for a step whose name tells what it did ("paste of 281 cells"): `name` is asked once the
  // action ran.
  static bool RunNamedAfter(QObject* context, const char* event, const std::function<void()>& action,
                            const std::function<QString()>& name);
  // The person left the field they were typing in: the next change there is a new step.
  static void EndTyping(QObject* context);

  // How a step names the widget it happened on: its accessible name, else its text.
  static QString NameOf(const QWidget* widget);

  // Puts the control back as `snapshot` holds it (the steps' undo and redo).
  void Apply(const ControlSnapshot& snapshot);
  ControlSnapshot Take() const;

 private:
  static UndoRecorder* For(QObject* context);
  void CloseTyping();
  bool Record(QObject* context, const char* event, const std::function<QString()>& name,
              const std::function<void()>& action, const void* typing_key);

  SIMProperties& control_;
  QWidget* root_;
  QUndoStack* stack_;
  bool recording_ = false;
  const void* typing_key_ = nullptr;
};

}  // namespace zrsimprp
