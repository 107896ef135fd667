#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace zrsimprp {

class SqliteStatement;

// One open SQLite file. Failures raise RuntimeError with source "SQLite"; the project's objects
// re-raise them under their own interface name. Every statement is bounded by a step budget so that
// a damaged or hostile file cannot keep the caller busy forever.
class SqliteConnection {
 public:
  struct Limits {
    int64_t statement_step_limit = 2'000'000'000;
    int32_t busy_timeout_ms = 5000;
  };

  // `flags` are SQLite open flags; the file is never created unless they say so.
  SqliteConnection(const std::string& path, int flags, const Limits& limits);
  ~SqliteConnection();
  SqliteConnection(const SqliteConnection&) = delete;
  SqliteConnection& operator=(const SqliteConnection&) = delete;

  // Runs one or more statements that return no rows.
  void Execute(const std::string& sql);
  SqliteStatement Prepare(const std::string& sql);
  bool TableExists(const std::string& table);
  int64_t Changes();

  // Re-arms the step budget; each statement step calls this.
  void StartStatement() { steps_taken_ = 0; }
  [[noreturn]] void Fail(int code, const std::string& action);

  static std::string QuoteIdentifier(const std::string& identifier);

  sqlite3* Handle() { return db_; }
  const std::string& Path() const { return path_; }

 private:
  static int OnProgress(void* self);

  sqlite3* db_ = nullptr;
  std::string path_;
  int64_t step_budget_calls_;
  int64_t steps_taken_ = 0;
};

}  // namespace zrsimprp
