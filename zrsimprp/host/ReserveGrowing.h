#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace zrsimprp {

// Room for `count` items in all, so that filling a long list does not copy it as it grows. The room at
// least doubles, so that a list filled group by group, with room asked for before each group, is
// copied a bounded number of times instead of once per group.
template <class T>
void ReserveGrowing(std::vector<T>& items, size_t count) {
  if (count > items.capacity()) items.reserve(std::max(count, 2 * items.capacity()));
}

}  // namespace zrsimprp
