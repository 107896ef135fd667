#pragma once

#include <exception>
#include <utility>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

// A routine's error trap: runs `body`; a RuntimeError, or any other std::exception (as number 51 with
// what() as description), is handed to `on_error` instead of leaving the routine.
// Returns true when the body finished without an error.
template <class Body, class OnError>
bool RunTrapped(Body&& body, OnError&& on_error) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const RuntimeError& error) {
    on_error(error);
  } catch (const std::exception& error) {
    on_error(RuntimeError(error_number::kApplicationDefined, "ZrSIMPrp", error.what()));
  }
  return false;
}

}  // namespace zrsimprp
