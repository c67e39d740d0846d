// The embedded engine: project files are SQLite databases.
#include <sqlite3.h>
#include <sys/stat.h>

#include <bit>
#include <cstring>
#include <list>
#include <map>
#include <set>
#include <unordered_map>

#include "dbaccess/JetBridge.h"
#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"

namespace petrodb::db {
namespace {

static_assert(std::endian::native == std::endian::little,
              "double arrays are stored little-endian; add a byte swap for this platform");

struct DbCloser {
  void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using DbHandle = std::unique_ptr<sqlite3, DbCloser>;

struct StmtFinalizer {
  void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};
using StmtHandle = std::unique_ptr<sqlite3_stmt, StmtFinalizer>;

// True when nothing but blanks and comments follows a statement.
bool OnlyBlanksLeft(const char* tail) {
  while (*tail) {
    if (std::isspace(static_cast<unsigned char>(*tail)) || *tail == ';') {
      ++tail;
    } else if (tail[0] == '-' && tail[1] == '-') {
      while (*tail && *tail != '\n') ++tail;
    } else if (tail[0] == '/' && tail[1] == '*') {
      const char* end = std::strstr(tail + 2, "*/");
      if (!end) return true;
      tail = end + 2;
    } else {
      return false;
    }
  }
  return true;
}

// Prepared statements by text, least recently used dropped first.
class StatementCache {
 public:
  explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}

  sqlite3_stmt* Find(const std::string& text) {
    auto it = index_.find(text);
    if (it == index_.end()) return nullptr;
    order_.splice(order_.begin(), order_, it->second);
    return it->second->second.get();
  }

  sqlite3_stmt* Add(const std::string& text, StmtHandle stmt) {
    order_.emplace_front(text, std::move(stmt));
    index_[text] = order_.begin();
    while (order_.size() > capacity_) {
      auto& last = order_.back();
      if (sqlite3_stmt_busy(last.second.get())) break;  // in use by an open cursor
      index_.erase(last.first);
      order_.pop_back();
    }
    return order_.front().second.get();
  }

  void Clear() {
    index_.clear();
    order_.clear();
  }

 private:
  std::size_t capacity_;
  std::list<std::pair<std::string, StmtHandle>> order_;
  std::unordered_map<std::string, std::list<std::pair<std::string, StmtHandle>>::iterator> index_;
};

bool ChangesSchema(const std::string& statement) {
  const auto first = statement.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return false;
  const std::string word = sql::AsciiLower(statement.substr(first, 6));
  return word.rfind("create", 0) == 0 || word.rfind("alter", 0) == 0 || word.rfind("drop", 0) == 0;
}

class SqliteCursor final : public Cursor {
 public:
  SqliteCursor(sqlite3_stmt* stmt, StmtHandle owned, bool onRow)
      : stmt_(stmt), owned_(std::move(owned)), onRow_(onRow) {}
  ~SqliteCursor() override {
    if (!owned_) {
      sqlite3_reset(stmt_);  // back to the cache, ending the read
      sqlite3_clear_bindings(stmt_);
    }
  }
  bool OnRow() const override { return onRow_; }
  bool Next() override {
    if (!onRow_) return false;
    onRow_ = sqlite3_step(stmt_) == SQLITE_ROW;
    return onRow_;
  }
  int ColumnCount() const override {
    return names_.empty() ? sqlite3_column_count(stmt_) : static_cast<int>(names_.size());
  }
  // Names are looked up for every field read; they stay put while the statement lives.
  std::string_view ColumnName(int i) const override {
    if (names_.empty()) names_.resize(sqlite3_column_count(stmt_));
    if (i < 0 || i >= static_cast<int>(names_.size())) return {};
    if (!names_[i].data()) {
      const char* name = sqlite3_column_name(stmt_, i);
      names_[i] = name ? std::string_view(name) : std::string_view("", 0);
    }
    return names_[i];
  }
  CellKind Kind(int i) const override {
    switch (sqlite3_column_type(stmt_, i)) {
      case SQLITE_INTEGER: return CellKind::Integer;
      case SQLITE_FLOAT: return CellKind::Real;
      case SQLITE_TEXT: return CellKind::Text;
      case SQLITE_BLOB: return CellKind::Blob;
      default: return CellKind::Null;
    }
  }
  std::int64_t Integer(int i) const override { return sqlite3_column_int64(stmt_, i); }
  double Real(int i) const override { return sqlite3_column_double(stmt_, i); }
  std::string_view Text(int i) const override {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, i));
    return text ? std::string_view(text, sqlite3_column_bytes(stmt_, i)) : std::string_view();
  }
  std::span<const std::byte> Blob(int i) const override {
    const void* data = sqlite3_column_blob(stmt_, i);
    const int size = sqlite3_column_bytes(stmt_, i);
    return {static_cast<const std::byte*>(data), static_cast<std::size_t>(data ? size : 0)};
  }

 private:
  sqlite3_stmt* stmt_;
  StmtHandle owned_;  // set when the cached statement was busy
  bool onRow_;
  mutable std::vector<std::string_view> names_;
};

class SqliteConnection final : public Connection {
 public:
  SqliteConnection(DbHandle db, Dialect dialect, std::string path)
      : db_(std::move(db)), dialect_(dialect), path_(std::move(path)), cache_(128) {
    struct stat st{};
    if (::stat(path_.c_str(), &st) == 0) {
      device_ = st.st_dev;
      inode_ = st.st_ino;
    }
  }
  ~SqliteConnection() override { cache_.Clear(); }

  Dialect GetDialect() const override { return dialect_; }

  // The file must still be the one opened: a project replaced or removed under a
  // pooled connection is reopened, not read through a stale handle.
  bool Healthy() override {
    struct stat st{};
    return db_ && ::stat(path_.c_str(), &st) == 0 && st.st_dev == device_ && st.st_ino == inode_;
  }

  std::string Rewrite(const std::string& statement) const override {
    return dialect_ == Dialect::Jet ? RewriteJetForSqlite(statement) : NormaliseDateLiterals(statement);
  }

  std::unique_ptr<Cursor> Query(const std::string& statement, std::string& error) override {
    StmtHandle owned;
    sqlite3_stmt* stmt = Prepare(statement, owned, error);
    if (!stmt) return nullptr;
    const int rc = sqlite3_step(stmt);
    if (rc != SQLITE_ROW && rc != SQLITE_DONE) {
      error = sqlite3_errmsg(db_.get());
      sqlite3_reset(stmt);
      return nullptr;
    }
    return std::make_unique<SqliteCursor>(stmt, std::move(owned), rc == SQLITE_ROW);
  }

  bool Execute(const std::string& statement, std::string& error) override {
    StmtHandle owned;
    sqlite3_stmt* stmt = Prepare(statement, owned, error);
    if (!stmt) return false;
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE) error = sqlite3_errmsg(db_.get());
    sqlite3_reset(stmt);
    if (rc == SQLITE_DONE && ChangesSchema(statement)) dateColumns_.clear();
    return rc == SQLITE_DONE;
  }

  bool TableExists(const std::string& table) override {
    std::string error;
    StmtHandle owned;
    sqlite3_stmt* stmt = Prepare(
        "select 1 from sqlite_master where type in ('table', 'view') and name = ?1 collate nocase", owned, error);
    if (!stmt) return false;
    sqlite3_bind_text(stmt, 1, table.c_str(), static_cast<int>(table.size()), SQLITE_TRANSIENT);
    const bool found = sqlite3_step(stmt) == SQLITE_ROW;
    sqlite3_reset(stmt);
    sqlite3_clear_bindings(stmt);
    return found;
  }

  bool Insert(const std::vector<PendingRow>& rows, std::string& error) override {
    lastInsert_ = nullptr;
    if (sqlite3_exec(db_.get(), "begin immediate", nullptr, nullptr, nullptr) != SQLITE_OK) {
      error = sqlite3_errmsg(db_.get());
      return false;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (!InsertRow(rows[i], i > 0 ? &rows[i - 1] : nullptr, error)) {
        sqlite3_exec(db_.get(), "rollback", nullptr, nullptr, nullptr);
        return false;
      }
    }
    if (sqlite3_exec(db_.get(), "commit", nullptr, nullptr, nullptr) != SQLITE_OK) {
      error = sqlite3_errmsg(db_.get());
      sqlite3_exec(db_.get(), "rollback", nullptr, nullptr, nullptr);
      return false;
    }
    return true;
  }

 private:
  sqlite3_stmt* Prepare(const std::string& text, StmtHandle& owned, std::string& error) {
    if (sqlite3_stmt* cached = cache_.Find(text)) {
      if (!sqlite3_stmt_busy(cached)) return cached;
    }
    sqlite3_stmt* raw = nullptr;
    const char* tail = nullptr;
    const int rc = sqlite3_prepare_v3(db_.get(), text.c_str(), static_cast<int>(text.size()),
                                      SQLITE_PREPARE_PERSISTENT, &raw, &tail);
    StmtHandle stmt(raw);
    if (rc != SQLITE_OK || !stmt) {
      error = rc != SQLITE_OK ? sqlite3_errmsg(db_.get()) : "empty statement";
      return nullptr;
    }
    if (tail && !OnlyBlanksLeft(tail)) {
      error = "more than one statement in one call";
      return nullptr;
    }
    if (cache_.Find(text)) {  // the cached one is busy: use a private copy
      owned = std::move(stmt);
      return owned.get();
    }
    return cache_.Add(text, std::move(stmt));
  }

  const std::set<std::string>& DateColumns(const std::string& table) {
    const std::string key = sql::AsciiLower(table);
    auto it = dateColumns_.find(key);
    if (it != dateColumns_.end()) return it->second;
    std::set<std::string> columns;
    std::string error;
    StmtHandle owned;
    if (sqlite3_stmt* stmt = Prepare("select name, type from pragma_table_info(?1)", owned, error)) {
      sqlite3_bind_text(stmt, 1, table.c_str(), static_cast<int>(table.size()), SQLITE_TRANSIENT);
      while (sqlite3_step(stmt) == SQLITE_ROW) {
        const auto* name = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
        const auto* type = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 1));
        if (name && type && sql::EqualsIgnoreCase(type, "DATETEXT")) columns.insert(sql::AsciiLower(name));
      }
      sqlite3_reset(stmt);
      sqlite3_clear_bindings(stmt);
    }
    return dateColumns_.emplace(key, std::move(columns)).first->second;
  }

  static std::string InsertText(const PendingRow& row) {
    std::string text = "insert into " + row.table + " (";
    std::string marks;
    for (std::size_t k = 0; k < row.cells.size(); ++k) {
      if (k) {
        text += ", ";
        marks += ", ";
      }
      text += row.cells[k].first;
      marks += "?";
    }
    return text + ") values (" + marks + ")";
  }

  static bool SameShape(const PendingRow& a, const PendingRow& b) {
    if (a.table != b.table || a.cells.size() != b.cells.size()) return false;
    for (std::size_t k = 0; k < a.cells.size(); ++k)
      if (a.cells[k].first != b.cells[k].first) return false;
    return true;
  }

  // Rows of the same table and columns as the row before reuse its statement.
  bool InsertRow(const PendingRow& row, const PendingRow* previous, std::string& error) {
    if (row.cells.empty()) {
      const std::string text = "insert into " + row.table + " default values";
      return Execute(text, error);
    }
    StmtHandle owned;
    sqlite3_stmt* stmt = nullptr;
    if (previous && lastInsert_ && SameShape(row, *previous)) {
      stmt = lastInsert_;
    } else {
      stmt = Prepare(InsertText(row), owned, error);
      if (!stmt) return false;
      lastInsert_ = owned ? nullptr : stmt;
      lastDates_ = &DateColumns(row.table);
    }
    const auto& dates = *lastDates_;
    for (std::size_t k = 0; k < row.cells.size(); ++k) {
      const int slot = static_cast<int>(k) + 1;
      const Cell& cell = row.cells[k].second;
      if (const auto* i = std::get_if<std::int64_t>(&cell)) {
        sqlite3_bind_int64(stmt, slot, *i);
      } else if (const auto* d = std::get_if<double>(&cell)) {
        sqlite3_bind_double(stmt, slot, *d);
      } else if (const auto* t = std::get_if<TextValue>(&cell)) {
        const bool dateColumn = !dates.empty() && dates.count(sql::AsciiLower(row.cells[k].first));
        const bool maybeDate = !t->text.empty() && t->text.size() <= 40 && std::isdigit(static_cast<unsigned char>(t->text[0]));
        if (maybeDate) {
          const std::string normal = NormaliseDateText(t->text, dateColumn);
          sqlite3_bind_text(stmt, slot, normal.c_str(), static_cast<int>(normal.size()), SQLITE_TRANSIENT);
        } else {
          sqlite3_bind_text(stmt, slot, t->text.c_str(), static_cast<int>(t->text.size()), SQLITE_STATIC);
        }
      } else if (const auto* v = std::get_if<Variant>(&cell)) {
        if (v->Size() == 0)
          sqlite3_bind_zeroblob(stmt, slot, 0);
        else
          sqlite3_bind_blob64(stmt, slot, v->Data(), v->Size() * sizeof(double), SQLITE_STATIC);
      } else {
        sqlite3_bind_null(stmt, slot);
      }
    }
    const int rc = sqlite3_step(stmt);
    if (rc != SQLITE_DONE) error = sqlite3_errmsg(db_.get());
    sqlite3_reset(stmt);
    sqlite3_clear_bindings(stmt);
    return rc == SQLITE_DONE;
  }

  DbHandle db_;
  Dialect dialect_;
  std::string path_;
  dev_t device_ = 0;
  ino_t inode_ = 0;
  StatementCache cache_;
  std::map<std::string, std::set<std::string>> dateColumns_;
  sqlite3_stmt* lastInsert_ = nullptr;  // valid within one Insert call
  const std::set<std::string>* lastDates_ = nullptr;
};

bool AcceptsSqlite(const ConnectionString& parsed) {
  const std::string provider = sql::AsciiLower(parsed.Get("Provider"));
  return provider.rfind("microsoft.jet.oledb", 0) == 0 || provider == "sqlite";
}

// Journal and sync: WAL lets a session write while another holds a read open,
// and synchronous=FULL syncs the log at every commit, so a committed save
// survives a crash or power loss; a save batch is one commit.
bool Configure(sqlite3* db, bool writable, std::string& error) {
  sqlite3_busy_timeout(db, 5000);
  sqlite3_extended_result_codes(db, 1);
  // Reading the schema proves the file is a database at all.
  if (sqlite3_exec(db, "select count(*) from sqlite_master", nullptr, nullptr, nullptr) != SQLITE_OK) {
    error = sqlite3_errmsg(db);
    return false;
  }
  if (writable) sqlite3_exec(db, "pragma journal_mode=wal", nullptr, nullptr, nullptr);
  sqlite3_exec(db, "pragma synchronous=full; pragma cache_size=-16384; pragma temp_store=memory", nullptr, nullptr,
               nullptr);
  return true;
}

ConnectionPtr OpenSqlite(const ConnectionString& parsed, Dialect dialect, std::string& error) {
  const std::string path = parsed.Get("Data Source");
  if (path.empty()) {
    error = "the connection string names no Data Source";
    return nullptr;
  }
  // An Access-style project must exist already; a plain SQLite database may be created.
  const bool mayCreate = sql::EqualsIgnoreCase(parsed.Get("Provider"), "sqlite");
  // "Mode=Read" (as OLE DB spells it) opens the file read-only.
  const std::string mode = sql::AsciiLower(parsed.Get("Mode"));
  const bool readOnly = mode == "read" || mode == "ro";
  for (bool writable : {true, false}) {
    if (writable && readOnly) continue;
    sqlite3* raw = nullptr;
    int flags = writable ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    if (writable && mayCreate) flags |= SQLITE_OPEN_CREATE;
    const int rc = sqlite3_open_v2(path.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    DbHandle db(raw);
    if (rc == SQLITE_OK && Configure(db.get(), writable, error))
      return std::make_unique<SqliteConnection>(std::move(db), dialect, path);
    if (rc != SQLITE_OK) error = db ? sqlite3_errmsg(db.get()) : "out of memory";
    if (rc == SQLITE_OK) break;  // opened but unreadable: not a database
  }
  error = "cannot open \"" + path + "\": " + error;
  return nullptr;
}

const BackendRegistration kSqlite{BackendEntry{"sqlite", &AcceptsSqlite, &OpenSqlite}};

}  // namespace
}  // namespace petrodb::db
