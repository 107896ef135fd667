#include "zrsim-editor/FirstFrameProbe.h"

#include <QEvent>
#include <QMetaObject>
#include <QWidget>

namespace zrsim_editor {

FirstFrameProbe* FirstFrameProbe::Watch(QWidget* window, Callback on_first_frame) {
  return new FirstFrameProbe(window, std::move(on_first_frame));
}

FirstFrameProbe::FirstFrameProbe(QWidget* window, Callback on_first_frame)
    : QObject(window), on_first_frame_(std::move(on_first_frame)) {
  window->installEventFilter(this);
}

bool FirstFrameProbe::eventFilter(QObject* watched, QEvent* event) {
  if (!painted_ && event->type() == QEvent::Paint) {
    painted_ = true;
    // The window paints first and its children after it, in the same pass: report once it is over.
    QMetaObject::invokeMethod(
        this,
        [this] {
          fired_ = true;
          if (on_first_frame_) on_first_frame_();
        },
        Qt::QueuedConnection);
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace zrsim_editor
