#include "zrsimprp/qt/WheelGuard.h"

#include <QEvent>
#include <QWidget>

namespace zrsimprp {

void WheelGuard::Install(QWidget* widget) {
  widget->setFocusPolicy(Qt::StrongFocus);
  widget->installEventFilter(new WheelGuard(widget));
}

bool WheelGuard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget != nullptr && !widget->hasFocus()) {
      // Ignored and swallowed: the widget never sees it, the scroll area around it does.
      event->ignore();
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace zrsimprp
