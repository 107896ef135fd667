#pragma once

#include <vector>

#include "zrsimprp/entries/EntryRow.h"

namespace zrsimprp {

// The rows of the entries written from the Misc. page, in their write order.
class MiscEntries {
 public:
  static std::vector<EntryRow> Rows();
};

}  // namespace zrsimprp
