#pragma once

#include <functional>
#include <optional>
#include <string>

#include "zrsimprp/host/Platform.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

// The internal-error report that every trapped routine shows when an unexpected error reaches it.
class CModErrorHandling {
 public:
  // What a page's IsValid leaves in its message when an error interrupts its checks.
  static constexpr const char* kUnexpectedCheckMessage =
      "An unexpected error occured while checking the options on this page.   "
      "Please check they are valid and change any incorrect values";

  // The routine name every page's Initialize reports its errors under. The misspelling is what hosts
  // and their users have always seen in these reports, and it is kept on purpose: do not correct it.
  static constexpr const char* kInitializeRoutine = "Inititalize";

  // The report's text for `error` raised in module.routine of the component `component_name`.
  static std::string InternalErrorText(const std::string& component_name, const std::string& module_name,
                                       const std::string& routine_name, const RuntimeError& error);

  // Every page's IsValid: `first_failure` runs the page's checks in order and gives the first
  // failure's message, or "" when all pass. A failure is appended to `message` and gives false; a
  // pass empties `message`; an error inside the checks replaces `message` with the unexpected-error
  // text and gives false.
  static bool RunPageChecks(std::string& message, const std::function<std::string()>& first_failure);
  // The error that last interrupted a page's checks, taken once (for reports that explain the
  // unexpected-error text); the pages' behaviour does not depend on it.
  static std::optional<RuntimeError> TakeLastCheckError();

  // Resets the mouse pointer, beeps and shows the text in a critical-stop box titled
  // "Pellunar Internal Error".
  static void ReportInternalError(Platform& platform, const std::string& module_name,
                                  const std::string& routine_name, const RuntimeError& error);
};

}  // namespace zrsimprp
