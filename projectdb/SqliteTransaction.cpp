#include "projectdb/SqliteTransaction.h"

#include "projectdb/SqliteConnection.h"

namespace zrsimprp {

SqliteTransaction::SqliteTransaction(SqliteConnection& connection) : connection_(connection) {
  connection_.Execute("BEGIN IMMEDIATE");
}

SqliteTransaction::~SqliteTransaction() {
  if (!open_) return;
  try {
    connection_.Execute("ROLLBACK");
  } catch (...) {
    // The failure that brought us here is the one worth reporting.
  }
}

void SqliteTransaction::Commit() {
  connection_.Execute("COMMIT");
  open_ = false;
}

}  // namespace zrsimprp
