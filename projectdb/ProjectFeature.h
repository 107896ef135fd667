#pragma once

#include <cstdint>

#include "zrsimprp/host/Feature.h"
#include "zrsimprp/host/Variant.h"

namespace zrsimprp {

// A record of a layer found by its identifier: its row in the feature table.
class ProjectFeature : public Feature {
 public:
  ProjectFeature(int64_t row_id, Variant id) : row_id_(row_id), id_(std::move(id)) {}
  int64_t RowId() const { return row_id_; }
  const Variant& ID() const { return id_; }

 private:
  int64_t row_id_;
  Variant id_;
};

}  // namespace zrsimprp
