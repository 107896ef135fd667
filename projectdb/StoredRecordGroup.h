#pragma once

#include <memory>
#include <vector>

#include "zrsimprp/host/RecordGroup.h"

namespace zrsimprp {

// The records of one kind read from the project file, in identifier order.
template <class R>
class StoredRecordGroup : public RecordGroup<R> {
 public:
  explicit StoredRecordGroup(std::vector<std::shared_ptr<R>> records) : records_(std::move(records)) {}
  std::vector<std::shared_ptr<R>> Records() override { return records_; }

 private:
  std::vector<std::shared_ptr<R>> records_;
};

}  // namespace zrsimprp
