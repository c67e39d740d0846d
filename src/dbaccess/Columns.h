#pragma once
// Column tables: a record's columns declared once, driving both reading and
// writing.
//
//   const ColumnTable<WellRecord> kWellColumns{"w_well_data", {
//       Col("WellID", &WellRecord::WellID),
//       Col("WellName", &WellRecord::WellName),
//       Col("Remark", &WellRecord::Remark).Or(std::string()),  // falls back when unreadable
//       Col("ImageType", &WellRecord::ImageType).WriteOnly(),
//   }};
//
// Reading goes through the columns in the declared order and stops at the first
// required column that cannot be read (missing, NULL or not convertible); the
// fields read before it keep their values. A column with a fallback takes the
// fallback instead. Writing sets every written column of the row begun with
// AddNew, in the declared order (which is the column order of the insert).
//
// Every table registers itself, so a test can hold each declaration against the
// schema: the column exists in the named table (or in the table a view names)
// with a type the member can hold.
#include <algorithm>
#include <cstddef>
#include <functional>
#include <new>
#include <stdexcept>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "dbaccess/Backend.h"
#include "dbaccess/Cells.h"
#include "dbaccess/DbManage.h"
#include "petrodb/DateTime.h"
#include "petrodb/Variant.h"

namespace petrodb {

// What a record member holds, as far as the schema check cares.
enum class MemberKind { Text, Real, Integer, Flag, Doubles, Date };

// How an empty double array is written: as NULL, or as a zero-length value.
enum class EmptyArray { Null, ZeroLength };

namespace columns {

template <class T>
constexpr MemberKind KindOf() {
  if constexpr (std::is_same_v<T, std::string>) return MemberKind::Text;
  else if constexpr (std::is_same_v<T, char>) return MemberKind::Flag;
  else if constexpr (std::is_floating_point_v<T>) return MemberKind::Real;
  else if constexpr (std::is_integral_v<T>) return MemberKind::Integer;
  else if constexpr (std::is_same_v<T, std::vector<double>> || std::is_same_v<T, Variant>) return MemberKind::Doubles;
  else if constexpr (std::is_same_v<T, DateTime>) return MemberKind::Date;
  else static_assert(sizeof(T) == 0, "no column kind for this member type");
}

// One field of the current row into a member; false when it cannot be read.
bool ReadValue(const CDbManage& db, const char* column, std::string& value);
bool ReadValue(const CDbManage& db, const char* column, double& value);
bool ReadValue(const CDbManage& db, const char* column, float& value);
bool ReadValue(const CDbManage& db, const char* column, int& value);
bool ReadValue(const CDbManage& db, const char* column, long& value);
bool ReadValue(const CDbManage& db, const char* column, char& value);
bool ReadValue(const CDbManage& db, const char* column, std::vector<double>& value);
bool ReadValue(const CDbManage& db, const char* column, Variant& value);
bool ReadValue(const CDbManage& db, const char* column, DateTime& value);

void WriteValue(CDbManage& db, const char* column, const std::string& value, EmptyArray);
void WriteValue(CDbManage& db, const char* column, double value, EmptyArray);
void WriteValue(CDbManage& db, const char* column, float value, EmptyArray);
void WriteValue(CDbManage& db, const char* column, int value, EmptyArray);
void WriteValue(CDbManage& db, const char* column, long value, EmptyArray);
void WriteValue(CDbManage& db, const char* column, char value, EmptyArray);
void WriteValue(CDbManage& db, const char* column, const std::vector<double>& value, EmptyArray empty);
void WriteValue(CDbManage& db, const char* column, const Variant& value, EmptyArray);
void WriteValue(CDbManage& db, const char* column, const DateTime& value, EmptyArray);

// A member's value into a cell of a row begun by AddNewWith, as WriteValue
// would set it (the cell is NULL to begin with).
inline void ToCell(db::PendingRows& rows, db::PendingCell& cell, const std::string& value, EmptyArray) {
  rows.PutText(cell, value);
}
inline void ToCell(db::PendingRows&, db::PendingCell& cell, double value, EmptyArray) {
  db::PendingRows::PutReal(cell, value);
}
inline void ToCell(db::PendingRows&, db::PendingCell& cell, float value, EmptyArray) {
  db::PendingRows::PutReal(cell, static_cast<double>(value));
}
inline void ToCell(db::PendingRows&, db::PendingCell& cell, int value, EmptyArray) {
  db::PendingRows::PutInteger(cell, value);
}
inline void ToCell(db::PendingRows&, db::PendingCell& cell, long value, EmptyArray) {
  db::PendingRows::PutInteger(cell, value);
}
inline void ToCell(db::PendingRows& rows, db::PendingCell& cell, char value, EmptyArray) {
  rows.PutText(cell, std::string_view(&value, 1));
}
inline void ToCell(db::PendingRows& rows, db::PendingCell& cell, const DateTime& value, EmptyArray) {
  rows.PutText(cell, value.ToIsoText());
}
inline void ToCell(db::PendingRows& rows, db::PendingCell& cell, const Variant& value, EmptyArray) {
  if (!value.IsNull()) rows.PutArray(cell, value);
}
inline void ToCell(db::PendingRows& rows, db::PendingCell& cell, const std::vector<double>& values,
                   EmptyArray empty) {
  if (values.empty() && empty != EmptyArray::ZeroLength) return;
  Variant v;
  DoubleArrayToVariant(values.data(), static_cast<int>(values.size()), v);
  if (!v.IsNull()) rows.PutArray(cell, std::move(v));
}

// Where a typed getter or setter keeps the callable that reaches its member.
template <class Access>
void* StoreAccess(unsigned char* storage, std::size_t size, const Access& access) {
  static_assert(std::is_trivially_copyable_v<Access> && alignof(Access) <= alignof(std::max_align_t));
  if (sizeof(Access) > size) throw std::logic_error("member access too large");
  return ::new (static_cast<void*>(storage)) Access(access);
}
template <class Access>
const Access& StoredAccess(const void* storage) {
  return *std::launder(static_cast<const Access*>(storage));
}

}  // namespace columns

// A column's callable, and for one made by Col() the member access it was
// made from, kept so that a value can go between the member and a cell without
// the session (`Direct` is that fast way).
template <class Function, class Direct>
class ColumnAccess {
 public:
  ColumnAccess() = default;
  template <class F, class = std::enable_if_t<!std::is_base_of_v<ColumnAccess, std::decay_t<F>> &&
                                              std::is_constructible_v<Function, F>>>
  ColumnAccess(F f) : function_(std::move(f)) {}
  explicit operator bool() const { return static_cast<bool>(function_); }

 protected:
  template <class Access>
  void Keep(const Access& access, Direct direct) {
    columns::StoreAccess(access_, kStorage, access);
    direct_ = direct;
  }

  static constexpr std::size_t kStorage = 2 * sizeof(void*);
  Function function_;
  Direct direct_ = nullptr;
  alignas(std::max_align_t) unsigned char access_[kStorage] = {};
};

// Reads a column into its member: callable as (db, record), false when the
// value cannot be read. A getter made by Col() also converts a field the
// session has fetched straight into the member, without looking the column up;
// a getter assigned anything else is called as it is.
template <class Record>
class ColumnGetter
    : public ColumnAccess<std::function<bool(const CDbManage&, Record&)>,
                          bool (*)(const db::FieldCell&, Record&, const void*)> {
 public:
  using ColumnGetter::ColumnAccess::ColumnAccess;

  // Reads the member through `access` (a small copyable callable giving T& of a record).
  template <class T, class Access>
  static ColumnGetter Typed(const char* name, Access access) {
    ColumnGetter g([name, access](const CDbManage& db, Record& r) { return columns::ReadValue(db, name, access(r)); });
    g.Keep(access, [](const db::FieldCell& cell, Record& r, const void* stored) {
      return db::CellTo(cell, columns::StoredAccess<Access>(stored)(r));
    });
    return g;
  }

  bool operator()(const CDbManage& db, Record& record) const { return this->function_(db, record); }
  // True when FromCell can read the member.
  bool ReadsCells() const { return this->direct_ != nullptr; }
  bool FromCell(const db::FieldCell& cell, Record& record) const { return this->direct_(cell, record, this->access_); }
};

// Writes a member into the column of the row begun with AddNew; callable as
// (db, record, emptyArray). A setter made by Col() also puts the member straight
// into a cell of a row begun with AddNewWith; one assigned anything else is
// called as it is.
template <class Record>
class ColumnSetter
    : public ColumnAccess<std::function<void(CDbManage&, const Record&, EmptyArray)>,
                          void (*)(db::PendingRows&, db::PendingCell&, const Record&, const void*, EmptyArray)> {
 public:
  using ColumnSetter::ColumnAccess::ColumnAccess;

  template <class T, class Access>
  static ColumnSetter Typed(const char* name, Access access) {
    // Writing only reads the member.
    ColumnSetter s([name, access](CDbManage& db, const Record& r, EmptyArray empty) {
      columns::WriteValue(db, name, std::as_const(access(const_cast<Record&>(r))), empty);
    });
    s.Keep(access, [](db::PendingRows& rows, db::PendingCell& cell, const Record& r, const void* stored,
                      EmptyArray empty) {
      columns::ToCell(rows, cell, std::as_const(columns::StoredAccess<Access>(stored)(const_cast<Record&>(r))),
                      empty);
    });
    return s;
  }

  void operator()(CDbManage& db, const Record& record, EmptyArray empty) const { this->function_(db, record, empty); }
  // True when ToCell can write the member.
  bool WritesCells() const { return this->direct_ != nullptr; }
  void ToCell(db::PendingRows& rows, db::PendingCell& cell, const Record& record, EmptyArray empty) const {
    this->direct_(rows, cell, record, this->access_, empty);
  }
};

template <class Record>
struct Column {
  const char* name = nullptr;
  MemberKind kind = MemberKind::Text;
  bool required = true;  // an unreadable value fails the read
  bool read = true;
  bool written = true;
  EmptyArray emptyArray = EmptyArray::Null;
  // Reads the member; false when the value cannot be read.
  ColumnGetter<Record> get;
  // Gives the member its fallback (columns that are not required); null keeps
  // the member as it was.
  std::function<void(Record&)> fallback;
  ColumnSetter<Record> set;
};

// What Col() gives: a column that still knows its member's type, so that its
// options can be chained. It converts to Column<Record>.
template <class Record, class T>
struct ColumnOf : Column<Record> {
  std::function<T&(Record&)> member;  // where the value lives in a record

  // Not required: an unreadable value gives the member `value`.
  ColumnOf Or(T value) && {
    this->required = false;
    this->fallback = [m = member, value](Record& r) { m(r) = value; };
    return std::move(*this);
  }
  // Not required: an unreadable value leaves the member as it was.
  ColumnOf Optional() && {
    this->required = false;
    this->fallback = nullptr;
    return std::move(*this);
  }
  // Written, never read back (loads leave the member as it is).
  ColumnOf WriteOnly() && {
    this->read = false;
    return std::move(*this);
  }
  // Read, never written (the database fills it, or the row is keyed elsewhere).
  ColumnOf ReadOnly() && {
    this->written = false;
    return std::move(*this);
  }
  // An empty array is written as a zero-length value, not as NULL.
  ColumnOf EmptyAsZeroLength() && {
    this->emptyArray = EmptyArray::ZeroLength;
    return std::move(*this);
  }
};

namespace columns {
template <class Record, class T, class Access>
ColumnOf<Record, T> Make(const char* name, Access access) {
  ColumnOf<Record, T> c;
  c.name = name;
  c.kind = KindOf<T>();
  c.member = access;
  c.get = ColumnGetter<Record>::template Typed<T>(name, access);
  c.set = ColumnSetter<Record>::template Typed<T>(name, access);
  return c;
}
}  // namespace columns

// A column of `Record` held in `member`: required, read and written.
template <class Record, class T>
ColumnOf<Record, T> Col(const char* name, T Record::*member) {
  return columns::Make<Record, T>(name, [member](Record& r) -> T& { return r.*member; });
}

// A column held in a member of a part of the record (`record.part.member`).
template <class Record, class Part, class T>
ColumnOf<Record, T> Col(const char* name, Part Record::*part, T Part::*member) {
  return columns::Make<Record, T>(name, [part, member](Record& r) -> T& { return (r.*part).*member; });
}

// The registered tables, for the schema check.
struct ColumnTableInfo {
  struct Entry {
    std::string name;
    MemberKind kind;
    bool written;
  };
  std::string table;
  std::vector<Entry> columns;
};
const std::vector<ColumnTableInfo>& RegisteredColumnTables();
void RegisterColumnTable(ColumnTableInfo info);

template <class Record>
class ColumnTable {
 public:
  ColumnTable(const char* table, std::initializer_list<Column<Record>> columns)
      : table_(table), columns_(columns) {
    ColumnTableInfo info{table_, {}};
    for (const auto& c : columns_) info.columns.push_back({c.name, c.kind, c.written});
    RegisterColumnTable(std::move(info));
    Index();
  }

  // The read columns of `whole` that `names` name, in its order: a reader that
  // wants part of a row fetches no more of it.
  ColumnTable(const ColumnTable& whole, std::initializer_list<const char*> names) : table_(whole.table_) {
    for (const auto& c : whole.columns_) {
      const auto named = [&](const char* n) { return sql::EqualsIgnoreCase(n, c.name); };
      if (c.read && std::any_of(names.begin(), names.end(), named)) columns_.push_back(c);
    }
    Index();
  }

  const char* table() const { return table_; }
  const std::vector<Column<Record>>& columns() const { return columns_; }

  // Reads the current row into `record` in the declared order; false at the
  // first required column that cannot be read (fields read so far keep their
  // values, later ones are not touched).
  bool Read(const CDbManage& db, Record& record) const {
    // The row's fields fetched at once when every getter reads cells; no row
    // reads as every field NULL.
    const db::FieldCell* cells = readsCells_ ? db.GetFields(readNames_.data(), readNames_.size()) : nullptr;
    const db::FieldCell none;
    std::size_t k = 0;
    for (const auto& c : columns_) {
      if (!c.read) continue;
      if (readsCells_ ? c.get.FromCell(cells ? cells[k++] : none, record) : c.get(db, record)) continue;
      if (c.required) return false;
      if (c.fallback) c.fallback(record);
    }
    return true;
  }

  // Sets the written columns of the row begun with AddNew, in the declared order.
  void Write(CDbManage& db, const Record& record) const {
    for (const auto& c : columns_)
      if (c.written) c.set(db, record, c.emptyArray);
  }

  // Begins a row (AddNew) and writes the record into it.
  void AddRow(CDbManage& db, const Record& record) const {
    if (!writesCells_) {
      db.AddNew();
      Write(db, record);
      return;
    }
    db::PendingRows& rows = db.AddNewWith(writeNames_.data(), writeNames_.size());
    for (std::size_t k = 0; k < written_.size(); ++k) {
      const auto& c = columns_[written_[k]];
      c.set.ToCell(rows, rows.OpenCell(k), record, c.emptyArray);
    }
  }
  // Begins a row, sets `keyColumn` to `key` (a value the operation has and the
  // record does not hold), then writes the record's columns.
  void AddKeyedRow(CDbManage& db, const char* keyColumn, const std::string& key, const Record& record) const {
    db.AddNew();
    db.SetFieldValue(keyColumn, key);
    Write(db, record);
  }
  // One row per record, in order.
  template <class Range>
  void AddRows(CDbManage& db, const Range& records) const {
    for (const auto& r : records) AddRow(db, r);
  }

 private:
  // The read and written names, and whether whole rows go through cells.
  void Index() {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const auto& c = columns_[i];
      if (c.read) {
        readNames_.push_back(c.name);
        readsCells_ = readsCells_ && c.get.ReadsCells();
      }
      if (c.written) {
        for (const char* other : writeNames_) writesCells_ = writesCells_ && !sql::EqualsIgnoreCase(other, c.name);
        writeNames_.push_back(c.name);
        written_.push_back(i);
        writesCells_ = writesCells_ && c.set.WritesCells();
      }
    }
  }

  const char* table_;
  std::vector<Column<Record>> columns_;
  std::vector<const char*> readNames_;  // of the read columns, in order
  bool readsCells_ = true;              // every read column's getter reads fetched fields
  std::vector<const char*> writeNames_;  // of the written columns, in order
  std::vector<std::size_t> written_;     // their places in columns_
  bool writesCells_ = true;              // every written column's setter fills cells, names distinct
};

// A row reader that reads through the column table of `Row` (a stored row: the
// record plus columns the record leaves out) and keeps the record's part.
template <class Record, class Row>
auto ReadAs(const ColumnTable<Row>& columns) {
  return [&columns](const CDbManage& db, Record& out) {
    Row row;
    const bool ok = columns.Read(db, row);
    out = static_cast<Record&&>(row);
    return ok;
  };
}

}  // namespace petrodb
