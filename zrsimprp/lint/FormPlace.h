#pragma once

#include "zrsimprp/lint/Finding.h"

namespace zrsimprp {

// Where in the form a finding points: the page and the control a person changes to act on it, found
// from the entry and field the finding is about (the page's word comes from the page table). The
// editor takes the person there; `zrsim check` prints it.
class FormPlace {
 public:
  // Sets `page` and `control` when the finding names an entry a page shows and they are not set yet.
  static void Locate(Finding& finding);
};

}  // namespace zrsimprp
