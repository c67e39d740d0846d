#pragma once
// What a database engine must offer the session: connections that run single
// statements, cursors that read rows, batched inserts and one transaction at a
// time.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "dbaccess/Cells.h"
#include "petrodb/Variant.h"

namespace petrodb::db {

enum class Dialect { Jet, Server };

// A result set standing on a row (or past the last one).
class Cursor {
 public:
  virtual ~Cursor() = default;
  virtual bool OnRow() const = 0;
  // Moves to the next row; false at the end, and false when the engine failed
  // while stepping (then Error() tells why).
  virtual bool Next() = 0;
  virtual int ColumnCount() const = 0;
  virtual std::string_view ColumnName(int column) const = 0;
  virtual CellKind Kind(int column) const = 0;
  virtual std::int64_t Integer(int column) const = 0;
  virtual double Real(int column) const = 0;
  virtual std::string_view Text(int column) const = 0;
  virtual std::span<const std::byte> Blob(int column) const = 0;
  // Why the rows ended early; empty while they ended (or will end) normally.
  virtual std::string Error() const { return {}; }
  // The current row's fields at `columns` (-1: no such column, read as Null),
  // all in one call.
  virtual void Fetch(const int* columns, std::size_t count, FieldCell* out) const;
};

// Fetch through a cursor's own Kind and value calls (a final class calls them directly).
template <class C>
void FetchCells(const C& cursor, const int* columns, std::size_t count, FieldCell* out) {
  for (std::size_t k = 0; k < count; ++k) {
    FieldCell& cell = out[k];
    const int i = columns[k];
    cell.kind = i < 0 ? CellKind::Null : cursor.Kind(i);
    switch (cell.kind) {
      case CellKind::Integer: cell.integer = cursor.Integer(i); break;
      case CellKind::Real: cell.real = cursor.Real(i); break;
      case CellKind::Text: {
        const std::string_view text = cursor.Text(i);
        cell.data = text.data();
        cell.size = text.size();
        break;
      }
      case CellKind::Blob: {
        const auto bytes = cursor.Blob(i);
        cell.data = reinterpret_cast<const char*>(bytes.data());
        cell.size = bytes.size();
        break;
      }
      case CellKind::Null: break;
    }
  }
}

inline void Cursor::Fetch(const int* columns, std::size_t count, FieldCell* out) const {
  FetchCells(*this, columns, count, out);
}

// A growing array of plain values for batches of any length: it grows in place
// where the system can, and large ones ask for large memory pages, so that a
// long batch neither copies itself as it grows nor pays a fault per small page.
// A thread keeps the blocks of its last batches (up to a bound) for the next
// ones, whose pages are then already there.
//
// GrowPlainBlock gives a block of at least `grownBytes` (null `block`: a new
// one) and sets `grownBytes` to its size; `kind` (the size of the values) sorts
// the kept blocks. FreePlainBlock is told how many of the block's bytes were
// used: only those pages can be there to give back.
void* GrowPlainBlock(void* block, std::size_t bytes, std::size_t& grownBytes, std::size_t kind);
void FreePlainBlock(void* block, std::size_t bytes, std::size_t used, std::size_t kind);

template <class T>
class PlainArray {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  PlainArray() = default;
  PlainArray(const PlainArray&) = delete;
  PlainArray& operator=(const PlainArray&) = delete;
  ~PlainArray() { FreePlainBlock(data_, bytes_, Used(), sizeof(T)); }

  std::size_t size() const { return size_; }
  T* data() { return data_; }
  const T* data() const { return data_; }
  T& operator[](std::size_t i) { return data_[i]; }
  const T& operator[](std::size_t i) const { return data_[i]; }
  T& push_back(const T& value) {
    if (size_ == capacity_) Grow(size_ + 1);
    data_[size_] = value;
    return data_[size_++];
  }
  void append(const T* values, std::size_t count) {
    if (size_ + count > capacity_) Grow(size_ + count);
    if (count) std::memcpy(data_ + size_, values, count * sizeof(T));
    size_ += count;
  }
  void clear() {
    most_ = std::max(most_, size_);
    size_ = 0;
  }
  // Drops the first `count` values; the rest move to the front.
  void erase_front(std::size_t count) {
    most_ = std::max(most_, size_);
    if (count < size_) std::memmove(data_, data_ + count, (size_ - count) * sizeof(T));
    size_ = count < size_ ? size_ - count : 0;
  }
  void swap(PlainArray& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
    std::swap(bytes_, other.bytes_);
    std::swap(most_, other.most_);
  }

 private:
  void Grow(std::size_t need) {
    std::size_t capacity = capacity_ ? capacity_ * 2 : 64;
    while (capacity < need) capacity *= 2;
    std::size_t bytes = capacity * sizeof(T);
    data_ = static_cast<T*>(GrowPlainBlock(data_, bytes_, bytes, sizeof(T)));
    bytes_ = bytes;
    capacity_ = bytes / sizeof(T);
  }
  std::size_t Used() const { return std::max(most_, size_) * sizeof(T); }
  T* data_ = nullptr;
  std::size_t size_ = 0, capacity_ = 0;
  std::size_t most_ = 0;   // values held at most before the last clear
  std::size_t bytes_ = 0;  // of the block
};

// A value waiting to be written. Text of up to eight bytes is held in the cell;
// longer text lives in its batch's text buffer and a double array in its batch's
// array list, where `at` locates them.
struct PendingCell {
  static constexpr std::size_t kInline = 8;
  union {
    std::int64_t integer;
    double real;
    std::size_t at;
    char chars[kInline];
  };
  std::uint32_t size;  // bytes of text
  CellKind kind;       // Blob: a double array
};
static_assert(sizeof(PendingCell) == 16);

// The table and the columns, in the order they were set, that a row writes.
struct RowShape {
  std::string table;
  std::vector<std::string> columns;
};

// Rows waiting to be written, stored flat: the cells of every row in one
// array, long text in one buffer, each distinct shape once, and the rows as
// runs: consecutive rows of the same table with the same columns in the same
// order, which one prepared insert serves. A batch grows to any length without
// an allocation per row.
class PendingRows {
 public:
  bool empty() const { return size() == 0; }
  std::size_t size() const { return rows_ + (open_ ? 1 : 0); }
  // The rows before the open one: complete, never changed again.
  std::size_t Sealed() const { return rows_; }
  // Tells batches apart: a new one is numbered at its first row.
  std::uint64_t Id() const { return id_; }
  // The rows whose values were let go (LetGoSealed): their runs and shapes
  // stay, their cells cannot be read any more.
  std::size_t LetGo() const { return letGo_; }
  const RowShape& Shape(std::size_t row) const { return shapes_[RunOf(row).shape]; }
  // One past the last row of the run `row` belongs to.
  std::size_t RunEnd(std::size_t row) const;
  std::span<const PendingCell> Cells(std::size_t row) const;
  std::string_view Text(const PendingCell& cell) const {
    return cell.size <= PendingCell::kInline ? std::string_view(cell.chars, cell.size)
                                             : std::string_view(text_.data() + cell.at, cell.size);
  }
  const Variant& Array(const PendingCell& cell) const { return arrays_[cell.at]; }

  // Begins a row of `table`; the row before it is complete.
  void StartRow(const std::string& table);
  // Sets a column of the row begun last (without one, or without a column,
  // nothing happens); a column set again (names ignore case) keeps the last value.
  void SetNull(const char* column) { Slot(column); }
  void SetInteger(const char* column, std::int64_t value);
  void SetReal(const char* column, double value);
  void SetText(const char* column, std::string_view value);
  void SetArray(const char* column, const Variant& value);
  // Begins a row of `table` with `count` columns set to NULL at once, as
  // StartRow and SetNull for each would; their cells are then OpenCell(0) ..
  // OpenCell(count - 1). The names must be distinct (ignoring case), and stay
  // as they are while the batch lives: a row with the very names of the row
  // before is not compared again.
  void StartRowWith(const std::string& table, const char* const* columns, std::size_t count);
  PendingCell& OpenCell(std::size_t k) { return cells_[openFirst_ + k]; }
  // A value into a cell of the open row.
  static void PutInteger(PendingCell& cell, std::int64_t value) {
    cell.kind = CellKind::Integer;
    cell.integer = value;
  }
  static void PutReal(PendingCell& cell, double value) {
    cell.kind = CellKind::Real;
    cell.real = value;
  }
  void PutText(PendingCell& cell, std::string_view value) {
    cell.kind = CellKind::Text;
    cell.size = static_cast<std::uint32_t>(value.size());
    if (value.size() <= PendingCell::kInline) {
      if (!value.empty()) std::memcpy(cell.chars, value.data(), value.size());
    } else {
      cell.at = text_.size();
      text_.append(value.data(), value.size());
    }
  }
  void PutArray(PendingCell& cell, Variant value) {
    cell.kind = CellKind::Blob;
    cell.at = arrays_.size();
    arrays_.push_back(std::move(value));
  }
  // Completes the row begun last; the batch is then ready to be written.
  void Seal();
  // Lets go of the values of the sealed rows once an engine holds them, so
  // that a long batch sent ahead does not keep them all. Only right after a
  // row was begun: the open row has no value set yet.
  void LetGoSealed();
  void clear();
  void swap(PendingRows& other) noexcept;

 private:
  struct Run {
    std::size_t firstRow, firstCell, shape;
  };
  const Run& RunOf(std::size_t row) const;
  // The open row's cell for the column; null for no column or no open row.
  PendingCell* Slot(const char* column);

  std::vector<RowShape> shapes_;
  std::vector<Run> runs_;
  std::size_t rows_ = 0;  // sealed rows
  std::uint64_t id_ = 0;
  std::size_t letGo_ = 0;  // rows whose values were let go
  std::size_t base_ = 0;   // cells let go: a run's firstCell counts them
  PlainArray<PendingCell> cells_;
  PlainArray<char> text_;
  std::vector<Variant> arrays_;
  // The open row: while it sets the columns of the row before in the same
  // order (`following`), its names are that row's; otherwise they are kept here.
  bool open_ = false;
  bool following_ = false;
  std::size_t openFirst_ = 0;  // its first cell
  std::string openTable_;
  std::vector<std::string> openColumns_;
  // Names StartRowWith found to be those of the shape `namedShape_`.
  std::vector<const char*> namedColumns_;
  std::size_t namedShape_ = static_cast<std::size_t>(-1);
};

// "insert into <table> (<c1>, <c2>) values (<p1>, <p2>)", or "insert into
// <table> default values" for a row without cells. `column` spells a column
// for the engine (null: as given); `mark` spells the k-th parameter, counting
// from 0 (null: "?").
std::string InsertText(const RowShape& row, std::string (*column)(const std::string&) = nullptr,
                       std::string (*mark)(std::size_t) = nullptr);

// A new project database loaded from a backup script: what the catalogue's
// server statement "RESTORE ... FROM DISK = '<backup>'" asks for.
struct RestoreRequest {
  std::string database;  // as the server stores it
  std::string backup;    // path of the script to load
};

class Connection {
 public:
  virtual ~Connection() = default;
  virtual Dialect GetDialect() const = 0;
  // Checked before a pooled connection is handed out again.
  virtual bool Healthy() = 0;
  // Where the connection leads, for messages: a file path, or "server <host>
  // database <name>". Never holds a password.
  virtual std::string Where() const = 0;
  // The statement the engine will run for a module statement (the dialect
  // bridge); the text itself when nothing needs rewriting. The text is the
  // connection's: it stays valid until the next Rewrite on the connection.
  virtual const std::string& Rewrite(const std::string& statement) const = 0;
  // Runs one select statement. Null when it could not run (error filled).
  // `arrays` says the result holds double arrays: an engine may then fetch the
  // rows in a form that carries them faster.
  virtual std::unique_ptr<Cursor> Query(const std::string& statement, std::string& error, bool arrays = false) = 0;
  // Runs one statement that returns no rows.
  virtual bool Execute(const std::string& statement, std::string& error) = 0;
  virtual bool TableExists(const std::string& table) = 0;
  // Offers the sealed rows of a save batch before it is saved, so that an engine
  // can send them while the rest are built. True when the engine now holds
  // every sealed row, sent and kept to be sent again if need be: the batch may
  // then let go of their values (only Insert reads it after that). Nothing
  // offered is stored unless Insert gets the same batch: any other statement
  // first undoes what went ahead, to be sent again with the batch's save.
  virtual bool SendAhead(const PendingRows& rows) { return false; }
  // The batch offered ahead will not be saved.
  virtual void TakeBack(const PendingRows& rows) {}
  // Inserts the rows, one prepared statement per run of rows of the same shape.
  // Inside a transaction (Begin) the rows join it; otherwise they are written in
  // a transaction of their own. `ran` receives, per run attempted, the text the
  // engine ran for it. Nothing of the call is kept on failure.
  virtual bool Insert(const PendingRows& rows, std::vector<std::string>& ran, std::string& error) = 0;

  // The module statement read as a request to restore a database (only the
  // catalogue's restore statement, in the server dialect, is one).
  virtual std::optional<RestoreRequest> AsRestore(const std::string& statement) const { return std::nullopt; }
  virtual bool RestoreDatabase(const RestoreRequest& request, std::string& error) {
    error = "this engine does not restore databases";
    return false;
  }

  // One transaction at a time, begun for an operation that writes. Begin also
  // makes writers of the same database wait for each other, so that two
  // replaces of one record run one after the other.
  virtual bool Begin(std::string& error) = 0;
  virtual bool Commit(std::string& error) = 0;
  virtual void Rollback() = 0;
  // True while the transaction begun is open; false when none was begun or the
  // engine ended it after an error.
  virtual bool InTransaction() const = 0;
};

}  // namespace petrodb::db
