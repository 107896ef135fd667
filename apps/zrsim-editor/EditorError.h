#pragma once

#include <stdexcept>
#include <string>

namespace zrsim_editor {

// A mistake in the arguments or a project that cannot be used: the editor shows the message and
// ends with status 2.
class EditorError : public std::runtime_error {
 public:
  explicit EditorError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace zrsim_editor
