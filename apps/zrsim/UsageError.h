#pragma once

#include <stdexcept>
#include <string>

namespace zrsim {

// A mistake in the command line or an input file that cannot be used: the command prints the
// message and ends with status 2 without touching anything.
class UsageError : public std::runtime_error {
 public:
  explicit UsageError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace zrsim
