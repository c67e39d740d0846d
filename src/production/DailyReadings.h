#pragma once
// The daily-readings family: readings of the network's nodes (injection wells,
// stations, station pumps) by node name and date, one row per node (and pump)
// and date. Each member declares its table, its column table, its statements
// and its messages once; its operations are single calls of CDailyReadings.
//
// Dates in statements are the caller's date literal, spliced unquoted (for
// example #2024-1-5# on an Access file, '2024-01-05' on a server). A loaded
// record holds the date as the column reads back ("2024-01-05 00:00:00"), which
// is no literal: saving that record again does not match its own row.
#include <string>
#include <vector>

#include "dbaccess/DataObject.h"

namespace petrodb::production {

// The key of one reading: the node, the pump number (pump members only) and the date.
struct ReadingKey {
  const char* node;
  const char* pump;
  const char* date;
};

template <class Record>
struct Readings {
  const ColumnTable<Record>& columns;
  ReadingKey (*keyOf)(const Record&);
  Statement (*loadOne)(ReadingKey);    // the reading of a key
  Statement (*exists)(ReadingKey);     // the existence test of a key
  Statement (*deleteOne)(ReadingKey);  // the delete of a key, also the replace step of the saves
  Message emptyNode{};
  Message emptyPump{};  // pump members only
  Message emptyDate{};
  Message tableMissing{};

  ReplaceSteps steps() const { return {columns.table(), Probe::First, tableMissing, ErrorMessage("保存数据库出错！")}; }
};

// A reading's date column holds the caller's literal (#2024-1-5#,
// '2024-01-05'); the session stores the date inside the delimiters, so the same
// text that finds the row in a statement stores it.

inline constexpr Message kEmptyNetwork = ErrorMessage("管网名称不能为空！");

template <class Interface>
class CDailyReadings : public CDataObject<Interface> {
 protected:
  template <class R>
  bool LoadReading(const Readings<R>& m, ReadingKey key, R& record) const {
    return this->LoadOne(m.loadOne(key), m.columns, record);
  }
  // The rows of a statement, the list emptied first; false when there is none
  // or at the first row that cannot be read.
  template <class R>
  bool LoadReadings(const Readings<R>& m, const Statement& statement, std::vector<R>& out) const {
    return this->LoadAll(statement, m.columns, out, Fill::Clear).found();
  }
  bool ListNames(const Statement& statement, const char* column, std::vector<std::string>& out) const {
    return this->ListColumn(statement, column, out, Fill::Clear).found();
  }
  template <class R>
  bool ReadingExists(const Readings<R>& m, ReadingKey key) const {
    return this->ExistsInTable(m.columns.table(), m.exists(key));
  }

  // Replaces one reading: the key must be given, the table must answer, the
  // key's delete runs (what it did is not looked at), then the row is written.
  template <class R>
  bool SaveReading(const Readings<R>& m, const R& record) const {
    if (!KeyGiven(m, m.keyOf(record))) return false;
    return this->Replace(m.steps(), m.deleteOne(m.keyOf(record)),
                         [&](CDbManage& db) { m.columns.AddRow(db, record); });
  }
  // Probes the table, then appends every record; nothing is deleted.
  template <class R>
  bool AppendReadings(const Readings<R>& m, const std::vector<R>& records) const {
    return this->Save(m.steps(), [&](CDbManage& db) { m.columns.AddRows(db, records); });
  }
  // Probes the table, runs the delete of every record's key in order, then
  // appends them all in one save: exactly the keys the list carries are replaced.
  template <class R>
  bool ReplaceReadings(const Readings<R>& m, const std::vector<R>& records) const {
    std::vector<Statement> deletes;
    for (const auto& r : records) deletes.push_back(m.deleteOne(m.keyOf(r)));
    return this->Replace(m.steps(), deletes, [&](CDbManage& db) { m.columns.AddRows(db, records); });
  }
  // A network-wide delete: the network name must be given.
  bool DeleteInNetwork(const char* network, const Statement& statement) const {
    return KeyGivenOr(network, kEmptyNetwork) && this->Execute(statement);
  }

 private:
  static bool KeyGivenOr(const char* key, const Message& empty) { return petrodb::KeyGiven(key, empty); }
  template <class R>
  static bool KeyGiven(const Readings<R>& m, ReadingKey key) {
    if (!petrodb::KeyGiven(key.node, m.emptyNode)) return false;
    if (m.emptyPump.text && !petrodb::KeyGiven(key.pump, m.emptyPump)) return false;
    return petrodb::KeyGiven(key.date, m.emptyDate);
  }
};

}  // namespace petrodb::production
