#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zrsimprp/host/ReserveGrowing.h"

namespace zrsimprp {

// A list of entries with an item text and a key, numbered from 1 (error 9 outside).
//
// Every text lives in one buffer, item then key, entry after entry: a project's lists run to tens of
// thousands of entries, and one string object per text cost two heap blocks and 64 bytes of slots per
// entry, which a page built anew on every opening allocated, touched and freed again. The views that
// Item and Key return stay valid until the next Add.
class KeyedList {
 public:
  int32_t Count() const { return static_cast<int32_t>(entries_.size()); }
  void Add(std::string_view item, std::string_view key);
  // The entry a project's record makes: item "<number> <name>", key "<key>", numbers in decimal.
  void AddNumbered(int32_t number, std::string_view name, int32_t key);
  // Room for `count` entries in all (see ReserveGrowing).
  void Reserve(size_t count) { ReserveGrowing(entries_, count); }
  std::string_view Item(int32_t index) const;
  std::string_view Key(int32_t index) const;

  // The key of the last entry whose item text equals `item`, case ignored; empty when none does.
  std::string_view LastKeyOfItem(std::string_view item) const;
  // The item text of the last entry whose key equals `key`, case ignored; empty when none does.
  std::string_view LastItemOfKey(std::string_view key) const;

 private:
  // Where an entry's item and key end in text_; its item starts where the entry before it ends.
  struct Entry {
    size_t item_end;
    size_t key_end;
  };

  // The entry's place in entries_ (error 9 when `index` names no entry).
  size_t PositionOf(int32_t index) const;
  size_t ItemBegin(size_t position) const { return position == 0 ? 0 : entries_[position - 1].key_end; }
  std::string_view ItemAt(size_t position) const;
  std::string_view KeyAt(size_t position) const;
  void StartEntry();
  void AppendNumber(int32_t number);

  std::string text_;
  std::vector<Entry> entries_;
};

}  // namespace zrsimprp
