#pragma once

#include <optional>
#include <string>

#include "zrsimprp/host/Variant.h"

namespace zrsimprp {

class SqliteStatement;

// How a setting's value is kept in the project file: a declared type name beside the value as text,
// so that every GeoPackage reader sees an ordinary TEXT column while this host reads back exactly the
// variant that was written. Files of the first format kept the value in an untyped column; their
// integers and reals are read too.
class SettingValueText {
 public:
  // "null", "bool", "int16", "int32", "double" or "string".
  static const char* TypeName(const Variant& value);
  // The value as stored text; nullopt for null. Doubles keep every bit (shortest round-trip form).
  static std::optional<std::string> Encode(const Variant& value);
  // The variant of type `type` held in column `column` of the row; nullopt when the stored value does
  // not fit its type.
  static std::optional<Variant> Decode(const std::string& type, SqliteStatement& row, int column);
};

}  // namespace zrsimprp
