#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace zrsim_editor {

// Tells once that a window has drawn its first frame: it waits for the window's first paint and
// reports on the next turn of the event loop, when the whole frame has been painted and handed over.
class FirstFrameProbe : public QObject {
 public:
  using Callback = std::function<void()>;

  // Watches `window` (the probe belongs to it); `on_first_frame` runs once.
  static FirstFrameProbe* Watch(QWidget* window, Callback on_first_frame);

  bool Fired() const { return fired_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  FirstFrameProbe(QWidget* window, Callback on_first_frame);

  Callback on_first_frame_;
  bool painted_ = false;
  bool fired_ = false;
};

}  // namespace zrsim_editor
