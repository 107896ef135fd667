#pragma once

#include <cstdint>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

// The number of the RuntimeError that `call` raises, or 0 when it raises none.
template <class Call>
int32_t ErrorNumberOf(Call&& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error.number;
  }
  return 0;
}

}  // namespace zrsimprp
