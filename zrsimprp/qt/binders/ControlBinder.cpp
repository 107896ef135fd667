#include "zrsimprp/qt/binders/ControlBinder.h"

#include <QApplication>
#include <QEvent>

#include "zrsimprp/qt/PaletteColors.h"

namespace zrsimprp {

void MirrorVisible(QWidget* widget, bool visible) {
  if (widget == nullptr) return;
  if (!visible) {
    if (!widget->isHidden()) widget->hide();
  } else if (widget->isHidden() && widget->parentWidget() != nullptr) {
    widget->show();
  }
}

ControlBinder::ControlBinder(Control& control, QWidget* widget)
    : ModelBinder(widget), control_(control), widget_(widget) {
  Watch(control);
  // Back colours are resolved against the palette around the widget: follow its changes.
  widget->installEventFilter(this);
}

void ControlBinder::Refresh() {
  if (widget_ == nullptr) return;
  if (widget_->isEnabled() != control_.Enabled()) widget_->setEnabled(control_.Enabled());
  MirrorVisible(widget_, control_.Visible());
  Mirror();
}

void ControlBinder::MirrorBackColor(std::initializer_list<QPalette::ColorRole> roles) {
  QWidget* parent = widget_->parentWidget();
  const QPalette source = parent != nullptr ? parent->palette() : QApplication::palette(widget_);
  QPalette palette = widget_->palette();
  const Color color = control_.BackColor();
  for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (QPalette::ColorRole role : roles)
      palette.setColor(group, role, PaletteColors::Background(color, source));
    // Disabled text keeps the palette's own greyed colour; live text must read on the background.
    if (group != QPalette::Disabled) {
      palette.setColor(group, QPalette::Text, PaletteColors::Foreground(color, source));
      palette.setColor(group, QPalette::ButtonText, PaletteColors::Foreground(color, source));
    }
  }
  if (palette == widget_->palette() && palette.resolveMask() == widget_->palette().resolveMask()) return;
  painting_palette_ = true;
  widget_->setPalette(palette);
  painting_palette_ = false;
}

bool ControlBinder::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget_ && event->type() == QEvent::PaletteChange && !painting_palette_) ScheduleRefresh();
  return ModelBinder::eventFilter(watched, event);
}

}  // namespace zrsimprp
