#pragma once

#include <string>

#include "zrsimprp/host/Platform.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

// Page properties may only be set while the host runs; inside a form designer they raise error 382.
inline void RequireUserMode(Platform& platform, const std::string& source) {
  if (!platform.UserMode()) {
    throw RuntimeError(error_number::kSetNotPermittedInDesignMode, source,
                       "This property cannot be set while the control is being designed");
  }
}

}  // namespace zrsimprp
