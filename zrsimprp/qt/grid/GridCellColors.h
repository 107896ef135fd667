#pragma once

#include <QColor>
#include <QPalette>

namespace zrsimprp {

// The colours of the three kinds of grid cell a person must tell apart at a glance: headings, cells
// that may be edited and cells that may not. They are made from the palette (so that a dark palette
// gives a dark grid) and pushed apart until their backgrounds differ by a contrast ratio of at least
// kMinimumBackgroundContrast from each other and every text reads on its background with at least
// kMinimumTextContrast (the WCAG measures).
class GridCellColors {
 public:
  enum class Kind { kHeading, kEditable, kDisabled };
  struct Colors {
    QColor background;
    QColor text;
  };

  static Colors For(Kind kind, const QPalette& palette);

  // WCAG 2 relative luminance of an sRGB colour (0 black, 1 white).
  static double RelativeLuminance(const QColor& color);
  // WCAG 2 contrast ratio, from 1 (the same) to 21 (black on white).
  static double ContrastRatio(const QColor& a, const QColor& b);

  static constexpr double kMinimumBackgroundContrast = 1.5;
  static constexpr double kMinimumTextContrast = 4.5;
};

}  // namespace zrsimprp
