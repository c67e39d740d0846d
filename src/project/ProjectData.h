#pragma once
// What the project and well master classes share beyond the data-object verbs:
// the group membership rows, display names, name lookups that fall back to the
// ID, and the code tables (system parameters, users, units).
#include <span>
#include <string>
#include <vector>

#include "dbaccess/DataObject.h"

namespace petrodb {

// A row of w_groupwell: one well in one group.
struct Membership {
  std::string GroupID;
  std::string WellID;
};
extern const ColumnTable<Membership> kMembershipColumns;

// Reads a name column and an ID column of the current row into `name`; an
// empty name gives the ID.
bool ReadDisplayName(const CDbManage& db, const char* nameColumn, const char* idColumn, std::string& name);


// A code table (system parameters, users, units): one row per key, an empty
// key refused with the table's message, a save that probes the table (with
// its own message), replaces the row through the class's delete and shows
// "保存数据库出错！" when the save fails; every message through MessageBoxA
// under "错误信息".
struct CodeTable {
  Message emptyKey;
  ReplaceSteps save;
};
constexpr CodeTable CodeTableOf(const char* table, const char* emptyKey, const char* tableMissing) {
  return {ErrorMessage(emptyKey), {table, Probe::First, ErrorMessage(tableMissing), ErrorMessage("保存数据库出错！")}};
}

template <class Interface>
class ProjectDataObject : public CDataObject<Interface> {
 protected:
  using CDataObject<Interface>::connectionString;

  // Saves a code table's row: refuses an empty key, then probes, runs
  // `remove()` (the class's delete; false ends the save silently) and writes
  // `row` as it stands after `remove()`.
  template <class Record, class RemoveFn>
  bool SaveCodeRow(const CodeTable& t, const std::string& key, RemoveFn&& remove, const ColumnTable<Record>& columns,
                   const Record& row) const {
    if (!KeyGiven(key, t.emptyKey)) return false;
    return this->ReplaceAfter(
        t.save, [&](CDbManage&) { return remove(); }, [&](CDbManage& db) { columns.AddRow(db, row); });
  }

  // Deletes a code table's row: refuses an empty key, answers false for a
  // missing table, otherwise the statement's result.
  bool DeleteCodeRow(const CodeTable& t, const char* key, const Statement& statement) const {
    return KeyGiven(key ? key : "", t.emptyKey) && this->ExecuteOnTable(t.save.table, statement);
  }

  // Loads by name in batches of ten (joined as the inside of "in ('...')"):
  // `byName(list)` first; a batch that does not answer with rows is sent once
  // more as `byID(list)`, and fails unless that finds rows. A row that cannot be
  // read fails at once. `out` is cleared first; records of earlier batches stay
  // on failure. An empty list sends nothing and is true.
  template <class Record, class ByName, class ByID>
  bool LoadBatchesByNameOrID(std::span<const std::string> names, ByName&& byName, ByID&& byID,
                             const ColumnTable<Record>& columns, std::vector<Record>& out) const {
    out.clear();
    for (const auto batch : sql::Batches(names, 10)) {
      const sql::Fragment list = sql::JoinQuotedValues(batch);
      Loaded loaded = this->LoadAll(byName(list), columns, out, Fill::Append);
      if (!loaded.found() && loaded.result != kRowUnreadable)
        loaded = this->LoadAll(byID(list), columns, out, Fill::Append);
      if (!loaded.found()) return false;
    }
    return true;
  }
};

}  // namespace petrodb
