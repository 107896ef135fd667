#pragma once

#include <string>
#include <vector>

#include "zrsim-editor/EditorOptions.h"

namespace zrsim_editor {

// zrsim-editor [--project FILE] [--simulation NAME] [--screenshot DIR | --exit-after-first-frame]
class EditorArguments {
 public:
  // EditorError for every mistake.
  static EditorOptions Parse(const std::vector<std::string>& words);
  static std::string Usage();
  // The first of `candidates` that is an existing file; "" when none is.
  static std::string FirstExisting(const std::vector<std::string>& candidates);
};

}  // namespace zrsim_editor
