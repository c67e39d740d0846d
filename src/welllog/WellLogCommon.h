#pragma once
// What the well-log data classes share beyond the verbs of CDataObject: the
// refusal of an empty key, a table probe on its own, a removal step whose
// deletes must all run, and reading a stored row into the interface's record.
#include <span>
#include <string>

#include "dbaccess/DataObject.h"

namespace petrodb::welllog {

inline constexpr Message kEmptyWell = AppMessage("井名称不能为空！");
inline constexpr Message kEmptyProject = AppMessage("工区名称不能为空！");

// True when `key` is given; otherwise shows `empty` and answers false, before
// any database access.
inline bool Given(const char* key, const Message& empty) {
  if (key && *key) return true;
  empty.Show();
  return false;
}
inline bool Given(const std::string& key, const Message& empty) { return Given(key.c_str(), empty); }

// True when `table` answers its probe (not 2) on the connection.
inline bool TableAnswers(const std::string& connection, const char* table) {
  CDbManage db(connection.c_str());
  return !TableMissing(db, table);
}

// A removal step for ReplaceAfter whose deletes must all succeed: a refused one
// ends the replace before any of them runs, a failing one ends it at once.
inline auto DeletesThatMustRun(std::span<const Statement> deletes) {
  return [deletes](CDbManage& db) {
    for (const auto& d : deletes)
      if (d.refused()) return false;
    for (const auto& d : deletes)
      if (!db.ExecuteSQL(d.c_str())) return false;
    return true;
  };
}

// A removal step for ReplaceAfter that runs another operation of the class,
// `remove()`, and goes on whatever it answers.
template <class RemoveFn>
auto Regardless(RemoveFn remove) {
  return [remove](CDbManage&) {
    remove();
    return true;
  };
}

// A row reader for LoadRows: reads the stored row through the column table of
// `Row` (the interface's record plus the stored columns it leaves out) and
// keeps the interface's part.
template <class Record, class Row>
auto ReadAs(const ColumnTable<Row>& columns) {
  return [&columns](const CDbManage& db, Record& out) {
    Row row;
    const bool ok = columns.Read(db, row);
    out = static_cast<const Record&>(row);
    return ok;
  };
}

}  // namespace petrodb::welllog
