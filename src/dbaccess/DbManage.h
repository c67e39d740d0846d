#pragma once
// The database session every data-object operation opens: run one statement,
// read the current row's fields, or append rows to a table in one batch.
//
// One operation, one transaction
// ------------------------------
// The sessions that one operation opens on one thread with one connection
// string form a group that shares one connection and at most one transaction.
// The group's first member is its owner: an outermost CDbManage, or an
// Operation scope (below) that a data object opens around a whole operation so
// that every session made inside it, even in other data objects, joins. Sessions
// on other threads, or with another connection string, form groups of their own.
//
// A group is in one of these states:
//
//   READING      no transaction. Statements that return rows run as they come.
//                The first write (ExecuteSQL, or SaveData with rows to write)
//                begins the transaction first -> WRITING. The internal begin
//                also makes writers of one database wait for each other
//                (SQLite: BEGIN IMMEDIATE; PostgreSQL: an advisory lock on a
//                fixed key), so two processes replacing one record run one
//                after the other.
//   WRITING      a transaction is open; reads see its writes.
//                - A failing ExecuteSQL undoes only itself (PostgreSQL: a
//                  savepoint around each statement) and the group stays WRITING,
//                  as the operations' "the delete failed, go on" needs.
//                - SaveData in an owning CDbManage writes its rows and commits:
//                  its result is false when the insert or the commit fails
//                  -> READING. In a member session it only writes its rows.
//                - SaveData that fails (a rejected row, a missing table, a full
//                  disk) rolls the whole transaction back: -> READING in an
//                  owning CDbManage (its save ends the transaction either way),
//                  -> FAILED in a member session or under an Operation.
//                - An engine error that ends the transaction by itself (SQLite
//                  after a full disk) -> FAILED.
//                - The owner's close commits -> READING (then the group ends);
//                  a commit that fails leaves the old state and sets LastError.
//   FAILED       the operation's writes so far are undone. Further writes of
//                the operation fail at once without running (a write after the
//                undo could leave half a replace behind); reads still run. The
//                group leaves FAILED only when it ends.
//
// Operation::Commit() commits a WRITING group it owns and returns the result
// (false also in FAILED); an Operation that ends without Commit rolls back.
// The begin, commit, rollback and savepoint statements are the session's own:
// they do not appear in the statement trace, and the module's statements and
// their order are unchanged.
//
// Errors: every failure leaves the engine's reason, naming the file or server,
// in petrodb::LastError() (per thread; cleared when a group begins) and in the
// failed statement's trace event.
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "petrodb/DateTime.h"
#include "petrodb/Variant.h"

enum GetDataResult {
  kRowsFound = 0,  // at least one row; the cursor stands on the first
  kNoRows = 1,     // the statement ran and returned nothing
  kFailed = 2,     // no connection, missing table, or the statement could not run
};

namespace petrodb::db {
struct Group;
struct FieldCell;
class PendingRows;
}

class CDbManage {
 public:
  // Joins the operation open on this thread for the connection string, or takes
  // a pooled connection (or opens one) and becomes the owner of a new one. A
  // failure to connect is not reported here; every later call fails instead.
  explicit CDbManage(const char* connection);
  // Writes rows still pending (as SaveData would), closes the result set; the
  // owner also commits and returns the connection to its pool.
  ~CDbManage();
  CDbManage(const CDbManage&) = delete;
  CDbManage& operator=(const CDbManage&) = delete;

  bool IsConnected() const;

  // Runs one select statement, or reads a whole table when given a bare table
  // name (row by row: a probe reads at most one row). `binary` marks statements
  // that read double-array columns; both backends read them alike. A statement
  // with an empty value list ("in ()") cannot run.
  GetDataResult GetDataFromDB(const char* statement, bool binary = false);
  // The first call after GetDataFromDB stays on the first row, each later call
  // moves one row on; false when no row is current.
  bool Read();
  // True when the rows of the current result ended on an engine error (a
  // damaged file, a lost connection) rather than at their end: the rows read
  // are then not all the rows.
  bool ReadFailed() const;

  // Copies a field of the current row; false when the column is missing, NULL
  // or does not convert. Column names ignore case.
  bool GetFieldValue(const char* column, std::string& value) const;
  bool GetFieldValue(const char* column, double& value) const;
  bool GetFieldValue(const char* column, float& value) const;
  bool GetFieldValue(const char* column, long& value) const;
  bool GetFieldValue(const char* column, int& value) const;
  bool GetFieldValue(const char* column, char& value) const;
  bool GetFieldValue(const char* column, Variant& value) const;
  // A double-array field straight into `value` (no Variant between).
  bool GetFieldValue(const char* column, std::vector<double>& value) const;
  // The current row's fields of `columns`, all at once, for reading whole
  // records: the names are looked up once per result, not once per row. Null
  // when no row is current; the fields stay valid until the cursor moves or
  // the next call.
  const petrodb::db::FieldCell* GetFields(const char* const* columns, std::size_t count) const;

  // Prepares to append rows to `table`; false when the table does not exist.
  bool BeginSaveData(const char* table);
  void AddNew();
  // For column tables: begins a row (as AddNew) with `columns` set to NULL, and
  // gives the batch holding it, whose OpenCell(k) is then the k-th column's
  // value. The names must be distinct and stay as they are while the session lives.
  petrodb::db::PendingRows& AddNewWith(const char* const* columns, std::size_t count);
  void SetFieldValue(const char* column, const char* value);
  void SetFieldValue(const char* column, const std::string& value);
  void SetFieldValue(const char* column, double value);
  void SetFieldValue(const char* column, float value);
  void SetFieldValue(const char* column, int value);
  void SetFieldValue(const char* column, long value);
  void SetFieldValue(const char* column, char value);
  void SetFieldValue(const char* column, const DateTime& value);
  void SetFieldValue(const char* column, const Variant& value);
  // Writes every row added since BeginSaveData: all or nothing. In the
  // operation's owner it also commits the operation's writes (see above).
  bool SaveData();
  // Drops the rows added and not yet saved.
  void CancelSaveData();

  // Runs one statement that returns no rows.
  bool ExecuteSQL(const char* statement);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

namespace petrodb::db {

// A scope around one operation: every CDbManage made on this thread for the
// same connection string while it lives joins its connection and transaction.
// Scopes nest: an inner scope (or one opened inside an outer CDbManage) is a
// plain member, and its Commit only tells whether the operation is still sound.
class Operation {
 public:
  explicit Operation(const std::string& connection);
  // Rolls back the writes not committed.
  ~Operation();
  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;

  // Commits the operation's writes so far; false when the commit fails or an
  // earlier write of the operation undid them (FAILED).
  bool Commit();

 private:
  std::shared_ptr<Group> group_;
  bool owner_ = false;
};

}  // namespace petrodb::db
