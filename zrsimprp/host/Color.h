#pragma once

#include <cstdint>

namespace zrsimprp {

enum class SystemColorRole { kNone, kWindowBackground, kButtonFace };

// A colour as the controls keep it: either a system colour, named by its role so that a view can
// draw it from the current palette (dark themes included), or a plain RGB value. The RGB of a
// system colour is a light-theme stand-in for views that have no palette.
struct Color {
  uint8_t red = 255;
  uint8_t green = 255;
  uint8_t blue = 255;
  SystemColorRole role = SystemColorRole::kNone;

  static constexpr Color Rgb(uint8_t r, uint8_t g, uint8_t b) {
    return Color{r, g, b, SystemColorRole::kNone};
  }
  static constexpr Color System(SystemColorRole role) {
    return role == SystemColorRole::kButtonFace ? Color{240, 240, 240, role} : Color{255, 255, 255, role};
  }

  friend constexpr bool operator==(const Color& a, const Color& b) {
    if (a.role != b.role) return false;
    if (a.role != SystemColorRole::kNone) return true;
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
  }
  friend constexpr bool operator!=(const Color& a, const Color& b) { return !(a == b); }
};

}  // namespace zrsimprp
