#include "projectdb/SettingValueText.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <limits>

#include "projectdb/SqliteStatement.h"

namespace zrsimprp {

namespace {

std::optional<int64_t> ParseInteger(const std::string& text) {
  int64_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end || text.empty()) return std::nullopt;
  return value;
}

std::optional<double> ParseDouble(const std::string& text) {
  double value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end || text.empty()) return std::nullopt;
  return value;
}

// The stored whole number whether it was kept as an integer (first format) or as text.
std::optional<int64_t> StoredInteger(SqliteStatement& row, int column) {
  if (row.ColumnType(column) == SQLITE_INTEGER) return row.Int64(column);
  if (row.ColumnType(column) == SQLITE_TEXT) return ParseInteger(row.Text(column));
  return std::nullopt;
}

template <class T>
std::optional<Variant> WholeNumber(SqliteStatement& row, int column) {
  const std::optional<int64_t> value = StoredInteger(row, column);
  if (!value || *value < std::numeric_limits<T>::min() || *value > std::numeric_limits<T>::max()) {
    return std::nullopt;
  }
  return Variant(static_cast<T>(*value));
}

std::optional<Variant> Boolean(SqliteStatement& row, int column) {
  if (row.ColumnType(column) == SQLITE_TEXT) {
    const std::string text = row.Text(column);
    if (text == "true") return Variant(true);
    if (text == "false") return Variant(false);
    return std::nullopt;
  }
  const std::optional<int64_t> value = StoredInteger(row, column);
  if (!value || (*value != 0 && *value != 1)) return std::nullopt;
  return Variant(*value == 1);
}

std::optional<Variant> Real(SqliteStatement& row, int column) {
  switch (row.ColumnType(column)) {
    case SQLITE_FLOAT:
    case SQLITE_INTEGER:
      return Variant(row.Double(column));
    case SQLITE_TEXT: {
      const std::optional<double> value = ParseDouble(row.Text(column));
      if (!value) return std::nullopt;
      return Variant(*value);
    }
    default:
      return std::nullopt;
  }
}

}  // namespace

const char* SettingValueText::TypeName(const Variant& value) {
  static const char* const kNames[] = {"null", "bool", "int16", "int32", "double", "string"};
  return kNames[value.index()];
}

std::optional<std::string> SettingValueText::Encode(const Variant& value) {
  if (std::holds_alternative<std::monostate>(value)) return std::nullopt;
  if (const auto* flag = std::get_if<bool>(&value)) return std::string(*flag ? "true" : "false");
  if (const auto* small = std::get_if<int16_t>(&value)) return std::to_string(*small);
  if (const auto* number = std::get_if<int32_t>(&value)) return std::to_string(*number);
  if (const auto* real = std::get_if<double>(&value)) {
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), *real);
    return std::string(buffer.data(), result.ptr);
  }
  return std::get<std::string>(value);
}

std::optional<Variant> SettingValueText::Decode(const std::string& type, SqliteStatement& row, int column) {
  if (type == "null") return Variant();
  if (type == "bool") return Boolean(row, column);
  if (type == "int16") return WholeNumber<int16_t>(row, column);
  if (type == "int32") return WholeNumber<int32_t>(row, column);
  if (type == "double") return Real(row, column);
  if (type == "string" && row.ColumnType(column) == SQLITE_TEXT) return Variant(row.Text(column));
  return std::nullopt;
}

}  // namespace zrsimprp
