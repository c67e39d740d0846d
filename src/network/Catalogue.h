#pragma once
// The catalogue family: tables of models (fittings, instruments, pumps, motors)
// keyed by one text column, each offering load by key, load all, list keys,
// exists, replace-one save, bulk save, delete by key and delete all.
//
// A class declares its catalogue once, from its own patterns, column table and
// messages:
//
//   const Catalogue<TeeRecord> kTees{
//       .columns = kTeeColumns, .key = &TeeRecord::TeeModel,
//       .loadKey = ByKey<kLoadTee>, .loadAll = Whole<kLoadAllTees>,
//       .deleteKey = ByKey<kDeleteTee>, .deleteAll = Whole<kDeleteAllTees>,
//       .emptyKey = ErrorMessage("三通型号不能为空！"), .tableMissing = ErrorMessage("三通基本数据表为空！")};
//
// and each of its operations is one call of CCatalogueObject. The key column is
// the first column of the column table.
#include <string>
#include <vector>

#include "dbaccess/DataObject.h"
#include "network/NetworkCommon.h"

namespace petrodb::network {

// Statement makers taken from a class's patterns: a pattern of one key value,
// and a fixed text.
template <const auto& P>
Statement ByKey(const char* key) {
  return P(key);
}
template <const auto& P>
Statement Whole() {
  return P();
}

template <class Record>
struct Catalogue {
  const ColumnTable<Record>& columns;  // the key column first
  std::string Record::*key;
  Statement (*loadKey)(const char*) = nullptr;  // the rows of one key
  Statement (*loadAll)() = nullptr;
  Statement (*listKeys)() = nullptr;
  Statement (*deleteKey)(const char*) = nullptr;
  Statement (*deleteAll)() = nullptr;
  Message emptyKey{};      // shown by saves given an empty key
  Message tableMissing{};  // shown by replace-one saves when the table answers 2
  Message saveFailed = kSaveFailed;

  const char* keyColumn() const { return columns.columns().front().name; }
  ReplaceSteps steps() const { return {columns.table(), Probe::First, tableMissing, saveFailed}; }
};

template <class Interface>
class CCatalogueObject : public CDataObject<Interface> {
 protected:
  // The first row of a key. False when there is none or a field cannot be read.
  template <class R>
  bool LoadEntry(const Catalogue<R>& c, const char* key, R& record) const {
    return this->LoadOne(c.loadKey(key), c.columns, record);
  }
  // Every row of a key (the points of a model), the list emptied first.
  template <class R>
  bool LoadEntryRows(const Catalogue<R>& c, const char* key, std::vector<R>& out) const {
    return this->LoadAll(c.loadKey(key), c.columns, out, Fill::Clear).found();
  }
  template <class R>
  bool LoadEntries(const Catalogue<R>& c, std::vector<R>& out) const {
    return this->LoadAll(c.loadAll(), c.columns, out, Fill::Clear).found();
  }
  template <class R>
  bool ListKeys(const Catalogue<R>& c, std::vector<std::string>& out) const {
    return this->ListColumn(c.listKeys(), c.keyColumn(), out, Fill::Clear).found();
  }
  template <class R>
  bool EntryExists(const Catalogue<R>& c, const char* key) const {
    return this->Exists(c.loadKey(key));
  }

  // Replaces the row of the record's key: the key must be given, the table must
  // answer its probe, and the key's delete (the class's delete-by-key
  // operation, run in the same session) must succeed before the row is written.
  template <class R>
  bool SaveEntry(const Catalogue<R>& c, const R& record) const {
    return SaveEntryRows(c, (record.*c.key).c_str(), std::vector<R>{record}, KeyOf::Record);
  }
  // Replaces every row of `key` by `rows`, each written under `key`.
  template <class R>
  bool SaveEntryRows(const Catalogue<R>& c, const char* key, const std::vector<R>& rows) const {
    return SaveEntryRows(c, key, rows, KeyOf::Argument);
  }

  // Appends the records as they are, deleting nothing and probing nothing.
  template <class R>
  bool SaveEntries(const Catalogue<R>& c, const std::vector<R>& rows) const {
    return this->Append(c.columns.table(), [&](CDbManage& db) { c.columns.AddRows(db, rows); });
  }
  template <class R>
  bool DeleteEntry(const Catalogue<R>& c, const char* key) const {
    return this->Execute(c.deleteKey(key));
  }
  template <class R>
  bool DeleteEntries(const Catalogue<R>& c) const {
    return this->Execute(c.deleteAll());
  }

 private:
  enum class KeyOf { Record, Argument };

  template <class R>
  bool SaveEntryRows(const Catalogue<R>& c, const char* key, const std::vector<R>& rows, KeyOf keyOf) const {
    if (!KeyGiven(key, c.emptyKey)) return false;
    const Statement remove = c.deleteKey(key);
    if (remove.refused()) return false;  // a key holding a quote: nothing is sent
    return this->ReplaceAfter(
        c.steps(), [&](CDbManage& db) { return db.ExecuteSQL(remove.c_str()); },
        [&](CDbManage& db) {
          for (const R& row : rows) {
            if (keyOf == KeyOf::Record) {
              c.columns.AddRow(db, row);
              continue;
            }
            R keyed = row;
            keyed.*c.key = key;
            c.columns.AddRow(db, keyed);
          }
        });
  }
};

}  // namespace petrodb::network
