#pragma once

#include <optional>
#include <string>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsim {

// The outcome of one page's validation: the page's name as the command line prints it, and the
// page's own message when it failed, and the error behind a failure the page could only call
// unexpected.
struct PageVerdict {
  std::string page;
  bool valid = false;
  std::string message;
  std::optional<zrsimprp::RuntimeError> cause;
};

}  // namespace zrsim
