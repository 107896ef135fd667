#pragma once

#include <string>

#include "zrsimprp/host/ComboBox.h"

namespace zrsimprp {

// Selecting a list entry by its text.
class ComboTools {
 public:
  // Selects the first entry whose whole text equals `text` (case ignored), through SetListIndex so
  // that the list's click handler runs; returns false, selecting nothing, when no entry matches.
  static bool SelectComboItem(ComboBox& list, const std::string& text);
};

}  // namespace zrsimprp
