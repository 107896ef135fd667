#pragma once

namespace zrsimprp {

class SqliteConnection;

// BEGIN IMMEDIATE ... COMMIT; rolled back when left without Commit().
class SqliteTransaction {
 public:
  explicit SqliteTransaction(SqliteConnection& connection);
  ~SqliteTransaction();
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;
  void Commit();

 private:
  SqliteConnection& connection_;
  bool open_ = true;
};

}  // namespace zrsimprp
