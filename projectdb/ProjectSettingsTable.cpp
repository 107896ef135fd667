#include "projectdb/ProjectSettingsTable.h"

#include "projectdb/ProjectSchema.h"
#include "projectdb/SettingValueText.h"
#include "projectdb/SourcedCall.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

Variant ProjectSettingsTable::ReadSetting(int32_t, int32_t, const std::string& section,
                                          const std::string& key, const Variant& default_value) {
  return SourcedCall("ProjectSettings", [&]() -> Variant {
    SqliteConnection::Reused row =
        project_->Connection().Reuse(std::string("SELECT value_type, value FROM ") +
                                     ProjectSchema::kSettingsTable + " WHERE section = ?1 AND key = ?2");
    row->Bind(1, section).Bind(2, key);
    if (!row->Step()) return default_value;
    const std::string type = row->Text(0);
    std::optional<Variant> value = SettingValueText::Decode(type, *row, 1);
    if (!value) {
      throw RuntimeError(error_number::kTypeMismatch, "ProjectSettings",
                         "The setting '" + key + "' in section '" + section +
                             "' of the project file holds a value that does not match its type '" + type +
                             "'.");
    }
    return *value;
  });
}

void ProjectSettingsTable::WriteSetting(int32_t a, int32_t b, const std::string& section,
                                        const std::string& key, const Variant& value) {
  SourcedCall("ProjectSettings", [&]() {
    project_->Write([&] {
      SqliteStatement upsert = project_->Connection().Prepare(
          std::string("INSERT INTO ") + ProjectSchema::kSettingsTable +
          " (section, key, selector_a, selector_b, value_type, value) VALUES (?1, ?2, ?3, ?4, ?5, ?6)"
          " ON CONFLICT (section, key) DO UPDATE SET selector_a = excluded.selector_a,"
          " selector_b = excluded.selector_b, value_type = excluded.value_type, value = excluded.value");
      upsert.Bind(1, section).Bind(2, key).Bind(3, static_cast<int64_t>(a)).Bind(4, static_cast<int64_t>(b));
      upsert.Bind(5, std::string(SettingValueText::TypeName(value)));
      const std::optional<std::string> text = SettingValueText::Encode(value);
      if (text) {
        upsert.Bind(6, *text);
      } else {
        upsert.BindNull(6);
      }
      upsert.Run();
      ProjectSchema::Touch(project_->Connection(), ProjectSchema::kSettingsTable);
    });
  });
}

}  // namespace zrsimprp
