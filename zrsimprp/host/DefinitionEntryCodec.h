#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zrsimprp {

// One entry of a definition text: a key, a main value and named value fields.
struct DefinitionEntry {
  std::string key;
  std::string value;
  std::vector<std::string> field_names;
  std::vector<std::string> field_values;
  int32_t field_count = 0;
};

// Reads and writes the entries of a definition text:
//   key=value /name=value /name=value;
// A token is bare when it is non-empty and holds none of blank, tab, CR, LF, ";", "/", "=" and '"';
// otherwise it is quoted with '"', a quote inside doubled. Any bytes survive a write and a read.
class DefinitionEntryCodec {
 public:
  static DefinitionEntryCodec& Instance();  // process-wide, created on first use

  // Takes the first entry and the white space after it off the front of `text`. White space only
  // gives an empty key and empties the text. An entry without fields has one empty field slot (count
  // 0), one with k fields exactly k slots. Malformed text raises RuntimeError (source
  // "DefinitionEntryCodec") after dropping the bad entry up to its ";" (or the whole rest), so a
  // caller that reads until the text is empty always ends.
  void ReadNextEntry(std::string& text, std::string& key, std::string& value,
                     std::vector<std::string>& field_names, std::vector<std::string>& field_values,
                     int32_t& field_count);
  // The same on a view of the text, which is advanced instead of shortened: reading a whole text
  // this way costs time in proportion to its length.
  void ReadNextEntry(std::string_view& text, DefinitionEntry& entry);

  // Appends key=value and the first `field_count` fields, then ";" and, with insert_line_breaks, CR LF.
  // `flag` is accepted for the host's signature and has no effect. Error 9 when the arrays are
  // shorter than field_count, 5 when it is negative.
  void AppendEntry(std::string& text, const std::string& key, const std::string& value,
                   std::vector<std::string>& field_names, std::vector<std::string>& field_values,
                   int32_t field_count, int32_t flag, bool insert_line_breaks);

  // The value of the first entry with that key (case ignored), or "". Malformed entries are passed over.
  std::string EntryValue(const std::string& text, const std::string& key);

 private:
  DefinitionEntryCodec() = default;
};

}  // namespace zrsimprp
