#pragma once

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// A small JSON reader for the tests: reads one value, strictly (no trailing text, no comments), so that
// the command line's JSON output can be parsed back and looked at.
struct JsonValue {
  enum class Kind { kNull, kBool, kNumber, kString, kArray, kObject };
  Kind kind = Kind::kNull;
  bool boolean = false;
  double number = 0;
  std::string text;
  std::vector<JsonValue> items;
  std::map<std::string, JsonValue> members;

  // The member of an object; std::out_of_range when it is missing.
  const JsonValue& operator[](const std::string& name) const { return members.at(name); }
  const JsonValue& operator[](std::size_t index) const { return items.at(index); }
  bool IsNull() const { return kind == Kind::kNull; }

  // std::runtime_error naming the offset where the text stops being JSON.
  static JsonValue Parse(std::string_view json);
};
