#include "zrsimprp/host/ComboTools.h"

#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

bool ComboTools::SelectComboItem(ComboBox& list, std::string_view text) {
  const auto& items = list.Items();
  for (size_t i = 0; i < items.size(); ++i) {
    if (TextEquals(items[i], text)) {
      list.SetListIndex(static_cast<int>(i));
      return true;
    }
  }
  return false;
}

void ComboTools::SelectComboItemOrFirst(ComboBox& list, std::string_view text) {
  if (!SelectComboItem(list, text) && list.ListCount() > 0) list.SetListIndex(0);
}

void ComboTools::ShowItems(ComboBox& list, const KeyedList& entries) {
  list.Clear();
  list.Reserve(static_cast<size_t>(entries.Count()));
  for (int32_t i = 1; i <= entries.Count(); ++i) list.AddItem(entries.Item(i));
  if (entries.Count() > 0) list.SetListIndex(0);
}

}  // namespace zrsimprp
