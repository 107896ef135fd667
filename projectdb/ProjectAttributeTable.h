#pragma once

#include <memory>
#include <string>

#include "zrsimprp/host/AttributeTable.h"

namespace zrsimprp {

// The identifier and label fields of a layer. A field the layer names but its table lacks is reported
// when it is asked for.
class ProjectAttributeTable : public AttributeTable {
 public:
  struct FieldChoice {
    std::string named;   // as the layer catalogue names it
    std::string column;  // the table's column, "" when the table has none of that name
  };

  ProjectAttributeTable(std::string layer, std::string table, FieldChoice id, FieldChoice label)
      : layer_(std::move(layer)), table_(std::move(table)), id_(std::move(id)), label_(std::move(label)) {}
  std::shared_ptr<Field> IDField() override;
  std::shared_ptr<Field> LabelField() override;

 private:
  std::shared_ptr<Field> Resolve(const FieldChoice& choice, const std::string& role);

  std::string layer_;
  std::string table_;
  FieldChoice id_;
  FieldChoice label_;
};

}  // namespace zrsimprp
