#pragma once

#include <string>

namespace zrsim_editor {

// What the command line asked of the editor.
struct EditorOptions {
  bool help = false;
  bool version = false;
  std::string project;                  // "" for the default sample project
  std::string simulation;               // "" for the project's first simulation
  std::string screenshot_dir;           // "" for the interactive window
  bool exit_after_first_frame = false;  // show the window, tell how long its first frame took, and exit
  bool dark = false;                    // the Fusion style with a dark palette
};

}  // namespace zrsim_editor
