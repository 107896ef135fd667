#pragma once

#include <string>

namespace zrsim {

// The outcome of one page's validation: the page's name as the command line prints it, and the
// page's own message when it failed.
struct PageVerdict {
  std::string page;
  bool valid = false;
  std::string message;
};

}  // namespace zrsim
