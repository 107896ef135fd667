#pragma once

#include <memory>
#include <string>

#include "projectdb/GeoPackageProject.h"

namespace zrsimprp {

class SqliteConnection;

// Opens a project file, or writes a new one: the checks of the path, read-only or read-write, the
// verification of the file's tables and its format version. GeoPackageProject wraps what it returns.
class ProjectFileOpener {
 public:
  struct Opened {
    std::unique_ptr<SqliteConnection> connection;
    int format_version = 0;
  };

  // An existing project; never creates a file. Read-only when asked, or when the file or its folder
  // (where SQLite keeps its journal) may not be written.
  static Opened Open(const std::string& path, const GeoPackageProject::OpenOptions& options);
  // A new, empty project; fails when the path exists, and leaves no file behind when writing fails.
  static Opened Create(const std::string& path);

 private:
  static bool MayWrite(const std::string& path);
  static std::unique_ptr<SqliteConnection> WriteEmptyProject(const std::string& path);
};

}  // namespace zrsimprp
