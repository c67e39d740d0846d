#include "dbaccess/DbManage.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <vector>

#include "dbaccess/Backend.h"
#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"
#include "dbaccess/Trace.h"

using petrodb::db::CellKind;
using petrodb::db::FieldCell;
using petrodb::db::Connection;
using petrodb::db::Cursor;
using petrodb::db::PendingRows;
using petrodb::db::Group;

namespace {

// Why an empty text cannot run; the usual cause is a value the statement
// refused to carry.
constexpr const char* kEmptyStatement =
    "the statement is empty (a value holding a single quote or a NUL byte is never sent)";

// A bare table name reads the whole table: no blanks, identifier characters only.
bool IsBareTableName(const std::string& text) {
  if (text.empty()) return false;
  const unsigned char first = static_cast<unsigned char>(text[0]);
  if (!(std::isalpha(first) || first == '_' || first >= 0x80 || first == '[')) return false;
  for (unsigned char c : text)
    if (!(std::isalnum(c) || c == '_' || c == '$' || c == '.' || c == '[' || c == ']' || c >= 0x80)) return false;
  return true;
}

bool IsWordChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

// "in ()" outside literals and quoted names, blanks allowed, IN in any case:
// Access and SQL Server refuse such a statement; so does every engine here.
bool HasEmptyValueList(const std::string& text) {
  if (text.find('(') == std::string::npos) return false;  // most reads: one quick look
  const std::size_t n = text.size();
  for (std::size_t i = 0; i < n; ++i) {
    const char c = text[i];
    if (c == '\'' || c == '"' || c == '[') {
      const char close = c == '[' ? ']' : c;
      const auto end = text.find(close, i + 1);
      if (end == std::string::npos) return false;
      i = end;
      continue;
    }
    if ((c != 'i' && c != 'I') || i + 1 >= n || (text[i + 1] != 'n' && text[i + 1] != 'N')) continue;
    if ((i > 0 && IsWordChar(text[i - 1])) || (i + 2 < n && IsWordChar(text[i + 2]))) continue;
    std::size_t k = i + 2;
    while (k < n && std::isspace(static_cast<unsigned char>(text[k]))) ++k;
    if (k >= n || text[k] != '(') continue;
    ++k;
    while (k < n && std::isspace(static_cast<unsigned char>(text[k]))) ++k;
    if (k < n && text[k] == ')') return true;
  }
  return false;
}

class Stopwatch {
 public:
  Stopwatch() : enabled_(petrodb::db::TraceEnabled()) {
    if (enabled_) start_ = std::chrono::steady_clock::now();
  }
  bool Enabled() const { return enabled_; }
  double Ms() const {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  bool enabled_;
  std::chrono::steady_clock::time_point start_;
};

void Trace(const Stopwatch& watch, const std::string& text, const std::string& sent, const char* call, int result,
           const std::string& error = {}) {
  if (!watch.Enabled()) return;
  petrodb::SqlTraceEvent e;
  e.text = text;
  if (sent != text) e.sent = sent;
  e.call = call;
  e.result = result;
  e.ms = watch.Ms();
  e.error = error;
  petrodb::db::EmitTrace(e);
}

}  // namespace

namespace petrodb::db {

// The sessions of one operation on one thread and connection string (see DbManage.h).
struct Group : std::enable_shared_from_this<Group> {
  Group* next = nullptr;  // the thread's other open groups
  std::string connection;
  ConnectionPtr conn;
  std::string openError;  // why there is no connection
  int members = 0;
  bool scoped = false;    // owned by an Operation: SaveData does not commit
  bool began = false;     // the transaction was begun (the engine may have ended it since)
  bool failed = false;    // FAILED: the operation's writes were undone
  std::string failure;

  // READING -> WRITING before a write; false (error filled) in FAILED.
  bool EnsureTransaction(std::string& error) {
    if (!conn) {
      error = openError;
      return false;
    }
    if (failed) {
      error = failure;
      return false;
    }
    if (began) {
      if (conn->InTransaction()) return true;
      Fail("the transaction ended after an engine error");
      error = failure;
      return false;
    }
    if (!conn->Begin(error)) return false;
    began = true;
    return true;
  }

  // WRITING -> READING: undoes the writes of the transaction.
  void Undo() {
    if (conn) conn->Rollback();
    began = false;
  }

  // -> FAILED: undoes the operation's writes.
  void Fail(const std::string& reason) {
    if (conn) conn->Rollback();
    began = false;
    if (!failed) failure = "an earlier write of this operation failed, and its writes were undone: " + reason;
    failed = true;
  }

  // After a failed statement: an engine that ended the transaction itself leaves the operation FAILED.
  void CheckTransaction(const std::string& error) {
    if (began && conn && !conn->InTransaction()) Fail(error);
  }

  // WRITING -> READING; false when the commit fails (-> FAILED).
  bool Commit(std::string& error) {
    if (failed) {
      error = failure;
      return false;
    }
    if (!began) return true;
    if (!conn->InTransaction()) {
      Fail("the transaction ended after an engine error");
      error = failure;
      return false;
    }
    began = false;
    if (conn->Commit(error)) return true;
    Fail(error);
    return false;
  }
};

namespace {

// The thread's open groups. A plain pointer: it outlives every object, so that
// sessions opened while the program exits (static destructors) still work.
thread_local Group* t_groups = nullptr;

std::shared_ptr<Group> JoinGroup(std::string_view connection, bool scoped, bool& owner) {
  for (Group* g = t_groups; g; g = g->next)
    if (g->connection == connection) {
      ++g->members;
      owner = false;
      return g->shared_from_this();
    }
  auto group = std::make_shared<Group>();
  group->connection = connection;
  group->members = 1;
  group->scoped = scoped;
  owner = true;
  ClearLastError();
  group->conn = AcquireConnection(group->connection, group->openError);
  if (!group->conn) {
    if (group->openError.empty()) group->openError = "no connection";
    SetLastError(group->openError);
  }
  group->next = t_groups;
  t_groups = group.get();
  return group;
}

// The last member to leave ends the group: commits what is still open and gives
// the connection back.
void LeaveGroup(const std::shared_ptr<Group>& group) {
  if (--group->members > 0) return;
  if (group->conn) {
    std::string error;
    if (group->began && !group->Commit(error)) SetLastError(error);
    ReleaseConnection(group->connection, std::move(group->conn));
  }
  for (Group** link = &t_groups; *link; link = &(*link)->next)
    if (*link == group.get()) {
      *link = group->next;
      break;
    }
}

}  // namespace

Operation::Operation(const std::string& connection) {
  bool owner = false;
  group_ = JoinGroup(connection, true, owner);
  owner_ = owner;
}

Operation::~Operation() {
  if (owner_ && group_->began) {
    group_->conn->Rollback();
    group_->began = false;
  }
  LeaveGroup(group_);
}

bool Operation::Commit() {
  if (!owner_) return !group_->failed;
  std::string error;
  const bool ok = group_->Commit(error);
  if (!ok) SetLastError(error);
  return ok;
}

}  // namespace petrodb::db

struct CDbManage::Impl {
  std::shared_ptr<Group> group;
  bool owner = false;
  Connection* conn = nullptr;  // the group's
  std::string lastError;

  std::unique_ptr<Cursor> cursor;
  bool readStarted = false;
  bool readFailed = false;
  mutable int lastColumn = -1;                    // fields are mostly read in column order
  // The columns GetFields was last asked for, where they stand in the result,
  // and the fields it gave.
  mutable std::vector<const char*> planNames;
  mutable std::vector<int> plan;
  mutable std::vector<FieldCell> planCells;

  PendingRows pending;
  std::string saveTable;
  bool saveTableMissing = false;
  bool rowOpen = false;
  // A long batch is offered to the engine every this many rows as it grows, so
  // that a server can take its first rows while the next are built.
  static constexpr std::size_t kOfferEvery = 1024;
  std::size_t offerAt = kOfferEvery;

  void CloseCursor() {
    cursor.reset();
    readStarted = false;
    readFailed = false;
    lastColumn = -1;
    planNames.clear();
    plan.clear();
  }

  void Failed(const std::string& error) {
    lastError = error;
    petrodb::db::SetLastError(error);
  }

  // A column's name against a wanted one, ignoring ASCII case, without measuring the wanted one first.
  static bool SameName(std::string_view column, const char* wanted) {
    for (const char c : column) {
      char w = *wanted++;
      if (w == c) continue;
      if (w >= 'A' && w <= 'Z') w = static_cast<char>(w - 'A' + 'a');
      const char lower = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
      if (w != lower) return false;  // also where the wanted name ends early
    }
    return *wanted == '\0';
  }

  int ColumnIndex(const char* name) const {
    if (!cursor || !name) return -1;
    const int n = cursor->ColumnCount();
    const int hint = lastColumn + 1;
    if (hint < n && SameName(cursor->ColumnName(hint), name)) return lastColumn = hint;
    for (int i = 0; i < n; ++i)
      if (SameName(cursor->ColumnName(i), name)) return lastColumn = i;
    return -1;
  }

  // Why a statement cannot be sent at all; "" when it can.
  std::string Unsendable(const std::string& text) const {
    if (!conn) return group->openError;
    if (text.empty()) return kEmptyStatement;
    if (HasEmptyValueList(text)) return "an empty value list \"in ()\" cannot run";
    return {};
  }

  // The current row's field of the column (Null when there is no row or no such column).
  FieldCell Field(const char* name) const {
    FieldCell cell;
    if (!cursor || !cursor->OnRow()) return cell;
    const int i = ColumnIndex(name);
    if (i >= 0) cursor->Fetch(&i, 1, &cell);
    return cell;
  }

  // The row to set a column of: the one begun last, or a new one.
  PendingRows& Row(const char* column) {
    if (column && !rowOpen) StartRow();
    return pending;
  }

  void StartRow() {
    pending.StartRow(saveTable);
    rowOpen = true;
    OfferAhead();
  }

  void OfferAhead() {
    if (pending.Sealed() < offerAt || !conn || saveTableMissing) return;
    if (conn->SendAhead(pending)) pending.LetGoSealed();
    offerAt = pending.Sealed() + kOfferEvery;
  }

  // A failed save undoes the operation's writes. The owner's save ends its
  // transaction either way; in a member session the operation is FAILED.
  void Undo(const std::string& error) {
    if (owner && !group->scoped)
      group->Undo();
    else
      group->Fail(error);
  }

  // Writes the pending rows; the owner of a group no Operation owns also commits.
  bool Flush() {
    CloseCursor();
    rowOpen = false;
    offerAt = kOfferEvery;
    pending.Seal();
    PendingRows rows;
    rows.swap(pending);
    std::string error;
    if (!conn || saveTableMissing) {
      error = !conn ? group->openError : "the table " + saveTable + " does not exist";
      if (group->began) Undo(error);
      Failed(error);
      return false;
    }
    Stopwatch watch;
    std::vector<std::string> ran;
    bool ok = true;
    bool inserted = false;
    if (!rows.empty()) {
      ok = group->EnsureTransaction(error);
      if (ok) {
        inserted = true;
        ok = conn->Insert(rows, ran, error);
        if (!ok) Undo(error);
      }
    }
    if (!inserted && conn) conn->TakeBack(rows);
    if (ok && owner && !group->scoped) ok = group->Commit(error);
    if (watch.Enabled() && !rows.empty()) {
      // One event per run of rows of one shape: the insert the engine ran for it.
      std::size_t run = 0;
      for (std::size_t i = 0; i < rows.size(); ++run) {
        const std::size_t j = rows.RunEnd(i);
        if (inserted && run >= ran.size()) break;  // not reached before the failure
        const bool last = !inserted || run + 1 == ran.size();
        const std::string text = petrodb::db::InsertText(rows.Shape(i));
        Trace(watch, text, run < ran.size() ? ran[run] : text, "SaveData", ok ? 1 : 0, ok || !last ? "" : error);
        if (!inserted) break;
        i = j;
      }
    }
    if (!ok) Failed(error);
    return ok;
  }
};

CDbManage::CDbManage(const char* connection) : impl_(std::make_unique<Impl>()) {
  impl_->group = petrodb::db::JoinGroup(connection ? connection : "", false, impl_->owner);
  impl_->conn = impl_->group->conn.get();
}

CDbManage::~CDbManage() {
  if (!impl_->pending.empty()) impl_->Flush();
  impl_->CloseCursor();
  petrodb::db::LeaveGroup(impl_->group);
}

bool CDbManage::IsConnected() const { return impl_->conn != nullptr; }

GetDataResult CDbManage::GetDataFromDB(const char* statement, bool binary) {
  Stopwatch watch;
  impl_->CloseCursor();
  const std::string text = statement ? statement : "";
  std::string error = impl_->Unsendable(text);
  if (!error.empty()) {
    impl_->Failed(error);
    Trace(watch, text, text, "GetDataFromDB", kFailed, error);
    return kFailed;
  }
  std::string whole;  // a bare table name reads the whole table
  const std::string& query = IsBareTableName(text) ? (whole = "select * from " + text) : text;
  const std::string& sent = impl_->conn->Rewrite(query);
  impl_->cursor = impl_->conn->Query(sent, error, binary);
  GetDataResult result = !impl_->cursor ? kFailed : impl_->cursor->OnRow() ? kRowsFound : kNoRows;
  if (result == kFailed) {
    impl_->Failed(error);
    impl_->group->CheckTransaction(error);
  }
  Trace(watch, text, sent, "GetDataFromDB", result, error);
  return result;
}

bool CDbManage::Read() {
  if (!impl_->cursor) return false;
  if (!impl_->readStarted) {
    impl_->readStarted = true;
    return impl_->cursor->OnRow();
  }
  if (!impl_->cursor->OnRow()) return false;
  if (impl_->cursor->Next()) return true;
  if (std::string error = impl_->cursor->Error(); !error.empty()) {
    impl_->readFailed = true;
    impl_->Failed(error);
  }
  return false;
}

bool CDbManage::ReadFailed() const { return impl_->readFailed; }

bool CDbManage::GetFieldValue(const char* column, std::string& value) const {
  return CellTo(impl_->Field(column), value);
}
bool CDbManage::GetFieldValue(const char* column, double& value) const {
  return CellTo(impl_->Field(column), value);
}
bool CDbManage::GetFieldValue(const char* column, float& value) const {
  return CellTo(impl_->Field(column), value);
}
bool CDbManage::GetFieldValue(const char* column, long& value) const { return CellTo(impl_->Field(column), value); }
bool CDbManage::GetFieldValue(const char* column, int& value) const { return CellTo(impl_->Field(column), value); }
bool CDbManage::GetFieldValue(const char* column, char& value) const { return CellTo(impl_->Field(column), value); }
bool CDbManage::GetFieldValue(const char* column, std::vector<double>& values) const {
  return CellTo(impl_->Field(column), values);
}
bool CDbManage::GetFieldValue(const char* column, Variant& value) const {
  return CellTo(impl_->Field(column), value);
}

// The columns are looked up on the first row of a result (in the order given,
// as reading them one by one would) and kept while the same names are asked for.
const FieldCell* CDbManage::GetFields(const char* const* columns, std::size_t count) const {
  Impl& m = *impl_;
  if (!m.cursor || !m.cursor->OnRow()) return nullptr;
  if (m.planNames.size() != count || !std::equal(columns, columns + count, m.planNames.begin())) {
    m.planNames.assign(columns, columns + count);
    m.plan.resize(count);
    for (std::size_t k = 0; k < count; ++k) m.plan[k] = m.ColumnIndex(columns[k]);
    m.planCells.resize(count);
  }
  m.cursor->Fetch(m.plan.data(), count, m.planCells.data());
  return m.planCells.data();
}

bool CDbManage::BeginSaveData(const char* table) {
  impl_->CloseCursor();
  impl_->rowOpen = false;
  impl_->saveTable = table ? table : "";
  const bool exists = impl_->conn && !impl_->saveTable.empty() && impl_->conn->TableExists(impl_->saveTable);
  if (!exists) impl_->saveTableMissing = true;
  return exists;
}

void CDbManage::AddNew() { impl_->StartRow(); }

PendingRows& CDbManage::AddNewWith(const char* const* columns, std::size_t count) {
  impl_->pending.StartRowWith(impl_->saveTable, columns, count);
  impl_->rowOpen = true;
  impl_->OfferAhead();
  return impl_->pending;
}

void CDbManage::SetFieldValue(const char* column, const char* value) {
  if (!value)
    impl_->Row(column).SetNull(column);
  else
    impl_->Row(column).SetText(column, value);
}
void CDbManage::SetFieldValue(const char* column, const std::string& value) {
  impl_->Row(column).SetText(column, value);
}
void CDbManage::SetFieldValue(const char* column, double value) { impl_->Row(column).SetReal(column, value); }
void CDbManage::SetFieldValue(const char* column, float value) {
  impl_->Row(column).SetReal(column, static_cast<double>(value));
}
void CDbManage::SetFieldValue(const char* column, int value) { impl_->Row(column).SetInteger(column, value); }
void CDbManage::SetFieldValue(const char* column, long value) { impl_->Row(column).SetInteger(column, value); }
void CDbManage::SetFieldValue(const char* column, char value) {
  impl_->Row(column).SetText(column, std::string_view(&value, 1));
}
void CDbManage::SetFieldValue(const char* column, const DateTime& value) {
  impl_->Row(column).SetText(column, value.ToIsoText());
}
void CDbManage::SetFieldValue(const char* column, const Variant& value) {
  if (value.IsNull())
    impl_->Row(column).SetNull(column);
  else
    impl_->Row(column).SetArray(column, value);
}

bool CDbManage::SaveData() {
  const bool ok = impl_->Flush();
  impl_->saveTableMissing = false;
  return ok;
}

void CDbManage::CancelSaveData() {
  if (impl_->conn) impl_->conn->TakeBack(impl_->pending);
  impl_->offerAt = CDbManage::Impl::kOfferEvery;
  impl_->pending.clear();
  impl_->rowOpen = false;
  impl_->saveTableMissing = false;
}

bool CDbManage::ExecuteSQL(const char* statement) {
  Stopwatch watch;
  impl_->CloseCursor();
  const std::string text = statement ? statement : "";
  std::string error = impl_->Unsendable(text);
  if (!error.empty()) {
    impl_->Failed(error);
    Trace(watch, text, text, "ExecuteSQL", 0, error);
    return false;
  }
  Connection& conn = *impl_->conn;
  // The catalogue's restore is a request to the backend, outside any transaction.
  if (auto restore = conn.AsRestore(text)) {
    const bool ok = conn.RestoreDatabase(*restore, error);
    if (!ok) impl_->Failed(error);
    Trace(watch, text, conn.Rewrite(text), "ExecuteSQL", ok ? 1 : 0, error);
    return ok;
  }
  if (!impl_->group->EnsureTransaction(error)) {
    impl_->Failed(error);
    Trace(watch, text, text, "ExecuteSQL", 0, error);
    return false;
  }
  const std::string& sent = conn.Rewrite(text);
  const bool ok = conn.Execute(sent, error);
  if (!ok) {
    impl_->Failed(error);
    impl_->group->CheckTransaction(error);
  }
  Trace(watch, text, sent, "ExecuteSQL", ok ? 1 : 0, error);
  return ok;
}
