#pragma once

#include <stdexcept>
#include <string>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsim_editor {

// A mistake in the arguments or a project that cannot be used: the editor shows the message and
// ends with status 2.
class EditorError : public std::runtime_error {
 public:
  explicit EditorError(const std::string& message) : std::runtime_error(message) {}
};

// What went wrong, as a person reads it: a run-time error's own description, otherwise the message.
inline std::string ErrorText(const std::exception& error) {
  if (const auto* runtime = dynamic_cast<const zrsimprp::RuntimeError*>(&error)) return runtime->description;
  return error.what();
}

}  // namespace zrsim_editor
