#include "zrsimprp/modules/CModErrorHandling.h"

#include "zrsimprp/host/ErrorTrap.h"

namespace zrsimprp {

std::string CModErrorHandling::InternalErrorText(const std::string& component_name,
                                                 const std::string& module_name,
                                                 const std::string& routine_name, const RuntimeError& error) {
  const std::string crlf = "\r\n";
  return "The following internal error has occured in Pellunar:" + crlf + crlf + error.description + crlf +
         crlf + "(Error raised from: " + component_name + "." + module_name + "." + routine_name + ")" +
         crlf + "(Error source: " + error.source + ")" + crlf +
         "(Error number: " + std::to_string(error.number) + ")" + crlf + crlf +
         "If you suspect that this error is caused by a bug in the program, "
         "please note down all of the above information and contact the program authors." +
         crlf + crlf + "Press Ok and Pellunar will try to recover from the error." + crlf +
         "Press Help for more information about internal errors in Pellunar.";
}

void CModErrorHandling::ReportInternalError(Platform& platform, const std::string& module_name,
                                            const std::string& routine_name, const RuntimeError& error) {
  platform.ResetMousePointer();
  const std::string text = InternalErrorText(platform.ComponentName(), module_name, routine_name, error);
  platform.Beep();
  platform.MessageBox(text, "Pellunar Internal Error", MessageIcon::Critical);
}

namespace {

std::optional<RuntimeError>& LastCheckError() {
  static std::optional<RuntimeError> error;
  return error;
}

}  // namespace

std::optional<RuntimeError> CModErrorHandling::TakeLastCheckError() {
  std::optional<RuntimeError> error;
  error.swap(LastCheckError());
  return error;
}

bool CModErrorHandling::RunPageChecks(std::string& message,
                                      const std::function<std::string()>& first_failure) {
  std::string failure;
  if (!RunTrapped([&] { failure = first_failure(); },
                  [](const RuntimeError& error) { LastCheckError() = error; })) {
    message = kUnexpectedCheckMessage;
    return false;
  }
  if (!failure.empty()) {
    message += failure;
    return false;
  }
  message.clear();
  return true;
}

}  // namespace zrsimprp
