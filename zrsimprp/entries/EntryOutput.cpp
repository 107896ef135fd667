#include "zrsimprp/entries/EntryOutput.h"

#include <utility>

#include "zrsimprp/host/DefinitionEntryCodec.h"

namespace zrsimprp {

void EntryOutput::SetFields(const std::vector<std::string>& names, const std::vector<std::string>& values) {
  for (std::size_t i = 0; i < names.size() && i < kSlotCount; ++i) {
    names_[i] = names[i];
    values_[i] = i < values.size() ? values[i] : std::string();
  }
  count_ = static_cast<int32_t>(names.size());
}

void EntryOutput::Append(const std::string& key, const std::string& value) {
  AppendEntry(key, value, count_);
}

void EntryOutput::AppendWithoutFields(const std::string& key, const std::string& value) {
  AppendEntry(key, value, 0);
}

void EntryOutput::AppendEntry(const std::string& key, const std::string& value, int32_t field_count) {
  DefinitionEntryCodec::Instance().AppendEntry(text_, key, value, names_, values_, field_count, 0,
                                               line_breaks_);
}

}  // namespace zrsimprp
