#pragma once

#include <cstdint>
#include <string>

namespace zrsimprp {

// A data filter of the project. ItemValues gives its identifier (a), its identifier again (b) and
// its name (s).
class DataFilter {
 public:
  virtual ~DataFilter() = default;
  virtual void ItemValues(int32_t& a, int32_t& b, std::string& s) = 0;
};

}  // namespace zrsimprp
