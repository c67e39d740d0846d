#pragma once
// The guard most writing and deleting operations share: refuse an empty key with
// the class's message before any database access, then run one statement on a
// table only when the table answers the probe.
#include <string>

#include "dbaccess/DataObject.h"

namespace petrodb {

// True when `key` is a non-empty text; otherwise shows `message` and answers false.
inline bool KeyGiven(const char* key, const char* message) {
  if (key && *key) return true;
  AfxMessageBox(message);
  return false;
}

// Opens a session, probes `table` (false when it answers 2) and runs `statement`;
// answers ExecuteSQL's result.
inline bool ExecuteOnTable(const std::string& connection, const char* table, const std::string& statement) {
  CDbManage db(connection.c_str());
  if (TableMissing(db, table)) return false;
  return db.ExecuteSQL(statement.c_str());
}

}  // namespace petrodb
