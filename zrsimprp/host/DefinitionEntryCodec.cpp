#include "zrsimprp/host/DefinitionEntryCodec.h"

#include <array>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {
namespace {

constexpr const char* kSource = "DefinitionEntryCodec";

bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

struct SpecialTable {
  std::array<bool, 256> special{};
  SpecialTable() {
    for (unsigned char c : std::string_view(" \t\r\n;/=\"")) special[c] = true;
  }
};

bool IsSpecial(char c) {
  static const SpecialTable table;
  return table.special[static_cast<unsigned char>(c)];
}

// A cursor over the text of one entry. Every failure names what was expected and where, counted
// from the start of the entry's text.
class EntryParser {
 public:
  explicit EntryParser(std::string_view text) : text_(text) {}

  size_t Position() const { return pos_; }
  bool AtEnd() const { return pos_ >= text_.size(); }
  char Peek() const { return text_[pos_]; }
  void Advance() { ++pos_; }

  void SkipWhiteSpace() {
    while (pos_ < text_.size() && IsWhiteSpace(text_[pos_])) ++pos_;
  }

  // Reads a bare or quoted token into `out`; returns false, consuming nothing, when none starts here.
  bool ReadToken(std::string& out) {
    out.clear();
    if (AtEnd()) return false;
    if (text_[pos_] == '"') return ReadQuoted(out);
    const size_t start = pos_;
    while (pos_ < text_.size() && !IsSpecial(text_[pos_])) ++pos_;
    if (pos_ == start) return false;
    out.assign(text_.data() + start, pos_ - start);
    return true;
  }

  [[noreturn]] void Fail(const std::string& what) const {
    throw RuntimeError(error_number::kInvalidProcedureCall, kSource,
                       "Malformed definition entry: " + what + " at character " + std::to_string(pos_ + 1) +
                           " of \"" + Excerpt() + "\"");
  }

  // The offset just after the ";" that ends the bad entry, or the end of the text.
  size_t RecoveryPoint() const {
    const size_t semicolon = text_.find(';', pos_);
    return semicolon == std::string_view::npos ? text_.size() : semicolon + 1;
  }

 private:
  bool ReadQuoted(std::string& out) {
    ++pos_;  // opening quote
    while (true) {
      const size_t quote = text_.find('"', pos_);
      if (quote == std::string_view::npos) {
        pos_ = text_.size();
        Fail("a quoted text is not closed");
      }
      out.append(text_.data() + pos_, quote - pos_);
      pos_ = quote + 1;
      if (pos_ < text_.size() && text_[pos_] == '"') {
        out.push_back('"');
        ++pos_;
        continue;
      }
      return true;
    }
  }

  std::string Excerpt() const {
    constexpr size_t kLength = 40;
    std::string excerpt(text_.substr(0, kLength));
    for (char& c : excerpt) {
      if (c == '\r' || c == '\n' || c == '\t') c = ' ';
    }
    if (text_.size() > kLength) excerpt += "...";
    return excerpt;
  }

  std::string_view text_;
  size_t pos_ = 0;
};

// After a token: it must be followed by a separator, never glued to another token.
void ExpectSeparatorAfterToken(const EntryParser& parser) {
  if (!parser.AtEnd() && !IsSpecial(parser.Peek())) parser.Fail("a token runs into another");
  if (!parser.AtEnd() && parser.Peek() == '"') parser.Fail("a quote follows a token");
}

void ParseEntry(EntryParser& parser, DefinitionEntry& entry) {
  if (!parser.ReadToken(entry.key)) parser.Fail("a key is missing");
  ExpectSeparatorAfterToken(parser);
  parser.SkipWhiteSpace();
  if (parser.AtEnd() || parser.Peek() != '=')
    parser.Fail("\"=\" is missing after the key \"" + entry.key + "\"");
  parser.Advance();
  parser.SkipWhiteSpace();
  parser.ReadToken(entry.value);
  ExpectSeparatorAfterToken(parser);
  size_t count = 0;
  while (true) {
    parser.SkipWhiteSpace();
    if (parser.AtEnd()) break;
    if (parser.Peek() == ';') {
      parser.Advance();
      break;
    }
    if (parser.Peek() != '/')
      parser.Fail("\";\" or \"/\" is missing after the value of \"" + entry.key + "\"");
    parser.Advance();
    parser.SkipWhiteSpace();
    if (entry.field_names.size() <= count) entry.field_names.emplace_back();
    if (entry.field_values.size() <= count) entry.field_values.emplace_back();
    if (!parser.ReadToken(entry.field_names[count])) parser.Fail("a field name is missing after \"/\"");
    ExpectSeparatorAfterToken(parser);
    parser.SkipWhiteSpace();
    if (parser.AtEnd() || parser.Peek() != '=') {
      parser.Fail("\"=\" is missing after the field name \"" + entry.field_names[count] + "\"");
    }
    parser.Advance();
    parser.SkipWhiteSpace();
    parser.ReadToken(entry.field_values[count]);
    ExpectSeparatorAfterToken(parser);
    ++count;
  }
  entry.field_count = static_cast<int32_t>(count);
  const size_t slots = count == 0 ? 1 : count;
  entry.field_names.resize(slots);
  entry.field_values.resize(slots);
  if (count == 0) {
    entry.field_names[0].clear();
    entry.field_values[0].clear();
  }
}

void AppendToken(std::string& text, const std::string& token) {
  bool bare = !token.empty();
  for (char c : token) {
    if (IsSpecial(c)) {
      bare = false;
      break;
    }
  }
  if (bare) {
    text += token;
    return;
  }
  text.push_back('"');
  for (char c : token) {
    if (c == '"') text.push_back('"');
    text.push_back(c);
  }
  text.push_back('"');
}

}  // namespace

DefinitionEntryCodec& DefinitionEntryCodec::Instance() {
  static DefinitionEntryCodec codec;
  return codec;
}

void DefinitionEntryCodec::ReadNextEntry(std::string_view& text, DefinitionEntry& entry) {
  size_t start = 0;
  while (start < text.size() && IsWhiteSpace(text[start])) ++start;
  text.remove_prefix(start);
  entry.key.clear();
  entry.value.clear();
  if (text.empty()) {
    entry.field_names.assign(1, std::string());
    entry.field_values.assign(1, std::string());
    entry.field_count = 0;
    return;
  }
  EntryParser parser(text);
  try {
    ParseEntry(parser, entry);
  } catch (const RuntimeError&) {
    text.remove_prefix(parser.RecoveryPoint());
    throw;
  }
  parser.SkipWhiteSpace();
  text.remove_prefix(parser.Position());
}

void DefinitionEntryCodec::ReadNextEntry(std::string& text, std::string& key, std::string& value,
                                         std::vector<std::string>& field_names,
                                         std::vector<std::string>& field_values, int32_t& field_count) {
  DefinitionEntry entry;
  std::string_view rest(text);
  try {
    ReadNextEntry(rest, entry);
  } catch (const RuntimeError&) {
    text.erase(0, text.size() - rest.size());
    throw;
  }
  text.erase(0, text.size() - rest.size());
  key = std::move(entry.key);
  value = std::move(entry.value);
  field_names = std::move(entry.field_names);
  field_values = std::move(entry.field_values);
  field_count = entry.field_count;
}

void DefinitionEntryCodec::AppendEntry(std::string& text, const std::string& key, const std::string& value,
                                       std::vector<std::string>& field_names,
                                       std::vector<std::string>& field_values, int32_t field_count,
                                       int32_t /*flag*/, bool insert_line_breaks) {
  if (field_count < 0) {
    throw RuntimeError(error_number::kInvalidProcedureCall, kSource, "Invalid procedure call or argument");
  }
  const size_t count = static_cast<size_t>(field_count);
  if (field_names.size() < count || field_values.size() < count) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, kSource, "Subscript out of range");
  }
  AppendToken(text, key);
  text.push_back('=');
  AppendToken(text, value);
  for (size_t i = 0; i < count; ++i) {
    text += " /";
    AppendToken(text, field_names[i]);
    text.push_back('=');
    AppendToken(text, field_values[i]);
  }
  text.push_back(';');
  if (insert_line_breaks) text += "\r\n";
}

std::string DefinitionEntryCodec::EntryValue(const std::string& text, const std::string& key) {
  std::string_view rest(text);
  DefinitionEntry entry;
  while (!rest.empty()) {
    try {
      ReadNextEntry(rest, entry);
    } catch (const RuntimeError&) {
      continue;  // the bad entry is already dropped
    }
    if (!entry.key.empty() && TextEquals(entry.key, key)) return entry.value;
  }
  return std::string();
}

}  // namespace zrsimprp
