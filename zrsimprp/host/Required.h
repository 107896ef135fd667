#pragma once

#include <memory>
#include <string_view>
#include <utility>

namespace zrsimprp {

// Run-time error 91, "Object variable or With block variable not set", with `what` in brackets after
// it, raised with the control's name as its source.
[[noreturn]] void RaiseObjectNotSet(std::string_view what);

// The object a host call gave, or error 91 naming what is missing: a host may hand back nothing where
// a page needs an object. An object held by the caller is passed through without copying its handle
// (list walks ask this once per record); one a call returned is handed on, so it stays alive.
template <class T>
const std::shared_ptr<T>& Required(const std::shared_ptr<T>& object, std::string_view what) {
  if (!object) RaiseObjectNotSet(what);
  return object;
}

template <class T>
std::shared_ptr<T> Required(std::shared_ptr<T>&& object, std::string_view what) {
  if (!object) RaiseObjectNotSet(what);
  return std::move(object);
}

}  // namespace zrsimprp
