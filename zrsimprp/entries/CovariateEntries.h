#pragma once

#include <vector>

#include "zrsimprp/entries/EntryRow.h"

namespace zrsimprp {

// The rows of the entries written from the Covariates page, in their write order.
class CovariateEntries {
 public:
  static std::vector<EntryRow> Rows();
};

}  // namespace zrsimprp
