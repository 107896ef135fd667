#include "zrsimprp/lint/DefinitionEntries.h"

#include <cstdlib>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

}  // namespace

DefinitionEntries::DefinitionEntries(std::string_view text) : text_(text) {
  std::string_view rest = text;
  DefinitionEntry entry;
  while (!rest.empty()) {
    std::size_t start = text.size() - rest.size();
    while (start < text.size() && IsWhiteSpace(text[start])) ++start;
    try {
      DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
    } catch (const RuntimeError& error) {
      KeepBreak(start, error.description);
      return;
    }
    if (entry.key.empty()) continue;  // white space at the end
    MoveTo(start);
    entries_.push_back(Located{entry, line_, column_});
  }
}

void DefinitionEntries::MoveTo(std::size_t offset) {
  for (; counted_to_ < offset && counted_to_ < text_.size(); ++counted_to_) {
    if (text_[counted_to_] == '\n') {
      ++line_;
      column_ = 1;
    } else {
      ++column_;
    }
  }
}

void DefinitionEntries::KeepBreak(std::size_t entry_start, const std::string& description) {
  // The codec says what it expected and at which character of the entry; the rest of its text is an
  // excerpt that the line and column replace.
  static const std::string kPrefix = "Malformed definition entry: ";
  static const std::string kAt = " at character ";
  std::string reason = description;
  std::size_t offset = entry_start;
  if (reason.compare(0, kPrefix.size(), kPrefix) == 0) reason.erase(0, kPrefix.size());
  const std::size_t at = reason.rfind(kAt);
  if (at != std::string::npos) {
    const long character = std::strtol(reason.c_str() + at + kAt.size(), nullptr, 10);
    if (character > 0) offset = entry_start + static_cast<std::size_t>(character - 1);
    reason.erase(at);
  }
  // The codec looks past blanks and line breaks for what is missing; the place to point at is just
  // after the last thing it did read.
  while (offset > entry_start && offset <= text_.size() && IsWhiteSpace(text_[offset - 1])) --offset;
  MoveTo(offset);
  break_ = Break{line_, column_, reason};
}

}  // namespace zrsimprp
