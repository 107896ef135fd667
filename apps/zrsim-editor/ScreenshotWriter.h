#pragma once

#include <string>
#include <vector>

namespace zrsim_editor {

class EditorWindow;

// Draws the form on each of the six outer tabs and both inner tabs of the Population tab into PNG
// files, for documentation and for looking at the form where there is no display.
class ScreenshotWriter {
 public:
  struct Shot {
    std::string file_name;  // "1-simulation.png"
    int outer_tab;          // 0-5
    int inner_tab;          // 1-2 on the Population tab, 0 elsewhere
  };

  static const std::vector<Shot>& Shots();

  // Writes every shot into `folder` (created when missing) and returns the paths written. A tab
  // that the control refused to show (its page left another one invalid) is noted in `problems`.
  // EditorError when the folder or a file cannot be written.
  static std::vector<std::string> WriteAll(EditorWindow& window, const std::string& folder,
                                           std::vector<std::string>& problems);
};

}  // namespace zrsim_editor
