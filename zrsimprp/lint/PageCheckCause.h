#pragma once

#include <string>

#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/lint/Finding.h"

namespace zrsimprp {

// A page whose checks were interrupted by an error shows only its generic unexpected-error message;
// this finding says which error it was, in words.
class PageCheckCause {
 public:
  // `page` as reports name it ("Density"); `error` the one the page's check caught.
  static Finding Explain(const std::string& page, const RuntimeError& error);
  // What an error number means for a page's checks ("a value that is empty or not a number").
  static std::string InWords(const RuntimeError& error);
};

}  // namespace zrsimprp
