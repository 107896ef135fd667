#pragma once

#include <QColor>
#include <QPalette>

#include "zrsimprp/host/Color.h"

namespace zrsimprp {

// Turns the models' colours into Qt colours. System colours are looked up in the palette by role,
// so that a dark palette gives dark lists and grids; only plain RGB colours are taken as they are.
class PaletteColors {
 public:
  static QColor Background(const Color& color, const QPalette& palette,
                           QPalette::ColorGroup group = QPalette::Active);
  // A text colour that reads on Background(color, palette).
  static QColor Foreground(const Color& color, const QPalette& palette,
                           QPalette::ColorGroup group = QPalette::Active);
};

}  // namespace zrsimprp
