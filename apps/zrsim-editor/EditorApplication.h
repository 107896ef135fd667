#pragma once

#include <string>
#include <vector>

#include "zrsim-editor/EditorOptions.h"

namespace zrsim_editor {

// The process around the window: arguments, the choice of Qt platform, the default project, and
// how failures are told (standard error, plus a message box when there is a screen to show it on).
class EditorApplication {
 public:
  static int Main(int& argc, char** argv, const std::vector<std::string>& words);

  // True when a message box can be shown: a display exists and Qt is not told to draw off screen.
  static bool CanShowBoxes(const EditorOptions& options);
  // The project opened when none is named: the build's sample, then the installed one.
  static std::string DefaultProject(const std::string& application_dir);

 private:
  static int Fail(int& argc, char** argv, const EditorOptions& options, const std::string& message);
  static int Run(const EditorOptions& options);
  // The interactive editor: menus, the simulations list and the form (see EditorSession).
  static int RunSession(const EditorOptions& options);
};

}  // namespace zrsim_editor
