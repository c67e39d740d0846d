#include "dbaccess/DbManage.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <chrono>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

#include "dbaccess/Backend.h"
#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"
#include "dbaccess/Trace.h"

using petrodb::db::Cell;
using petrodb::db::CellKind;
using petrodb::db::Connection;
using petrodb::db::Cursor;
using petrodb::db::PendingRow;

namespace {

// A bare table name reads the whole table: no blanks, identifier characters only.
bool IsBareTableName(const std::string& text) {
  if (text.empty()) return false;
  const unsigned char first = static_cast<unsigned char>(text[0]);
  if (!(std::isalpha(first) || first == '_' || first >= 0x80 || first == '[')) return false;
  for (unsigned char c : text)
    if (!(std::isalnum(c) || c == '_' || c == '$' || c == '.' || c == '[' || c == ']' || c >= 0x80)) return false;
  return true;
}

// Converting reads: a cell to each kind a record field may hold.
std::optional<double> CellAsDouble(const Cursor& c, int i, CellKind kind) {
  switch (kind) {
    case CellKind::Integer: return static_cast<double>(c.Integer(i));
    case CellKind::Real: return c.Real(i);
    case CellKind::Text: {
      double v;
      if (petrodb::sql::ParseWholeNumber(c.Text(i), v)) return v;
      return std::nullopt;
    }
    default: return std::nullopt;
  }
}

// Integers from reals round to nearest, ties to even, as a variant conversion does.
std::optional<long long> CellAsInteger(const Cursor& c, int i, CellKind kind) {
  if (kind == CellKind::Integer) return c.Integer(i);
  auto d = CellAsDouble(c, i, kind);
  if (!d || !std::isfinite(*d)) return std::nullopt;
  const double r = std::nearbyint(*d);
  if (r < -9.2e18 || r > 9.2e18) return std::nullopt;
  return static_cast<long long>(r);
}

// Numbers read as the shortest text that reads back the same.
bool CellAsText(const Cursor& c, int i, CellKind kind, std::string& out) {
  switch (kind) {
    case CellKind::Integer: out = std::to_string(c.Integer(i)); return true;
    case CellKind::Real: out = petrodb::sql::ShortestText(c.Real(i)); return true;
    case CellKind::Text: out.assign(c.Text(i)); return true;
    default: return false;
  }
}

template <class T>
bool NarrowInteger(std::optional<long long> v, T& out) {
  if (!v || *v < std::numeric_limits<T>::min() || *v > std::numeric_limits<T>::max()) return false;
  out = static_cast<T>(*v);
  return true;
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

void Trace(const Stopwatch& watch, const std::string& text, const std::string& sent, const char* call, int result) {
  if (!watch.Enabled()) return;
  petrodb::SqlTraceEvent e;
  e.text = text;
  if (sent != text) e.sent = sent;
  e.call = call;
  e.result = result;
  e.ms = watch.Ms();
  petrodb::db::EmitTrace(e);
}

}  // namespace

struct CDbManage::Impl {
  std::string connection;
  petrodb::db::ConnectionPtr conn;
  std::string lastError;

  std::unique_ptr<Cursor> cursor;
  bool readStarted = false;
  mutable int lastColumn = -1;                    // fields are mostly read in column order

  std::vector<PendingRow> pending;
  std::string saveTable;
  bool saveTableMissing = false;
  bool rowOpen = false;

  void CloseCursor() {
    cursor.reset();
    readStarted = false;
    lastColumn = -1;
  }

  int ColumnIndex(const char* name) const {
    if (!cursor || !name) return -1;
    const std::string_view wanted(name);
    const int n = cursor->ColumnCount();
    const int hint = lastColumn + 1;
    if (hint < n && petrodb::sql::EqualsIgnoreCase(cursor->ColumnName(hint), wanted)) return lastColumn = hint;
    for (int i = 0; i < n; ++i)
      if (petrodb::sql::EqualsIgnoreCase(cursor->ColumnName(i), wanted)) return lastColumn = i;
    return -1;
  }

  // The current row's cell and its kind; -1 when there is no row, no such
  // column, or the value is NULL.
  int Field(const char* name, CellKind& kind) const {
    if (!cursor || !cursor->OnRow()) return -1;
    const int i = ColumnIndex(name);
    if (i < 0) return -1;
    kind = cursor->Kind(i);
    return kind == CellKind::Null ? -1 : i;
  }

  // Rows of a batch usually set the same columns in the same order as the row
  // before; while they do, a column cannot be a repeat and needs no search.
  bool followsPrevious = false;

  void StartRow() {
    pending.push_back(PendingRow{saveTable, {}});
    rowOpen = true;
    followsPrevious = pending.size() >= 2 && pending[pending.size() - 2].table == saveTable;
    if (followsPrevious) pending.back().cells.reserve(pending[pending.size() - 2].cells.size());
  }

  void Set(const char* column, Cell value) {
    if (!column) return;
    if (!rowOpen) StartRow();
    auto& cells = pending.back().cells;
    if (followsPrevious) {
      const auto& previous = pending[pending.size() - 2].cells;
      const std::size_t k = cells.size();
      if (k < previous.size() && previous[k].first == column) {
        cells.emplace_back(previous[k].first, std::move(value));
        return;
      }
      followsPrevious = false;
    }
    for (auto& [name, cell] : cells)
      if (petrodb::sql::EqualsIgnoreCase(name, column)) {
        cell = std::move(value);
        return;
      }
    cells.emplace_back(column, std::move(value));
  }

  bool Flush() {
    CloseCursor();
    rowOpen = false;
    if (!conn || saveTableMissing) {
      pending.clear();
      return false;
    }
    if (pending.empty()) return true;
    Stopwatch watch;
    std::vector<PendingRow> rows;
    rows.swap(pending);
    std::string error;
    const bool ok = conn->Insert(rows, error);
    if (watch.Enabled()) {
      // One event per run of rows with the same table and columns: the insert prepared for them.
      for (std::size_t i = 0; i < rows.size();) {
        std::size_t j = i + 1;
        auto sameShape = [&](const PendingRow& a, const PendingRow& b) {
          if (a.table != b.table || a.cells.size() != b.cells.size()) return false;
          for (std::size_t k = 0; k < a.cells.size(); ++k)
            if (a.cells[k].first != b.cells[k].first) return false;
          return true;
        };
        while (j < rows.size() && sameShape(rows[i], rows[j])) ++j;
        std::string text = "insert into " + rows[i].table + " (";
        std::string marks;
        for (std::size_t k = 0; k < rows[i].cells.size(); ++k) {
          text += (k ? ", " : "") + rows[i].cells[k].first;
          marks += k ? ", ?" : "?";
        }
        text += ") values (" + marks + ")";
        Trace(watch, text, text, "SaveData", ok ? 1 : 0);
        i = j;
      }
    }
    if (!ok) lastError = error;
    return ok;
  }
};

CDbManage::CDbManage(const char* connection) : impl_(std::make_unique<Impl>()) {
  impl_->connection = connection ? connection : "";
  impl_->conn = petrodb::db::AcquireConnection(impl_->connection, impl_->lastError);
}

CDbManage::~CDbManage() {
  if (!impl_->pending.empty()) impl_->Flush();
  impl_->CloseCursor();
  if (impl_->conn) petrodb::db::ReleaseConnection(impl_->connection, std::move(impl_->conn));
}

bool CDbManage::IsConnected() const { return impl_->conn != nullptr; }

GetDataResult CDbManage::GetDataFromDB(const char* statement, bool) {
  Stopwatch watch;
  impl_->CloseCursor();
  const std::string text = statement ? statement : "";
  if (text.empty() || !impl_->conn) {
    Trace(watch, text, text, "GetDataFromDB", kFailed);
    return kFailed;
  }
  const std::string query = IsBareTableName(text) ? "select * from " + text : text;
  const std::string sent = impl_->conn->Rewrite(query);
  impl_->cursor = impl_->conn->Query(sent, impl_->lastError);
  GetDataResult result = !impl_->cursor ? kFailed : impl_->cursor->OnRow() ? kRowsFound : kNoRows;
  Trace(watch, text, sent, "GetDataFromDB", result);
  return result;
}

bool CDbManage::Read() {
  if (!impl_->cursor) return false;
  if (!impl_->readStarted) {
    impl_->readStarted = true;
    return impl_->cursor->OnRow();
  }
  return impl_->cursor->OnRow() && impl_->cursor->Next();
}

bool CDbManage::GetFieldValue(const char* column, std::string& value) const {
  CellKind kind;
  const int i = impl_->Field(column, kind);
  return i >= 0 && CellAsText(*impl_->cursor, i, kind, value);
}

bool CDbManage::GetFieldValue(const char* column, double& value) const {
  CellKind kind;
  const int i = impl_->Field(column, kind);
  if (i < 0) return false;
  auto v = CellAsDouble(*impl_->cursor, i, kind);
  if (!v) return false;
  value = *v;
  return true;
}

bool CDbManage::GetFieldValue(const char* column, float& value) const {
  double d;
  if (!GetFieldValue(column, d)) return false;
  value = static_cast<float>(d);
  return true;
}

bool CDbManage::GetFieldValue(const char* column, long& value) const {
  CellKind kind;
  const int i = impl_->Field(column, kind);
  return i >= 0 && NarrowInteger(CellAsInteger(*impl_->cursor, i, kind), value);
}

bool CDbManage::GetFieldValue(const char* column, int& value) const {
  CellKind kind;
  const int i = impl_->Field(column, kind);
  return i >= 0 && NarrowInteger(CellAsInteger(*impl_->cursor, i, kind), value);
}

// A flag reads the first character of the field's text ('1' for the number 1).
bool CDbManage::GetFieldValue(const char* column, char& value) const {
  CellKind kind;
  const int i = impl_->Field(column, kind);
  if (i < 0) return false;
  if (kind == CellKind::Text) {  // the usual case, without a copy
    const std::string_view text = impl_->cursor->Text(i);
    if (text.empty()) return false;
    value = text[0];
    return true;
  }
  std::string text;
  if (!CellAsText(*impl_->cursor, i, kind, text) || text.empty()) return false;
  value = text[0];
  return true;
}

bool CDbManage::GetFieldValue(const char* column, Variant& value) const {
  CellKind kind;
  const int i = impl_->Field(column, kind);
  if (i < 0 || kind != CellKind::Blob) return false;
  const auto bytes = impl_->cursor->Blob(i);
  std::vector<double> values(bytes.size() / sizeof(double));
  if (!values.empty()) std::memcpy(values.data(), bytes.data(), values.size() * sizeof(double));
  if constexpr (std::endian::native == std::endian::big) {
    for (double& d : values) {
      auto* b = reinterpret_cast<unsigned char*>(&d);
      std::reverse(b, b + sizeof(double));
    }
  }
  value = Variant(std::move(values));
  return true;
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

void CDbManage::SetFieldValue(const char* column, const char* value) {
  if (!value) {
    impl_->Set(column, std::monostate{});
    return;
  }
  impl_->Set(column, petrodb::db::TextValue{value});
}
void CDbManage::SetFieldValue(const char* column, const std::string& value) {
  impl_->Set(column, petrodb::db::TextValue{value});
}
void CDbManage::SetFieldValue(const char* column, double value) { impl_->Set(column, value); }
void CDbManage::SetFieldValue(const char* column, float value) { impl_->Set(column, static_cast<double>(value)); }
void CDbManage::SetFieldValue(const char* column, int value) { impl_->Set(column, static_cast<std::int64_t>(value)); }
void CDbManage::SetFieldValue(const char* column, long value) { impl_->Set(column, static_cast<std::int64_t>(value)); }
void CDbManage::SetFieldValue(const char* column, char value) {
  impl_->Set(column, petrodb::db::TextValue{std::string(1, value)});
}
void CDbManage::SetFieldValue(const char* column, const DateTime& value) {
  impl_->Set(column, petrodb::db::TextValue{value.ToIsoText()});
}
void CDbManage::SetFieldValue(const char* column, const Variant& value) {
  if (value.IsNull())
    impl_->Set(column, std::monostate{});
  else
    impl_->Set(column, value);
}

bool CDbManage::SaveData() {
  const bool ok = impl_->Flush();
  impl_->saveTableMissing = false;
  return ok;
}

void CDbManage::CancelSaveData() {
  impl_->pending.clear();
  impl_->rowOpen = false;
  impl_->saveTableMissing = false;
}

bool CDbManage::ExecuteSQL(const char* statement) {
  Stopwatch watch;
  impl_->CloseCursor();
  const std::string text = statement ? statement : "";
  if (text.empty() || !impl_->conn) {
    Trace(watch, text, text, "ExecuteSQL", 0);
    return false;
  }
  const std::string sent = impl_->conn->Rewrite(text);
  const bool ok = impl_->conn->Execute(sent, impl_->lastError);
  Trace(watch, text, sent, "ExecuteSQL", ok ? 1 : 0);
  return ok;
}
