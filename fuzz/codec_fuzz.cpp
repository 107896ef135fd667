// Reads entries off arbitrary text until it is empty, then checks that every entry read survives a
// write and a second read unchanged.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/RuntimeError.h"

namespace {

struct Entry {
  std::string key, value;
  std::vector<std::string> names, values;
  int32_t count = 0;
};

void Check(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  auto& codec = zrsimprp::DefinitionEntryCodec::Instance();
  std::string text(reinterpret_cast<const char*>(data), size);
  std::vector<Entry> entries;
  size_t reads = 0;
  while (!text.empty()) {
    const size_t before = text.size();
    Entry entry;
    try {
      codec.ReadNextEntry(text, entry.key, entry.value, entry.names, entry.values, entry.count);
      Check(entry.count == 0 ? entry.values.size() == 1
                             : entry.values.size() == static_cast<size_t>(entry.count));
      entries.push_back(entry);
    } catch (const zrsimprp::RuntimeError&) {
    }
    Check(text.size() < before);  // every read shortens the text
    Check(++reads <= size + 1);
  }
  for (bool line_breaks : {false, true}) {
    std::string written;
    for (Entry& entry : entries) {
      codec.AppendEntry(written, entry.key, entry.value, entry.names, entry.values, entry.count, 0,
                        line_breaks);
    }
    for (const Entry& expected : entries) {
      Entry read;
      codec.ReadNextEntry(written, read.key, read.value, read.names, read.values, read.count);
      Check(read.key == expected.key && read.value == expected.value && read.count == expected.count);
      for (int32_t i = 0; i < read.count; ++i) {
        Check(read.names[static_cast<size_t>(i)] == expected.names[static_cast<size_t>(i)]);
        Check(read.values[static_cast<size_t>(i)] == expected.values[static_cast<size_t>(i)]);
      }
    }
    Check(written.empty() || written.find_first_not_of(" \t\r\n") == std::string::npos);
  }
  (void)codec.EntryValue(std::string(reinterpret_cast<const char*>(data), size), "Method");
  return 0;
}
