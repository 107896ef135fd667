#pragma once

#include <QPalette>
#include <QPointer>
#include <QWidget>

#include "zrsimprp/host/Control.h"
#include "zrsimprp/qt/binders/ModelBinder.h"

namespace zrsimprp {

// A binder for one control drawn by one widget: mirrors the enabled and visible state common to all
// controls, then whatever the control type adds. The binder is a child of its widget and dies with it.
class ControlBinder : public ModelBinder {
  Q_OBJECT

 public:
  ControlBinder(Control& control, QWidget* widget);

  QWidget* Widget() const { return widget_; }
  const Control& Model() const { return control_; }

 protected:
  void Refresh() final;
  virtual void Mirror() = 0;
  // Paints the control's back colour, resolved against the surrounding palette, into these roles.
  void MirrorBackColor(std::initializer_list<QPalette::ColorRole> roles);
  bool eventFilter(QObject* watched, QEvent* event) override;

  Control& control_;
  QPointer<QWidget> widget_;

 private:
  bool painting_palette_ = false;
};

// Shows or hides a widget as a model says; a widget without a parent is never popped up as a window.
void MirrorVisible(QWidget* widget, bool visible);

}  // namespace zrsimprp
