#pragma once

#include <cstdint>
#include <string>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

class SqliteConnection;

// The refusals every part of a project file shares: the source its failures are reported under,
// names, files and rows that must (or must not) be there.
class ProjectChecks {
 public:
  // The interface a project's failures are reported under.
  static constexpr const char* kSource = "ProjectDatabase";

  // Raises a RuntimeError of kSource with `description`, a sentence a person can act on. Defined here so
  // that the GDAL module refuses in the same words without linking this library.
  [[noreturn]] static void Refuse(const std::string& description) {
    throw RuntimeError(error_number::kInvalidProcedureCall, kSource, description);
  }
  // Refuses a blank name, or one holding a NUL character, of a `what` ("layer", "simulation", ...).
  static void CheckName(const std::string& name, const std::string& what);
  // Explains a path that cannot be a `role` ("project file", "GeoPackage") before SQLite is asked, so
  // that the message names the cause.
  static void CheckExistingFile(const std::string& path, const std::string& role);

  // True when `table` has a row whose `column` equals `value` (case ignored).
  static bool RowExists(SqliteConnection& connection, const std::string& table, const std::string& column,
                        const std::string& value);
  // True when `table` has a row of identifier `id`.
  static bool IdExists(SqliteConnection& connection, const std::string& table, int32_t id);
};

}  // namespace zrsimprp
