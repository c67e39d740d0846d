#pragma once
// What a database engine must offer the session: connections that run single
// statements, cursors that read rows, and batched inserts.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "petrodb/Variant.h"

namespace petrodb::db {

enum class Dialect { Jet, Server };

enum class CellKind { Null, Integer, Real, Text, Blob };

// A result set standing on a row (or past the last one).
class Cursor {
 public:
  virtual ~Cursor() = default;
  virtual bool OnRow() const = 0;
  // Moves to the next row; false at the end.
  virtual bool Next() = 0;
  virtual int ColumnCount() const = 0;
  virtual std::string_view ColumnName(int column) const = 0;
  virtual CellKind Kind(int column) const = 0;
  virtual std::int64_t Integer(int column) const = 0;
  virtual double Real(int column) const = 0;
  virtual std::string_view Text(int column) const = 0;
  virtual std::span<const std::byte> Blob(int column) const = 0;
};

struct TextValue {
  std::string text;
};
// A value waiting to be written: null, integer, real, text or a double array.
using Cell = std::variant<std::monostate, std::int64_t, double, TextValue, Variant>;

struct PendingRow {
  std::string table;
  std::vector<std::pair<std::string, Cell>> cells;
};

class Connection {
 public:
  virtual ~Connection() = default;
  virtual Dialect GetDialect() const = 0;
  // Checked before a pooled connection is handed out again.
  virtual bool Healthy() = 0;
  // The statement the engine will run for a module statement (the dialect
  // bridge); the text itself when nothing needs rewriting.
  virtual std::string Rewrite(const std::string& statement) const = 0;
  // Runs one select statement. Null when it could not run (error filled).
  virtual std::unique_ptr<Cursor> Query(const std::string& statement, std::string& error) = 0;
  // Runs one statement that returns no rows.
  virtual bool Execute(const std::string& statement, std::string& error) = 0;
  virtual bool TableExists(const std::string& table) = 0;
  // Inserts every row in one transaction; nothing is written on failure.
  virtual bool Insert(const std::vector<PendingRow>& rows, std::string& error) = 0;
};

}  // namespace petrodb::db
