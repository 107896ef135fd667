#include "projectdb/ProjectSettingsTable.h"

#include <sqlite3.h>

#include <limits>

#include "projectdb/ProjectSchema.h"
#include "projectdb/SourcedCall.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

const char* TypeName(const Variant& value) {
  static const char* const kNames[] = {"null", "bool", "int16", "int32", "double", "string"};
  return kNames[value.index()];
}

void BindValue(SqliteStatement& statement, int index, const Variant& value) {
  if (std::holds_alternative<std::monostate>(value)) {
    statement.BindNull(index);
  } else if (const auto* flag = std::get_if<bool>(&value)) {
    statement.Bind(index, static_cast<int64_t>(*flag ? 1 : 0));
  } else if (const auto* small = std::get_if<int16_t>(&value)) {
    statement.Bind(index, static_cast<int64_t>(*small));
  } else if (const auto* number = std::get_if<int32_t>(&value)) {
    statement.Bind(index, static_cast<int64_t>(*number));
  } else if (const auto* real = std::get_if<double>(&value)) {
    statement.Bind(index, *real);
  } else {
    statement.Bind(index, std::get<std::string>(value));
  }
}

bool IntegerIn(SqliteStatement& row, int64_t low, int64_t high) {
  return row.ColumnType(1) == SQLITE_INTEGER && row.Int64(1) >= low && row.Int64(1) <= high;
}

// The stored value as the variant it was written as; nullopt when it does not match its type.
std::optional<Variant> StoredValue(SqliteStatement& row) {
  const std::string type = row.Text(0);
  if (type == "null") return Variant();
  if (type == "bool" && IntegerIn(row, 0, 1)) return Variant(row.Int64(1) != 0);
  if (type == "int16" &&
      IntegerIn(row, std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max())) {
    return Variant(static_cast<int16_t>(row.Int64(1)));
  }
  if (type == "int32" &&
      IntegerIn(row, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max())) {
    return Variant(static_cast<int32_t>(row.Int64(1)));
  }
  if (type == "double" && (row.ColumnType(1) == SQLITE_FLOAT || row.ColumnType(1) == SQLITE_INTEGER)) {
    return Variant(row.Double(1));
  }
  if (type == "string" && row.ColumnType(1) == SQLITE_TEXT) return Variant(row.Text(1));
  return std::nullopt;
}

}  // namespace

Variant ProjectSettingsTable::ReadSetting(int32_t, int32_t, const std::string& section,
                                          const std::string& key, const Variant& default_value) {
  return SourcedCall("ProjectSettings", [&]() -> Variant {
    SqliteStatement row =
        project_->Connection().Prepare(std::string("SELECT value_type, value FROM ") +
                                       ProjectSchema::kSettingsTable + " WHERE section = ?1 AND key = ?2");
    row.Bind(1, section).Bind(2, key);
    if (!row.Step()) return default_value;
    std::optional<Variant> value = StoredValue(row);
    if (!value) {
      throw RuntimeError(error_number::kTypeMismatch, "ProjectSettings",
                         "The setting '" + key + "' in section '" + section +
                             "' of the project file holds a value that does not match its type '" +
                             row.Text(0) + "'.");
    }
    return *value;
  });
}

void ProjectSettingsTable::WriteSetting(int32_t a, int32_t b, const std::string& section,
                                        const std::string& key, const Variant& value) {
  SourcedCall("ProjectSettings", [&]() {
    SqliteStatement upsert = project_->Connection().Prepare(
        std::string("INSERT INTO ") + ProjectSchema::kSettingsTable +
        " (section, key, selector_a, selector_b, value_type, value) VALUES (?1, ?2, ?3, ?4, ?5, ?6)"
        " ON CONFLICT (section, key) DO UPDATE SET selector_a = excluded.selector_a,"
        " selector_b = excluded.selector_b, value_type = excluded.value_type, value = excluded.value");
    upsert.Bind(1, section).Bind(2, key).Bind(3, static_cast<int64_t>(a)).Bind(4, static_cast<int64_t>(b));
    upsert.Bind(5, std::string(TypeName(value)));
    BindValue(upsert, 6, value);
    upsert.Run();
  });
}

}  // namespace zrsimprp
