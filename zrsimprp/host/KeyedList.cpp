#include "zrsimprp/host/KeyedList.h"

#include <charconv>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

void KeyedList::Add(std::string_view item, std::string_view key) {
  StartEntry();
  text_.append(item);
  const size_t item_end = text_.size();
  text_.append(key);
  entries_.push_back(Entry{item_end, text_.size()});
}

void KeyedList::AddNumbered(int32_t number, std::string_view name, int32_t key) {
  StartEntry();
  AppendNumber(number);
  text_.push_back(' ');
  text_.append(name);
  const size_t item_end = text_.size();
  AppendNumber(key);
  entries_.push_back(Entry{item_end, text_.size()});
}

// An Add that failed half-way (out of memory) may have left text behind the last entry; it would
// otherwise become the start of the next entry's item.
void KeyedList::StartEntry() { text_.resize(ItemBegin(entries_.size())); }

void KeyedList::AppendNumber(int32_t number) {
  char digits[16];
  const auto written = std::to_chars(digits, digits + sizeof digits, number);
  text_.append(digits, written.ptr);
}

size_t KeyedList::PositionOf(int32_t index) const {
  if (index < 1 || index > Count()) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, "KeyedList", "Subscript out of range");
  }
  return static_cast<size_t>(index - 1);
}

std::string_view KeyedList::ItemAt(size_t position) const {
  const size_t begin = ItemBegin(position);
  return std::string_view(text_).substr(begin, entries_[position].item_end - begin);
}

std::string_view KeyedList::KeyAt(size_t position) const {
  const Entry& entry = entries_[position];
  return std::string_view(text_).substr(entry.item_end, entry.key_end - entry.item_end);
}

std::string_view KeyedList::Item(int32_t index) const { return ItemAt(PositionOf(index)); }

std::string_view KeyedList::Key(int32_t index) const { return KeyAt(PositionOf(index)); }

std::string_view KeyedList::LastKeyOfItem(std::string_view item) const {
  for (size_t position = entries_.size(); position-- > 0;) {
    if (TextEquals(ItemAt(position), item)) return KeyAt(position);
  }
  return {};
}

std::string_view KeyedList::LastItemOfKey(std::string_view key) const {
  for (size_t position = entries_.size(); position-- > 0;) {
    if (TextEquals(KeyAt(position), key)) return ItemAt(position);
  }
  return {};
}

}  // namespace zrsimprp
