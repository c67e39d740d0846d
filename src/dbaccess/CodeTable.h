#pragma once
// The small code tables (one row per key: system parameters, users, units)
// share their steps: an empty key and a missing table are refused with the
// table's own messages, a save replaces the key's row, a delete returns what
// the statement did.
#include <string>

#include "dbaccess/DataObject.h"

namespace petrodb {

struct CodeTable {
  const char* table;
  const char* emptyKey;      // shown (MessageBoxA, "错误信息") for an empty key
  const char* tableMissing;  // shown when a save finds no table
};

// True when the bare table can be read and `statement` finds a row.
bool CodeRowExists(const std::string& connection, const CodeTable& t, const std::string& statement);

// Refuses an empty key, then runs `statement` unless the table is missing.
// The answer is the statement's.
bool DeleteCodeRow(const std::string& connection, const CodeTable& t, const std::string& key,
                   const std::string& statement);

// The named lists (well lists, sections) delete alike, with an application
// message for an empty name: false for an empty name or a missing table,
// otherwise true whatever `statement` did.
bool DeleteNamedRows(const std::string& connection, const char* table, const char* name, const char* emptyName,
                     const std::string& statement);

// Refuses an empty key and a missing table with their messages; then
// `replace()` (the class's delete, false ends the save silently), then one row
// written by `write(db)` between AddNew and SaveData; a failed save shows
// "保存数据库出错！". `write` may answer false to drop the begun row and fail.
template <class DeleteFn, class WriteFn>
bool SaveCodeRow(const std::string& connection, const CodeTable& t, const std::string& key, DeleteFn&& replace,
                 WriteFn&& write) {
  if (key.empty()) {
    ErrorMessageBox(t.emptyKey);
    return false;
  }
  CDbManage db(connection.c_str());
  if (TableMissing(db, t.table)) {
    ErrorMessageBox(t.tableMissing);
    return false;
  }
  if (!replace()) return false;
  db.BeginSaveData(t.table);
  db.AddNew();
  if (!write(db)) {
    db.CancelSaveData();
    return false;
  }
  if (!db.SaveData()) {
    ErrorMessageBox("保存数据库出错！");
    return false;
  }
  return true;
}

}  // namespace petrodb
