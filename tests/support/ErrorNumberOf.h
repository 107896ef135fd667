#pragma once

#include <cstdint>
#include <optional>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

// The RuntimeError that `call` raises, or none.
template <class Call>
std::optional<RuntimeError> RaisedError(Call&& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error;
  }
  return std::nullopt;
}

// The number of the RuntimeError that `call` raises, or 0 when it raises none.
template <class Call>
int32_t ErrorNumberOf(Call&& call) {
  const std::optional<RuntimeError> error = RaisedError(call);
  return error ? error->number : 0;
}

}  // namespace zrsimprp
