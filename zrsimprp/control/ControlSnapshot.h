#pragma once

#include <memory>
#include <vector>

#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/Control.h"
#include "zrsimprp/host/ControlState.h"

namespace zrsimprp {

class SIMProperties;

// What every page's controls hold at one moment, to go back to it (undo and redo). The tabs are
// where a person is and are left out; so is each grid's cursor.
class ControlSnapshot {
 public:
  static ControlSnapshot Take(SIMProperties& control);

  // Puts every control back as it was. A list whose choice differs is first chosen again, so that
  // what its page derives from the choice (a layer's strata, a distribution's parameters) follows
  // it; then every control gets its saved state, whatever that choice rebuilt. Errors of a page's
  // handler reach the caller.
  void Restore(SIMProperties& control) const;

  bool operator==(const ControlSnapshot& other) const;
  bool operator!=(const ControlSnapshot& other) const { return !(*this == other); }

  // Every control of every page, in page order; what a snapshot holds, one state each.
  static std::vector<Control*> ControlsOf(SIMProperties& control);

 private:
  static std::vector<ComboBox*> ListsOf(SIMProperties& control);

  std::vector<std::shared_ptr<const ControlState>> states_;
  std::vector<int> list_choices_;
};

}  // namespace zrsimprp
