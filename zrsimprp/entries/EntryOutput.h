#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zrsimprp {

// The text being written and the field slots of the write. The slots are shared by all entries and
// never cleared, so an entry that sets no fields of its own carries the last ones set, count included.
class EntryOutput {
 public:
  static constexpr std::size_t kSlotCount = 11;

  explicit EntryOutput(bool line_breaks) : line_breaks_(line_breaks) {}

  // Puts `names` and `values` in the first slots and makes them the fields of the next entries.
  void SetFields(const std::vector<std::string>& names, const std::vector<std::string>& values);
  // Written fields: none from here on (the slots keep their text).
  void ClearFieldCount() { count_ = 0; }
  // key=value with the fields set last.
  void Append(const std::string& key, const std::string& value);
  // key=value without fields, whatever the slots hold.
  void AppendWithoutFields(const std::string& key, const std::string& value);

  std::string TakeText() { return std::move(text_); }

 private:
  void AppendEntry(const std::string& key, const std::string& value, int32_t field_count);

  bool line_breaks_;
  std::string text_;
  std::vector<std::string> names_ = std::vector<std::string>(kSlotCount);
  std::vector<std::string> values_ = std::vector<std::string>(kSlotCount);
  int32_t count_ = 0;
};

}  // namespace zrsimprp
