#include "projectdb/ProjectChecks.h"

#include <filesystem>
#include <system_error>

#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

void ProjectChecks::CheckName(const std::string& name, const std::string& what) {
  if (TrimBlanks(name).empty()) Refuse("A " + what + " needs a name.");
  if (name.find('\0') != std::string::npos)
    Refuse("The name of a " + what + " may not hold a NUL character.");
}

void ProjectChecks::CheckExistingFile(const std::string& path, const std::string& role) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (path.empty()) Refuse("No " + role + " was named.");
  if (!std::filesystem::exists(status)) Refuse("The " + role + " '" + path + "' does not exist.");
  if (std::filesystem::is_directory(status)) Refuse("'" + path + "' is a folder, not a " + role + ".");
  if (std::filesystem::file_size(path, error) == 0 && !error) {
    Refuse("The file '" + path + "' is empty, so it is not a " + role + ".");
  }
}

bool ProjectChecks::RowExists(SqliteConnection& connection, const std::string& table,
                              const std::string& column, const std::string& value) {
  SqliteStatement statement =
      connection.Prepare("SELECT 1 FROM " + SqliteConnection::QuoteIdentifier(table) + " WHERE " +
                         SqliteConnection::QuoteIdentifier(column) + " = ?1 COLLATE NOCASE");
  statement.Bind(1, value);
  return statement.Step();
}

bool ProjectChecks::IdExists(SqliteConnection& connection, const std::string& table, int32_t id) {
  SqliteStatement statement =
      connection.Prepare("SELECT 1 FROM " + SqliteConnection::QuoteIdentifier(table) + " WHERE id = ?1");
  statement.Bind(1, static_cast<int64_t>(id));
  return statement.Step();
}

}  // namespace zrsimprp
