#pragma once

#include <exception>
#include <new>
#include <utility>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

// Runs `body` and re-raises any failure as a RuntimeError of the interface `source`, so that a caller
// sees which host object failed whatever layer of the file access raised it.
template <class Body>
auto SourcedCall(const char* source, Body&& body) -> decltype(body()) {
  try {
    return std::forward<Body>(body)();
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number, source, error.description);
  } catch (const std::bad_alloc&) {
    throw RuntimeError(7, source, "Out of memory");
  } catch (const std::exception& error) {
    throw RuntimeError(error_number::kApplicationDefined, source, error.what());
  }
}

}  // namespace zrsimprp
