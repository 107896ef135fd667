#include "zrsimprp/qt/grid/GridCellColors.h"

#include <algorithm>
#include <cmath>

namespace zrsimprp {

namespace {

// A little above the minimum, so that rounding to 8-bit channels never drops below it.
constexpr double kBackgroundStep = GridCellColors::kMinimumBackgroundContrast + 0.1;
constexpr double kTextTarget = GridCellColors::kMinimumTextContrast + 0.2;
constexpr int kBlendSteps = 64;

QColor Blend(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
  return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

// Black on light backgrounds, white on dark ones: the far end to move a colour towards.
QColor FarEnd(const QColor& background) {
  return GridCellColors::RelativeLuminance(background) >= 0.18 ? QColor(Qt::black) : QColor(Qt::white);
}

// The least blend of `from` towards `towards` that reaches `ratio` against `against`.
QColor MoveUntil(const QColor& from, const QColor& towards, const QColor& against, double ratio) {
  for (int step = 0; step <= kBlendSteps; ++step) {
    const QColor candidate = Blend(from, towards, static_cast<double>(step) / kBlendSteps);
    if (GridCellColors::ContrastRatio(candidate, against) >= ratio) return candidate;
  }
  return towards;
}

// `preferred` when it reads on `background`, else the nearest colour to it that does.
QColor Readable(const QColor& preferred, const QColor& background) {
  if (GridCellColors::ContrastRatio(preferred, background) >= kTextTarget) return preferred;
  return MoveUntil(preferred, FarEnd(background), background, kTextTarget);
}

}  // namespace

double GridCellColors::RelativeLuminance(const QColor& color) {
  const auto linear = [](int channel) {
    const double c = channel / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) + 0.0722 * linear(color.blue());
}

double GridCellColors::ContrastRatio(const QColor& a, const QColor& b) {
  const double la = RelativeLuminance(a);
  const double lb = RelativeLuminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

GridCellColors::Colors GridCellColors::For(Kind kind, const QPalette& palette) {
  // Editable cells keep the palette's own field colours; cells that may not be edited are one step
  // away from them and headings one step further, all in the direction of more contrast.
  const QColor editable = palette.color(QPalette::Active, QPalette::Base);
  const QColor far_end = FarEnd(editable);
  const QColor disabled = MoveUntil(editable, far_end, editable, kBackgroundStep);
  const QColor heading = MoveUntil(disabled, far_end, disabled, kBackgroundStep);
  switch (kind) {
    case Kind::kEditable:
      return {editable, Readable(palette.color(QPalette::Active, QPalette::Text), editable)};
    case Kind::kDisabled:
      return {disabled, Readable(palette.color(QPalette::Disabled, QPalette::Text), disabled)};
    case Kind::kHeading:
      return {heading, Readable(palette.color(QPalette::Active, QPalette::ButtonText), heading)};
  }
  return {editable, palette.color(QPalette::Active, QPalette::Text)};
}

}  // namespace zrsimprp
