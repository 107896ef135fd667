#include "zrsim/DefinitionWords.h"

#include <cctype>
#include <string_view>

#include "zrsim/VisibleText.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsim {

namespace {

// "STRATUM LAYER" -> "stratum layer", "ModelSelection" -> "model selection".
std::string KeyWords(const std::string& key) {
  std::string words;
  for (std::size_t i = 0; i < key.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(key[i]);
    const bool starts_word = i > 0 && std::isupper(c) && std::islower(static_cast<unsigned char>(key[i - 1]));
    if (starts_word) words += ' ';
    words += static_cast<char>(std::tolower(c));
  }
  return VisibleText(words);
}

std::string EntryWords(const zrsimprp::DefinitionEntry& entry) {
  std::string words = KeyWords(entry.key);
  if (!entry.value.empty()) words += " " + VisibleText(entry.value);
  const std::size_t count = static_cast<std::size_t>(entry.field_count);
  for (std::size_t i = 0; i < count && i < entry.field_names.size() && i < entry.field_values.size(); ++i) {
    words += ", " + KeyWords(entry.field_names[i]) + " " + VisibleText(entry.field_values[i]);
  }
  return words;
}

}  // namespace

std::string DefinitionWords(const std::string& definition) {
  std::string words;
  std::string_view rest(definition);
  while (!rest.empty()) {
    zrsimprp::DefinitionEntry entry;
    try {
      zrsimprp::DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
    } catch (const zrsimprp::RuntimeError&) {
      words += std::string(words.empty() ? "" : ", ") + "(an entry that cannot be read)";
      continue;
    }
    if (entry.key.empty() || zrsimprp::TextEquals(entry.key, zrsimprp::entry_key::kEngine)) continue;
    words += (words.empty() ? "" : ", ") + EntryWords(entry);
  }
  return words;
}

}  // namespace zrsim
