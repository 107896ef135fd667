#pragma once

namespace zrsim {

// The command line's exit statuses.
enum ExitStatus : int {
  kSuccess = 0,
  kValidationFailed = 1,  // a page failed its check, or the definition could not be rebuilt
  kUsageOrFileError = 2,  // a mistake in the arguments, or a file that cannot be used
};

}  // namespace zrsim
