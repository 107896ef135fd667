#pragma once

#include <memory>

#include "zrsimprp/host/Field.h"

namespace zrsimprp {

// A layer's attribute table: which field identifies a record and which one labels it.
class AttributeTable {
 public:
  virtual ~AttributeTable() = default;
  virtual std::shared_ptr<Field> IDField() = 0;
  virtual std::shared_ptr<Field> LabelField() = 0;  // null: the table has no label field
};

}  // namespace zrsimprp
