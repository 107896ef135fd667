#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "zrsimprp/host/ReserveGrowing.h"

namespace zrsimprp {

// A list of entries with an item text and a key, numbered from 1 (error 9 outside).
class KeyedList {
 public:
  int32_t Count() const { return static_cast<int32_t>(entries_.size()); }
  void Add(const std::string& item, const std::string& key) { entries_.emplace_back(item, key); }
  void Add(std::string&& item, std::string&& key) { entries_.emplace_back(std::move(item), std::move(key)); }
  // Room for `count` entries in all (see ReserveGrowing).
  void Reserve(size_t count) { ReserveGrowing(entries_, count); }
  const std::string& Item(int32_t index) const { return At(index).first; }
  const std::string& Key(int32_t index) const { return At(index).second; }

 private:
  const std::pair<std::string, std::string>& At(int32_t index) const;

  std::vector<std::pair<std::string, std::string>> entries_;
};

}  // namespace zrsimprp
