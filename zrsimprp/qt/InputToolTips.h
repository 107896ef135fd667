#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace zrsimprp {

// The tooltip of every input of the control: what the input holds and, while it is disabled, what
// enables it. The texts live in one table, looked up by the input's accessible name (which is made
// from the caption a person sees beside it); the tooltip follows the input's enabled state.
class InputToolTips : public QObject {
  Q_OBJECT

 public:
  struct Text {
    const char* holds;         // what the input holds
    const char* enabled_when;  // what enables it, or "" when nothing on the form disables it
  };

  // Gives every input under `root` its tooltip and keeps it up to date. Owned by `root`.
  static InputToolTips* Install(QWidget* root);
  // The table entry for an accessible name; null when there is none.
  static const Text* Find(const QString& accessible_name);
  // True for the widgets that take a person's input (and so need a tooltip).
  static bool IsInput(const QWidget* widget);
  // The tooltip `text` gives while the input is enabled or not.
  static QString ToolTipFor(const Text& text, bool enabled);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  explicit InputToolTips(QObject* parent) : QObject(parent) {}
  static void Update(QWidget* widget);
};

}  // namespace zrsimprp
