#pragma once

#include <vector>

#include "zrsimprp/entries/EntryRow.h"

namespace zrsimprp {

// The rows of the entries written from the Population page, in their write order.
class PopulationEntries {
 public:
  static std::vector<EntryRow> Rows();
};

}  // namespace zrsimprp
