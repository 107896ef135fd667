#pragma once

#include <QObject>

class QWidget;

namespace zrsimprp {

// Stops the mouse wheel from changing a list or value the person has not clicked into: scrolling a
// page over a combo box must scroll the page, not change the simulation.
class WheelGuard : public QObject {
  Q_OBJECT

 public:
  // Gives the widget strong focus (so the wheel alone cannot focus it) and filters its wheel events.
  static void Install(QWidget* widget);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  explicit WheelGuard(QObject* parent) : QObject(parent) {}
};

}  // namespace zrsimprp
