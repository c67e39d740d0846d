#pragma once
// What every data class shares: the stored connection string, registration in
// the catalogue, and the verbs its operations are made of.
//
// A data class declares its statement patterns (Statement.h), its column tables
// (Columns.h) and its messages, then writes each operation as a few calls of the
// verbs below. Each verb opens the operation's session on the connection string
// and closes it before it returns; sessions that one operation opens on one
// thread share a connection, so a verb inside another costs no reconnect.
#include <memory>
#include <new>
#include <span>
#include <string>
#include <vector>

#include "dbaccess/Columns.h"
#include "dbaccess/ConnectionString.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Messages.h"
#include "dbaccess/SqlText.h"
#include "dbaccess/Statement.h"
#include "module/Catalogue.h"
#include "petrodb/IDataBase.h"

namespace petrodb {

using sql::Pattern;
using sql::Statement;

// What a select answers when a row of its result could not be read.
inline constexpr int kRowUnreadable = -1;

// The outcome of reading a list of rows.
struct Loaded {
  int result = kFailed;  // kRowsFound, kNoRows, kFailed or kRowUnreadable
  // The statement ran, found at least one row, and every row was read.
  bool found() const { return result == kRowsFound; }
  // The statement ran and every row was read (no rows included).
  bool ran() const { return result == kRowsFound || result == kNoRows; }
};

// Whether an operation that fills a vector empties it first. Lists are cleared
// unless the operation is one that appends to what the caller has.
enum class Fill { Clear, Append };

// True when the rows of the current result ended on an engine error.
bool RowsFailed(const CDbManage& db);

// Runs a select and calls `row(db)` for each row (Read before each, the first
// included) until it returns false or the rows end. Answers the select's result,
// or kFailed when the rows ended on an engine error rather than at their end.
template <class RowFn>
int ForEachRow(CDbManage& db, const Statement& statement, bool binary, RowFn&& row) {
  const GetDataResult result = db.GetDataFromDB(statement.c_str(), binary);
  if (result != kRowsFound) return result;
  while (db.Read())
    if (!row(db)) return kRowUnreadable;
  return RowsFailed(db) ? kFailed : result;
}

// True when the bare table answers 2 (missing, or no connection).
inline bool TableMissing(CDbManage& db, const char* table) { return db.GetDataFromDB(table, false) == kFailed; }

// When a replace probes its table: before its deletes, after them, or not at all.
enum class Probe { First, AfterDelete, None };

// When a load is sent again under a second statement.
enum class Fallback {
  WhenNoRows,   // only when the first finds no row
  UnlessFound,  // whenever the first does not answer with rows (no rows or a failure)
};

// The steps of a replace by key, as a class's operation takes them.
struct ReplaceSteps {
  const char* table;
  Probe probe = Probe::First;
  Message tableMissing{};  // shown when the probe answers 2 (nothing shown when empty)
  Message saveFailed{};    // shown when SaveData fails
};

// True when `key` is given (not null, not empty); otherwise shows `empty` and
// answers false, before any database access.
inline bool KeyGiven(const char* key, const Message& empty) {
  if (key && *key) return true;
  empty.Show();
  return false;
}
inline bool KeyGiven(const std::string& key, const Message& empty) { return KeyGiven(key.c_str(), empty); }

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

// A removal step for ReplaceAfter that runs another operation, `remove()`, and
// goes on whatever it answers.
template <class RemoveFn>
auto Regardless(RemoveFn remove) {
  return [remove](CDbManage&) {
    remove();
    return true;
  };
}

template <class Interface>
class CDataObject : public Interface {
 public:
  void SetConnection(const char* connection) override { connectionString = connection ? connection : ""; }

 protected:
  // True for Access project files: the statements with lcase(...) and #dates#.
  bool IsJet() const { return db::IsJetConnection(connectionString); }

  // ---- reading ----

  // What the statement answers: kRowsFound, kNoRows or kFailed.
  GetDataResult Answer(const Statement& statement) const {
    CDbManage db(connectionString.c_str());
    return db.GetDataFromDB(statement.c_str());
  }

  // True when the statement finds a row.
  bool Exists(const Statement& statement) const { return Answer(statement) == kRowsFound; }

  // True when `table` answers its probe and the statement finds a row.
  bool ExistsInTable(const char* table, const Statement& statement) const {
    CDbManage db(connectionString.c_str());
    return !TableMissing(db, table) && db.GetDataFromDB(statement.c_str()) == kRowsFound;
  }

  // The first row of the statement into `record`. False when it finds no row or
  // a required column cannot be read (the fields read before it keep their values).
  template <class Record>
  bool LoadOne(const Statement& statement, const ColumnTable<Record>& columns, Record& record,
               bool binary = false) const {
    CDbManage db(connectionString.c_str());
    return db.GetDataFromDB(statement.c_str(), binary) == kRowsFound && columns.Read(db, record);
  }

  // As LoadOne, with the class's own row reader `read(db, record)`.
  template <class Record, class ReadFn>
  bool LoadOneWith(const Statement& statement, ReadFn&& read, Record& record, bool binary = false) const {
    CDbManage db(connectionString.c_str());
    return db.GetDataFromDB(statement.c_str(), binary) == kRowsFound && read(db, record);
  }

  // The first row of `first`, or, when `fallback` says so, of `second`.
  template <class Record>
  bool LoadOneOrElse(const Statement& first, const Statement& second, Fallback fallback,
                     const ColumnTable<Record>& columns, Record& record) const {
    CDbManage db(connectionString.c_str());
    int found = db.GetDataFromDB(first.c_str());
    if (fallback == Fallback::WhenNoRows ? found == kNoRows : found != kRowsFound)
      found = db.GetDataFromDB(second.c_str());
    return found == kRowsFound && columns.Read(db, record);
  }

  // The first row of the statement into `record`: once a row is found,
  // `found()` runs (it may copy the operation's key into the record), then the
  // columns are read. False when no row is found or a required column cannot be
  // read (what was set before stays).
  template <class Record, class FoundFn>
  bool LoadOneAfter(const Statement& statement, const ColumnTable<Record>& columns, Record& record,
                    FoundFn&& found) const {
    CDbManage db(connectionString.c_str());
    if (db.GetDataFromDB(statement.c_str()) != kRowsFound) return false;
    found();
    return columns.Read(db, record);
  }

  // True when `table` answers its probe (not 2).
  bool TableAnswers(const char* table) const {
    CDbManage db(connectionString.c_str());
    return !TableMissing(db, table);
  }

  // One field of the first row. False when there is no row or the field cannot be read.
  template <class T>
  bool LoadField(const Statement& statement, const char* column, T& value) const {
    CDbManage db(connectionString.c_str());
    return db.GetDataFromDB(statement.c_str()) == kRowsFound && columns::ReadValue(db, column, value);
  }

  // One record per row, appended to `out` (emptied first with Fill::Clear). A
  // row whose required column cannot be read ends the list (kRowUnreadable);
  // the records before it stay.
  template <class Record>
  Loaded LoadAll(const Statement& statement, const ColumnTable<Record>& columns, std::vector<Record>& out, Fill fill,
                 bool binary = false) const {
    return LoadRows(statement, out, fill, [&](CDbManage& row, Record& r) { return columns.Read(row, r); }, binary);
  }

  // As LoadAll, with the class's own row reader `read(db, record)`.
  template <class Record, class ReadFn>
  Loaded LoadRows(const Statement& statement, std::vector<Record>& out, Fill fill, ReadFn&& read,
                  bool binary = false) const {
    if (fill == Fill::Clear) out.clear();
    CDbManage db(connectionString.c_str());
    return {AppendRows(db, statement, out, read, binary)};
  }

  // The text column `column` of every row.
  Loaded ListColumn(const Statement& statement, const char* column, std::vector<std::string>& out, Fill fill) const {
    return LoadRows(statement, out, fill,
                    [column](CDbManage& row, std::string& value) { return row.GetFieldValue(column, value); });
  }

  // Sends one select per batch of at most `size` keys, the batch joined by
  // "', '" (the inside of "in ('...')") and handed to `build`; each row is
  // appended by `read(db, record)`. False when a batch fails or a row cannot be
  // read; an empty key list sends nothing and is true.
  template <class Record, class BuildFn, class ReadFn>
  bool LoadInBatches(std::span<const std::string> keys, std::size_t size, BuildFn&& build, std::vector<Record>& out,
                     ReadFn&& read) const {
    CDbManage db(connectionString.c_str());
    for (const auto batch : sql::Batches(keys, size)) {
      const int result = AppendRows(db, build(sql::JoinQuotedValues(batch)), out, read, false);
      if (result == kFailed || result == kRowUnreadable) return false;
    }
    return true;
  }

  // ---- writing ----

  // Runs one statement that returns no rows; answers ExecuteSQL's result.
  bool Execute(const Statement& statement) const {
    CDbManage db(connectionString.c_str());
    return db.ExecuteSQL(statement.c_str());
  }

  // Probes `table` (false when it answers 2), then runs the statement.
  bool ExecuteOnTable(const char* table, const Statement& statement) const {
    CDbManage db(connectionString.c_str());
    if (TableMissing(db, table)) return false;
    return db.ExecuteSQL(statement.c_str());
  }

  // Probes `table` (showing `tableMissing` and answering false when it is
  // missing), then runs the statement; true whatever the statement did.
  bool ExecuteIfTable(const char* table, const Statement& statement, const Message& tableMissing = {}) const {
    CDbManage db(connectionString.c_str());
    if (TableMissing(db, table)) {
      tableMissing.Show();
      return false;
    }
    db.ExecuteSQL(statement.c_str());
    return true;
  }

  // Runs the statements in order on one session, all of them whatever each
  // answers; true when every one succeeded.
  bool ExecuteAll(std::initializer_list<Statement> statements) const {
    CDbManage db(connectionString.c_str());
    bool ok = true;
    for (const auto& s : statements) ok = db.ExecuteSQL(s.c_str()) && ok;
    return ok;
  }

  // Runs `statement(key)` for each key on one session, every one whatever the
  // others answer; true when all succeeded.
  template <class StatementFn>
  bool ExecuteEach(const std::vector<std::string>& keys, StatementFn&& statement) const {
    CDbManage db(connectionString.c_str());
    bool ok = true;
    for (const auto& key : keys) ok = db.ExecuteSQL(statement(key).c_str()) && ok;
    return ok;
  }

  // Replaces rows by key: probes the table where the steps say, runs the
  // `deletes` (their results are not looked at), then writes the rows that
  // `rows(db)` adds (AddNew and SetFieldValue for each) and saves them at once.
  // A refused delete (a key holding a quote or a NUL) fails the replace before
  // anything is written. Answers SaveData's result.
  template <class RowsFn>
  bool Replace(const ReplaceSteps& steps, std::span<const Statement> deletes, RowsFn&& rows) const {
    for (const auto& d : deletes)
      if (d.refused()) return false;
    return ReplaceAfter(
        steps,
        [&](CDbManage& db) {
          for (const auto& d : deletes) db.ExecuteSQL(d.c_str());
          return true;
        },
        rows);
  }
  template <class RowsFn>
  bool Replace(const ReplaceSteps& steps, const Statement& remove, RowsFn&& rows) const {
    return Replace(steps, std::span<const Statement>(&remove, 1), rows);
  }

  // As Replace, with the class's own removal step `remove(db)` (for example
  // another of its operations); a false answer ends the replace silently before
  // any row is written.
  template <class RemoveFn, class RowsFn>
  bool ReplaceAfter(const ReplaceSteps& steps, RemoveFn&& remove, RowsFn&& rows) const {
    CDbManage db(connectionString.c_str());
    if (steps.probe == Probe::First && !Probed(db, steps)) return false;
    if (!remove(db)) return false;
    if (steps.probe == Probe::AfterDelete && !Probed(db, steps)) return false;
    db.BeginSaveData(steps.table);
    rows(db);
    if (db.SaveData()) return true;
    steps.saveFailed.Show();
    return false;
  }

  // Probes the table where the steps say (First), then writes the rows that
  // `rows(db)` adds and saves them at once; nothing is deleted first.
  template <class RowsFn>
  bool Save(const ReplaceSteps& steps, RowsFn&& rows) const {
    return ReplaceAfter(steps, [](CDbManage&) { return true; }, rows);
  }

  // Appends rows to a table without a probe: BeginSaveData, the rows `rows(db)`
  // adds, SaveData.
  template <class RowsFn>
  bool Append(const char* table, RowsFn&& rows) const {
    CDbManage db(connectionString.c_str());
    db.BeginSaveData(table);
    rows(db);
    return db.SaveData();
  }

  // Sends one statement per batch of at most `size` keys (joined by "', '" and
  // handed to `build`), in order; false at the first that fails. An empty key
  // list sends nothing and is true.
  template <class BuildFn>
  bool ExecuteInBatches(std::span<const std::string> keys, std::size_t size, BuildFn&& build) const {
    CDbManage db(connectionString.c_str());
    for (const auto batch : sql::Batches(keys, size))
      if (!db.ExecuteSQL(build(sql::JoinQuotedValues(batch)).c_str())) return false;
    return true;
  }

  // Runs `steps()` as one operation: every session it opens on this connection,
  // in this object or in others it creates, shares one connection and one
  // transaction. True steps commit (the answer is the commit's); false steps,
  // or a write that failed inside them, leave nothing of what they wrote.
  template <class StepsFn>
  bool Atomically(StepsFn&& steps) const {
    db::Operation operation(connectionString);
    return steps() && operation.Commit();
  }

  // ---- other objects ----

  // Another data object through the catalogue, on this object's connection;
  // null when the catalogue has no class for the interface.
  template <class Interface2>
  std::unique_ptr<Interface2> CreateObject(const char* interfaceName) const {
    const DataClassRecord* record = FindClassRecord(interfaceName);
    if (!record || !record->createFunction) return nullptr;
    IDataBase* object = record->createFunction();
    if (!object) return nullptr;
    object->SetConnection(connectionString.c_str());
    return std::unique_ptr<Interface2>(static_cast<Interface2*>(object));
  }

  std::string connectionString;

 private:
  template <class Record, class ReadFn>
  static int AppendRows(CDbManage& db, const Statement& statement, std::vector<Record>& out, ReadFn& read,
                        bool binary) {
    return ForEachRow(db, statement, binary, [&](CDbManage& row) {
      Record record{};
      if (!read(row, record)) return false;
      out.push_back(std::move(record));
      return true;
    });
  }

  static bool Probed(CDbManage& db, const ReplaceSteps& steps) {
    if (!TableMissing(db, steps.table)) return true;
    steps.tableMissing.Show();
    return false;
  }
};

}  // namespace petrodb

// Declares the class's last slot; place in the class body.
#define PETRODB_DATA_CLASS \
 public:                   \
  virtual const DataClassRecord* GetClassRecord() const;

// Registers a class under its interface name and defines GetClassRecord.
#define PETRODB_REGISTER_CLASS(Class, Interface)                                             \
  namespace {                                                                                \
  IDataBase* Create##Class() { return static_cast<Interface*>(new (std::nothrow) Class()); } \
  DataClassRecord g_##Class##Record{#Class, #Interface, &Create##Class, nullptr};            \
  const petrodb::CatalogueRegistration g_##Class##Registration(&g_##Class##Record);          \
  }                                                                                          \
  const DataClassRecord* Class::GetClassRecord() const { return &g_##Class##Record; }
