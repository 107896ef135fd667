#include "projectdb/ProjectAttributeTable.h"

#include "projectdb/ProjectField.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

std::shared_ptr<Field> ProjectAttributeTable::IDField() { return Resolve(id_, "identifier"); }

std::shared_ptr<Field> ProjectAttributeTable::LabelField() {
  if (label_.named.empty()) return nullptr;
  return Resolve(label_, "label");
}

std::shared_ptr<Field> ProjectAttributeTable::Resolve(const FieldChoice& choice, const std::string& role) {
  if (choice.column.empty()) {
    throw RuntimeError(error_number::kInvalidProcedureCall, "AttributeTable",
                       "The layer '" + layer_ + "' names '" + choice.named + "' as its " + role +
                           " field, but its table '" + table_ + "' has no such field.");
  }
  return std::make_shared<ProjectField>(choice.column);
}

}  // namespace zrsimprp
