#include "zrsimprp/host/ComboTools.h"

#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

bool ComboTools::SelectComboItem(ComboBox& list, const std::string& text) {
  const auto& items = list.Items();
  for (size_t i = 0; i < items.size(); ++i) {
    if (TextEquals(items[i], text)) {
      list.SetListIndex(static_cast<int>(i));
      return true;
    }
  }
  return false;
}

}  // namespace zrsimprp
