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
  const Color color = control_.BackColor();
  const QColor background = PaletteColors::Background(color, source);
  const QColor foreground = PaletteColors::Foreground(color, source);
  QPalette palette = widget_->palette();
  // Only the colours of the widget's present state are seen; it is mirrored again when that changes.
  const bool enabled = widget_->isEnabled();
  bool inherited = true;
  const auto set = [&](QPalette::ColorGroup group, QPalette::ColorRole role, const QColor& wanted) {
    palette.setColor(group, role, wanted);
    const bool seen = (group == QPalette::Disabled) != enabled;
    inherited = inherited && (!seen || source.color(group, role) == wanted);
  };
  for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (QPalette::ColorRole role : roles) set(group, role, background);
    // Disabled text keeps the palette's own greyed colour; live text must read on the background.
    if (group != QPalette::Disabled) {
      set(group, QPalette::Text, foreground);
      set(group, QPalette::ButtonText, foreground);
    }
  }
  // A widget whose colours are those around it shares its parent's palette rather than a copy of
  // it: the style keeps its drawings by palette, and a copy per widget would draw each one afresh.
  if (inherited) palette = QPalette();
  if (palette == widget_->palette() && palette.resolveMask() == widget_->palette().resolveMask()) return;
  painting_palette_ = true;
  widget_->setPalette(palette);
  painting_palette_ = false;
}

bool ControlBinder::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget_ && event->type() == QEvent::PaletteChange && !painting_palette_) ScheduleRefresh();
  // A frame around the widget enabled or disabled shows the widget's other colours.
  if (watched == widget_ && event->type() == QEvent::EnabledChange) ScheduleRefresh();
  return ModelBinder::eventFilter(watched, event);
}

}  // namespace zrsimprp
