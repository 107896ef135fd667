#pragma once

#include <memory>
#include <vector>

namespace zrsimprp {

// A group of the project's records of one kind, in the project's order.
template <class R>
class RecordGroup {
 public:
  virtual ~RecordGroup() = default;
  virtual std::vector<std::shared_ptr<R>> Records() = 0;
};

}  // namespace zrsimprp
