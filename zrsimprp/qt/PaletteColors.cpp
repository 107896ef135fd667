#include "zrsimprp/qt/PaletteColors.h"

namespace zrsimprp {

QColor PaletteColors::Background(const Color& color, const QPalette& palette, QPalette::ColorGroup group) {
  switch (color.role) {
    case SystemColorRole::kWindowBackground:
      return palette.color(group, QPalette::Base);
    case SystemColorRole::kButtonFace:
      return palette.color(group, QPalette::Button);
    case SystemColorRole::kNone:
      break;
  }
  return QColor(color.red, color.green, color.blue);
}

QColor PaletteColors::Foreground(const Color& color, const QPalette& palette, QPalette::ColorGroup group) {
  switch (color.role) {
    case SystemColorRole::kWindowBackground:
      return palette.color(group, QPalette::Text);
    case SystemColorRole::kButtonFace:
      return palette.color(group, QPalette::ButtonText);
    case SystemColorRole::kNone:
      break;
  }
  // A fixed colour says nothing about the theme: pick black or white, whichever contrasts.
  const int luma = (299 * color.red + 587 * color.green + 114 * color.blue) / 1000;
  return luma >= 128 ? QColor(Qt::black) : QColor(Qt::white);
}

}  // namespace zrsimprp
