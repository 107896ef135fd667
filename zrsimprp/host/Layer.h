#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zrsimprp/host/AttributeTable.h"
#include "zrsimprp/host/Feature.h"
#include "zrsimprp/host/Variant.h"

namespace zrsimprp {

// A map layer of the project. Kind 1 marks the top of a parent chain (the study region).
class Layer {
 public:
  virtual ~Layer() = default;
  virtual std::string Name() = 0;
  virtual int32_t Kind() = 0;
  virtual std::shared_ptr<Layer> Parent(const std::string& arg) = 0;
  virtual std::shared_ptr<zrsimprp::AttributeTable> AttributeTable() = 0;
  // The values of the comma-separated fields for every record, indexed [field][record] in record
  // order; no value when the layer has no records.
  virtual std::optional<std::vector<std::vector<Variant>>> GetRows(const std::string& fields, int32_t a,
                                                                   int32_t b) = 0;
  virtual std::shared_ptr<Feature> FeatureByID(const Variant& id) = 0;
};

}  // namespace zrsimprp
