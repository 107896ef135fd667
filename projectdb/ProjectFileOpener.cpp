#include "projectdb/ProjectFileOpener.h"

#include <sqlite3.h>

#include <filesystem>
#include <system_error>

#include "projectdb/ProjectChecks.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteTransaction.h"
#include "zrsimprp/host/RuntimeError.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace zrsimprp {

namespace {

SqliteConnection::Limits ToLimits(const GeoPackageProject::OpenOptions& options) {
  SqliteConnection::Limits limits;
  limits.statement_step_limit = options.statement_step_limit;
  limits.busy_timeout_ms = options.busy_timeout_ms;
  return limits;
}

}  // namespace

ProjectFileOpener::Opened ProjectFileOpener::Open(const std::string& path,
                                                  const GeoPackageProject::OpenOptions& options) {
  ProjectChecks::CheckExistingFile(path, "project file");
  const bool read_only = options.read_only || !MayWrite(path);
  Opened opened;
  opened.connection = std::make_unique<SqliteConnection>(
      path, read_only ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE, ToLimits(options));
  opened.format_version = ProjectSchema::Verify(*opened.connection);
  return opened;
}

ProjectFileOpener::Opened ProjectFileOpener::Create(const std::string& path) {
  if (path.empty()) ProjectChecks::Refuse("No file name was given for the new project.");
  std::error_code error;
  if (std::filesystem::exists(path, error)) {
    ProjectChecks::Refuse("The file '" + path +
                          "' already exists; a new project needs a file name that is not in use.");
  }
  try {
    Opened opened;
    opened.connection = WriteEmptyProject(path);
    opened.format_version = ProjectSchema::kFormatVersion;
    return opened;
  } catch (const RuntimeError& failure) {
    std::filesystem::remove(path, error);
    throw RuntimeError(failure.number, ProjectChecks::kSource,
                       "The project file '" + path + "' could not be created. " + failure.description);
  }
}

std::unique_ptr<SqliteConnection> ProjectFileOpener::WriteEmptyProject(const std::string& path) {
  auto connection = std::make_unique<SqliteConnection>(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                                                       SqliteConnection::Limits());
  SqliteTransaction transaction(*connection);
  ProjectSchema::Create(*connection);
  transaction.Commit();
  return connection;
}

// A file, or the folder where SQLite writes its journal, that this process may not write is opened
// read-only, so that looking at it works and nothing tries to change it.
bool ProjectFileOpener::MayWrite(const std::string& path) {
#ifndef _WIN32
  std::filesystem::path folder = std::filesystem::path(path).parent_path();
  if (folder.empty()) folder = ".";
  return ::access(path.c_str(), W_OK) == 0 && ::access(folder.c_str(), W_OK) == 0;
#else
  std::error_code error;
  const auto permissions = std::filesystem::status(path, error).permissions();
  return !error && (permissions & std::filesystem::perms::owner_write) != std::filesystem::perms::none;
#endif
}

}  // namespace zrsimprp
