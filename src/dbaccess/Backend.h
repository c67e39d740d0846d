#pragma once
// What a database engine must offer the session: connections that run single
// statements, cursors that read rows, batched inserts and one transaction at a
// time.
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
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
// A batch grows row by row to any length: a deque never moves the rows it holds.
using PendingRows = std::deque<PendingRow>;

// Rows of the same table with the same columns in the same order: one prepared
// insert serves them all.
bool SameShape(const PendingRow& a, const PendingRow& b);
// "insert into <table> (<c1>, <c2>) values (<p1>, <p2>)", or "insert into
// <table> default values" for a row without cells. `column` spells a column
// for the engine (null: as given); `mark` spells the k-th parameter, counting
// from 0 (null: "?").
std::string InsertText(const PendingRow& row, std::string (*column)(const std::string&) = nullptr,
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
  // bridge); the text itself when nothing needs rewriting.
  virtual std::string Rewrite(const std::string& statement) const = 0;
  // Runs one select statement. Null when it could not run (error filled).
  // `arrays` says the result holds double arrays: an engine may then fetch the
  // rows in a form that carries them faster.
  virtual std::unique_ptr<Cursor> Query(const std::string& statement, std::string& error, bool arrays = false) = 0;
  // Runs one statement that returns no rows.
  virtual bool Execute(const std::string& statement, std::string& error) = 0;
  virtual bool TableExists(const std::string& table) = 0;
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
