#include "zrsimprp/host/Required.h"

#include <string>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

void RaiseObjectNotSet(std::string_view what) {
  constexpr int32_t kObjectNotSet = 91;
  throw RuntimeError(kObjectNotSet, "ZrSIMPrp",
                     "Object variable or With block variable not set (" + std::string(what) + ")");
}

}  // namespace zrsimprp
