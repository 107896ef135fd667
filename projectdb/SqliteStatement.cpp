#include "projectdb/SqliteStatement.h"

#include <sqlite3.h>

#include <limits>

#include "projectdb/SqliteConnection.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

SqliteStatement::SqliteStatement(SqliteConnection& connection, sqlite3_stmt* statement)
    : connection_(&connection), statement_(statement) {}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(statement_); }

SqliteStatement::SqliteStatement(SqliteStatement&& other) noexcept
    : connection_(other.connection_), statement_(other.statement_) {
  other.statement_ = nullptr;
}

SqliteStatement& SqliteStatement::Bind(int index, int64_t value) {
  const int code = sqlite3_bind_int64(statement_, index, value);
  if (code != SQLITE_OK) connection_->Fail(code, "read");
  return *this;
}

SqliteStatement& SqliteStatement::Bind(int index, double value) {
  const int code = sqlite3_bind_double(statement_, index, value);
  if (code != SQLITE_OK) connection_->Fail(code, "read");
  return *this;
}

SqliteStatement& SqliteStatement::Bind(int index, const std::string& value) {
  const int code =
      sqlite3_bind_text64(statement_, index, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  if (code != SQLITE_OK) connection_->Fail(code, "read");
  return *this;
}

SqliteStatement& SqliteStatement::BindBlob(int index, const std::string& bytes) {
  const int code = sqlite3_bind_blob64(statement_, index, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
  if (code != SQLITE_OK) connection_->Fail(code, "written");
  return *this;
}

SqliteStatement& SqliteStatement::BindNull(int index) {
  const int code = sqlite3_bind_null(statement_, index);
  if (code != SQLITE_OK) connection_->Fail(code, "read");
  return *this;
}

bool SqliteStatement::Step() {
  connection_->StartStatement();
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  connection_->Fail(code, sqlite3_stmt_readonly(statement_) ? "read" : "written");
}

void SqliteStatement::Run() {
  while (Step()) {
  }
}

void SqliteStatement::Reset() {
  sqlite3_reset(statement_);
  sqlite3_clear_bindings(statement_);
}

int SqliteStatement::ColumnCount() { return sqlite3_column_count(statement_); }

int SqliteStatement::ColumnType(int column) { return sqlite3_column_type(statement_, column); }

int64_t SqliteStatement::Int64(int column) { return sqlite3_column_int64(statement_, column); }

double SqliteStatement::Double(int column) { return sqlite3_column_double(statement_, column); }

std::string SqliteStatement::Text(int column) {
  const int type = ColumnType(column);
  const void* data =
      type == SQLITE_BLOB ? sqlite3_column_blob(statement_, column) : sqlite3_column_text(statement_, column);
  const int size = sqlite3_column_bytes(statement_, column);
  if (data == nullptr || size <= 0) return std::string();
  return std::string(static_cast<const char*>(data), static_cast<size_t>(size));
}

bool SqliteStatement::IsNull(int column) { return ColumnType(column) == SQLITE_NULL; }

int32_t SqliteStatement::RequireInt32(int column, const std::string& what) {
  const bool integral = ColumnType(column) == SQLITE_INTEGER;
  const int64_t value = integral ? Int64(column) : 0;
  if (!integral || value < std::numeric_limits<int32_t>::min() ||
      value > std::numeric_limits<int32_t>::max()) {
    throw RuntimeError(
        error_number::kInvalidProcedureCall, "SQLite",
        "The project file '" + connection_->Path() + "' is damaged: " + what + " is not a whole number.");
  }
  return static_cast<int32_t>(value);
}

std::string SqliteStatement::RequireText(int column, const std::string& what) {
  const int type = ColumnType(column);
  if (type == SQLITE_NULL) return std::string();
  if (type != SQLITE_TEXT) {
    throw RuntimeError(
        error_number::kInvalidProcedureCall, "SQLite",
        "The project file '" + connection_->Path() + "' is damaged: " + what + " is not text.");
  }
  return Text(column);
}

}  // namespace zrsimprp
