#pragma once

#include <string>

namespace zrsimprp {

// A field (column) of a layer's attribute table.
class Field {
 public:
  virtual ~Field() = default;
  virtual std::string Name() = 0;
};

}  // namespace zrsimprp
