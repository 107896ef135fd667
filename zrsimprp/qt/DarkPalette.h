#pragma once

#include <QPalette>

namespace zrsimprp {

// A dark palette for the Fusion style (the editor's --dark): light text on dark fields and
// buttons, with disabled texts dimmed.
class DarkPalette {
 public:
  static QPalette Make();
  // Switches the application to the Fusion style and this palette.
  static void Apply();
};

}  // namespace zrsimprp
