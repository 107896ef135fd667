#pragma once

#include <cstdint>
#include <string>

struct sqlite3_stmt;

namespace zrsimprp {

class SqliteConnection;

// A prepared statement; binding indexes count from 1, column indexes from 0.
class SqliteStatement {
 public:
  SqliteStatement(SqliteConnection& connection, sqlite3_stmt* statement);
  ~SqliteStatement();
  SqliteStatement(SqliteStatement&& other) noexcept;
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;
  SqliteStatement& operator=(SqliteStatement&&) = delete;

  SqliteStatement& Bind(int index, int64_t value);
  SqliteStatement& Bind(int index, double value);
  SqliteStatement& Bind(int index, const std::string& value);
  SqliteStatement& BindBlob(int index, const std::string& bytes);
  SqliteStatement& BindNull(int index);

  // True while there is a row.
  bool Step();
  // Steps a statement that returns no rows.
  void Run();
  void Reset();

  int ColumnCount();
  int ColumnType(int column);  // SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB, SQLITE_NULL
  int64_t Int64(int column);
  double Double(int column);
  std::string Text(int column);  // also the bytes of a blob
  bool IsNull(int column);

  // Checked reads for values that must have one type; `what` names the value in the message.
  int32_t RequireInt32(int column, const std::string& what);
  std::string RequireText(int column, const std::string& what);  // NULL reads as ""

 private:
  SqliteConnection* connection_;
  sqlite3_stmt* statement_;
};

}  // namespace zrsimprp
