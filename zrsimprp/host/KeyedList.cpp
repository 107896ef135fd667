#include "zrsimprp/host/KeyedList.h"

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

const std::pair<std::string, std::string>& KeyedList::At(int32_t index) const {
  if (index < 1 || index > Count()) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, "KeyedList", "Subscript out of range");
  }
  return entries_[static_cast<size_t>(index - 1)];
}

}  // namespace zrsimprp
