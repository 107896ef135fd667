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
  // True when the file was opened read-only or SQLite found it cannot be written.
  bool IsReadOnly();
  // SQLite's count of commits made by other connections to this file; unchanged means every table
  // still reads as it did.
  int64_t DataVersion();
  // A statement prepared once per connection for `sql`, reset and cleared when the returned handle
  // goes, so that no finished read keeps the file locked.
  class Reused;
  Reused Reuse(const std::string& sql);

  // Re-arms the step budget; each statement step calls this.
  void StartStatement() { steps_taken_ = 0; }
  [[noreturn]] void Fail(int code, const std::string& action);

  static std::string QuoteIdentifier(const std::string& identifier);

  sqlite3* Handle() { return db_; }
  const std::string& Path() const { return path_; }

 private:
  static int OnProgress(void* self);

  struct StatementCache;

  sqlite3* db_ = nullptr;
  std::string path_;
  int64_t step_budget_calls_;
  int64_t steps_taken_ = 0;
  std::unique_ptr<StatementCache> statements_;
};

class SqliteConnection::Reused {
 public:
  explicit Reused(SqliteStatement& statement) : statement_(&statement) {}
  ~Reused();
  Reused(Reused&& other) noexcept : statement_(other.statement_) { other.statement_ = nullptr; }
  Reused(const Reused&) = delete;
  Reused& operator=(const Reused&) = delete;
  Reused& operator=(Reused&&) = delete;
  SqliteStatement* operator->() { return statement_; }
  SqliteStatement& operator*() { return *statement_; }

 private:
  SqliteStatement* statement_;
};

}  // namespace zrsimprp
