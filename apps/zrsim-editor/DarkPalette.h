#pragma once

#include <QPalette>

namespace zrsim_editor {

// The dark palette the editor shows with the Fusion style (--dark): light text on dark fields and
// buttons, with disabled texts dimmed.
class DarkPalette {
 public:
  static QPalette Make();
  // Switches the application to the Fusion style and this palette.
  static void Apply();
};

}  // namespace zrsim_editor
