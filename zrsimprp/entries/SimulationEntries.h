#pragma once

#include <vector>

#include "zrsimprp/entries/EntryRow.h"

namespace zrsimprp {

// The rows of the entries written from the Simulation page, in their write order.
class SimulationEntries {
 public:
  static std::vector<EntryRow> Rows();
};

}  // namespace zrsimprp
