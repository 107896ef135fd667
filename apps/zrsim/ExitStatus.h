#pragma once

namespace zrsim {

// The command line's exit statuses.
enum ExitStatus : int {
  kSuccess = 0,
  kValidationFailed = 1,    // a page failed its check (or an error finding), or the text could not be rebuilt
  kUsageOrFileError = 2,    // a mistake in the arguments, or a file that cannot be used
  kWarningsWhenStrict = 3,  // check --strict: no error, but warnings
};

}  // namespace zrsim
