#pragma once

#include <string_view>

#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/KeyedList.h"

namespace zrsimprp {

// Selecting a list entry by its text, and showing a keyed list's entries.
class ComboTools {
 public:
  // Selects the first entry whose whole text equals `text` (case ignored), through SetListIndex so
  // that the list's click handler runs; returns false, selecting nothing, when no entry matches.
  static bool SelectComboItem(ComboBox& list, std::string_view text);
  // SelectComboItem; when no entry matches, entry 0 of a list that has entries.
  static void SelectComboItemOrFirst(ComboBox& list, std::string_view text);
  // Clears the list, adds the item texts of `entries` in their order and selects entry 0 when there is
  // one (its click handler runs).
  static void ShowItems(ComboBox& list, const KeyedList& entries);
};

}  // namespace zrsimprp
