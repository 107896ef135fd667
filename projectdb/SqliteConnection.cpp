#include "projectdb/SqliteConnection.h"

#include <sqlite3.h>

#include <unordered_map>

#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

// The progress handler runs every this many virtual machine steps.
constexpr int kStepsPerProgressCall = 1000;

}  // namespace

struct SqliteConnection::StatementCache {
  std::unordered_map<std::string, std::unique_ptr<SqliteStatement>> by_sql;
};

SqliteConnection::Reused::~Reused() {
  if (statement_ != nullptr) statement_->Reset();
}

SqliteConnection::SqliteConnection(const std::string& path, int flags, const Limits& limits)
    : path_(path),
      step_budget_calls_(limits.statement_step_limit / kStepsPerProgressCall + 1),
      statements_(std::make_unique<StatementCache>()) {
  const int code = sqlite3_open_v2(path.c_str(), &db_, flags, nullptr);
  if (code != SQLITE_OK) {
    const std::string message = db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(code);
    sqlite3_close(db_);
    db_ = nullptr;
    throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite",
                       "The file '" + path + "' could not be opened (" + message + ").");
  }
  sqlite3_extended_result_codes(db_, 1);
  sqlite3_busy_timeout(db_, limits.busy_timeout_ms);
  sqlite3_progress_handler(db_, kStepsPerProgressCall, &SqliteConnection::OnProgress, this);
  // A project file is data, not code: its schema may not run functions with side effects, and
  // nothing may write to the file's internals directly.
  sqlite3_db_config(db_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(db_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_limit(db_, SQLITE_LIMIT_LENGTH, 256 * 1024 * 1024);
}

SqliteConnection::~SqliteConnection() {
  statements_.reset();
  sqlite3_close_v2(db_);
}

int SqliteConnection::OnProgress(void* self) {
  auto* connection = static_cast<SqliteConnection*>(self);
  return ++connection->steps_taken_ > connection->step_budget_calls_ ? 1 : 0;
}

void SqliteConnection::Fail(int code, const std::string& action) {
  std::string reason = sqlite3_errmsg(db_);
  if (code == SQLITE_INTERRUPT) reason = "the file took too long to read; it may be damaged";
  if ((code & 0xff) == SQLITE_NOTADB) reason = "it is not an SQLite database";
  if ((code & 0xff) == SQLITE_CORRUPT) reason = "the file is damaged (" + reason + ")";
  if ((code & 0xff) == SQLITE_BUSY) reason = "another program is using the file";
  if ((code & 0xff) == SQLITE_READONLY) reason = "the file may not be written";
  throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite",
                     "The project file '" + path_ + "' could not be " + action + ": " + reason + ".");
}

void SqliteConnection::Execute(const std::string& sql) {
  StartStatement();
  char* error = nullptr;
  const int code = sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &error);
  sqlite3_free(error);
  if (code != SQLITE_OK) Fail(code, "written");
}

SqliteStatement SqliteConnection::Prepare(const std::string& sql) {
  StartStatement();
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(db_, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr);
  if (code != SQLITE_OK) {
    sqlite3_finalize(statement);
    Fail(code, "read");
  }
  return SqliteStatement(*this, statement);
}

bool SqliteConnection::TableExists(const std::string& table) {
  SqliteStatement statement =
      Prepare("SELECT 1 FROM sqlite_master WHERE type IN ('table', 'view') AND name = ?1 COLLATE NOCASE");
  statement.Bind(1, table);
  return statement.Step();
}

int64_t SqliteConnection::Changes() { return sqlite3_changes(db_); }

bool SqliteConnection::IsReadOnly() { return sqlite3_db_readonly(db_, "main") == 1; }

int64_t SqliteConnection::DataVersion() {
  Reused statement = Reuse("PRAGMA data_version");
  return statement->Step() ? statement->Int64(0) : 0;
}

SqliteConnection::Reused SqliteConnection::Reuse(const std::string& sql) {
  std::unique_ptr<SqliteStatement>& slot = statements_->by_sql[sql];
  if (!slot) slot = std::make_unique<SqliteStatement>(Prepare(sql));
  return Reused(*slot);
}

std::string SqliteConnection::QuoteIdentifier(const std::string& identifier) {
  std::string quoted = "\"";
  for (const char c : identifier) {
    quoted += c;
    if (c == '"') quoted += '"';
  }
  return quoted + "\"";
}

}  // namespace zrsimprp
