// The embedded engine: project files are SQLite databases.
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cerrno>
#include <chrono>
#include <cstdio>
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

// How long a pooled connection's file counts as checked (see Healthy).
constexpr std::chrono::milliseconds kIdentityStep{1};

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

// The engine's error in words a person can act on, naming the file.
std::string Explain(int code, const std::string& engine, const std::string& path) {
  switch (code & 0xff) {
    case SQLITE_FULL: return "disk full: " + path + " (" + engine + ")";
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return "database is locked by another process: " + path;
    case SQLITE_NOTADB: return "not a project file: " + path;
    case SQLITE_CORRUPT: return "the project file is damaged: " + path + " (" + engine + ")";
    case SQLITE_READONLY: return "the project is read-only: " + path + " (" + engine + ")";
    case SQLITE_CANTOPEN: return "cannot open " + path + " (" + engine + ")";
    case SQLITE_IOERR: return "cannot read or write " + path + " (" + engine + ")";
    case SQLITE_PERM:
    case SQLITE_AUTH: return "permission denied: " + path + " (" + engine + ")";
    default: return engine + " (" + path + ")";
  }
}

// The engine's code, or a full disk whatever code the engine made of it (an
// index of the write-ahead log that cannot be made, for one).
int ErrorCode(sqlite3* db) {
  const int code = sqlite3_extended_errcode(db);
  return code != SQLITE_OK && sqlite3_system_errno(db) == ENOSPC ? SQLITE_FULL : code;
}

std::string Explain(sqlite3* db, const std::string& path) { return Explain(ErrorCode(db), sqlite3_errmsg(db), path); }

class SqliteCursor final : public Cursor {
 public:
  SqliteCursor(sqlite3_stmt* stmt, StmtHandle owned, bool onRow, const std::string* path)
      : stmt_(stmt), owned_(std::move(owned)), onRow_(onRow), path_(path) {}
  ~SqliteCursor() override {
    if (!owned_) {
      sqlite3_reset(stmt_);  // back to the cache, ending the read
      sqlite3_clear_bindings(stmt_);
    }
  }
  bool OnRow() const override { return onRow_; }
  bool Next() override {
    if (!onRow_) return false;
    const int rc = sqlite3_step(stmt_);
    onRow_ = rc == SQLITE_ROW;
    if (rc != SQLITE_ROW && rc != SQLITE_DONE) error_ = Explain(sqlite3_db_handle(stmt_), *path_);
    return onRow_;
  }
  std::string Error() const override { return error_; }
  int ColumnCount() const override {
    if (count_ < 0) count_ = sqlite3_column_count(stmt_);
    return count_;
  }
  // Names are looked up for every field read; they stay put while the statement
  // lives. Those of the first columns are kept in place, without an allocation.
  std::string_view ColumnName(int i) const override {
    if (i < 0 || i >= ColumnCount()) return {};
    std::string_view& name = i < kNamesInPlace ? firstNames_[i] : LaterName(i);
    if (!name.data()) {
      const char* text = sqlite3_column_name(stmt_, i);
      name = text ? std::string_view(text) : std::string_view("", 0);
    }
    return name;
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
  // The same values as the calls above, each field looked up once.
  void Fetch(const int* columns, std::size_t count, FieldCell* out) const override {
    for (std::size_t k = 0; k < count; ++k) {
      FieldCell& cell = out[k];
      if (columns[k] < 0) {
        cell.kind = CellKind::Null;
        continue;
      }
      sqlite3_value* v = sqlite3_column_value(stmt_, columns[k]);
      switch (sqlite3_value_type(v)) {
        case SQLITE_INTEGER:
          cell.kind = CellKind::Integer;
          cell.integer = sqlite3_value_int64(v);
          break;
        case SQLITE_FLOAT:
          cell.kind = CellKind::Real;
          cell.real = sqlite3_value_double(v);
          break;
        case SQLITE_TEXT: {
          const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(v));
          cell.kind = CellKind::Text;
          cell.data = text;
          cell.size = text ? static_cast<std::size_t>(sqlite3_value_bytes(v)) : 0;
          break;
        }
        case SQLITE_BLOB: {
          const void* data = sqlite3_value_blob(v);
          cell.kind = CellKind::Blob;
          cell.data = static_cast<const char*>(data);
          cell.size = data ? static_cast<std::size_t>(sqlite3_value_bytes(v)) : 0;
          break;
        }
        default: cell.kind = CellKind::Null;
      }
    }
  }

 private:
  sqlite3_stmt* stmt_;
  StmtHandle owned_;  // set when the cached statement was busy
  bool onRow_;
  const std::string* path_;
  std::string error_;
  static constexpr int kNamesInPlace = 24;
  mutable int count_ = -1;
  mutable std::array<std::string_view, kNamesInPlace> firstNames_{};
  mutable std::vector<std::string_view> laterNames_;

  std::string_view& LaterName(int i) const {
    if (laterNames_.empty()) laterNames_.resize(count_ - kNamesInPlace);
    return laterNames_[i - kNamesInPlace];
  }
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
  std::string Where() const override { return path_; }

  // The file must still be the one opened: a project replaced or removed under a
  // pooled connection is reopened, not read through a stale handle. Looking the
  // path up costs a system call, as much as the statement itself; a connection
  // taken again within kIdentityStep of the last look is not looked at again, so
  // back-to-back operations pay for one look per step, not one each.
  bool Healthy() override {
    if (!db_) return false;
    if (!sqlite3_get_autocommit(db_.get())) Rollback();  // never hand out an open transaction
    const auto now = std::chrono::steady_clock::now();
    if (now - checked_ < kIdentityStep) return true;
    struct stat st{};
    if (::stat(path_.c_str(), &st) != 0 || st.st_dev != device_ || st.st_ino != inode_) return false;
    checked_ = now;
    return true;
  }

  // Date columns hold ISO text: literals given to them are padded as stored.
  // The rewrite depends on the text alone: operations repeat their texts, so the
  // results are kept (a bounded number of them).
  const std::string& Rewrite(const std::string& statement) const override {
    if (const auto it = rewritten_.find(statement); it != rewritten_.end()) return it->second;
    std::string sent = dialect_ == Dialect::Jet ? RewriteJetForSqlite(statement) : NormaliseDateLiterals(statement);
    if (rewritten_.size() >= 256) rewritten_.clear();
    return rewritten_.emplace(statement, std::move(sent)).first->second;
  }

  std::unique_ptr<Cursor> Query(const std::string& statement, std::string& error, bool = false) override {
    StmtHandle owned;
    sqlite3_stmt* stmt = Prepare(statement, owned, error);
    if (!stmt) return nullptr;
    const int rc = sqlite3_step(stmt);
    if (rc != SQLITE_ROW && rc != SQLITE_DONE) {
      error = Explain(db_.get(), path_);
      sqlite3_reset(stmt);
      return nullptr;
    }
    return std::make_unique<SqliteCursor>(stmt, std::move(owned), rc == SQLITE_ROW, &path_);
  }

  bool Execute(const std::string& statement, std::string& error) override {
    StmtHandle owned;
    sqlite3_stmt* stmt = Prepare(statement, owned, error);
    if (!stmt) return false;
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE) error = Explain(db_.get(), path_);
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

  bool Insert(const PendingRows& rows, std::vector<std::string>& ran, std::string& error) override {
    const bool own = !InTransaction();
    if (own && !Begin(error)) return false;
    bool ok = true;
    for (std::size_t i = 0; i < rows.size() && ok;) {
      const std::size_t end = rows.RunEnd(i);
      ran.push_back(InsertText(rows.Shape(i)));
      ok = InsertRun(rows, i, end, ran.back(), error);
      i = end;
    }
    if (!ok) {
      if (own) Rollback();
      return false;
    }
    return !own || Commit(error);
  }

  bool Begin(std::string& error) override {
    if (sqlite3_exec(db_.get(), "begin immediate", nullptr, nullptr, nullptr) != SQLITE_OK) {
      error = Explain(db_.get(), path_);
      return false;
    }
    began_ = true;
    return true;
  }

  bool Commit(std::string& error) override {
    if (!InTransaction()) {
      began_ = false;
      error = "the transaction was ended by an earlier error (" + path_ + ")";
      return false;
    }
    if (sqlite3_exec(db_.get(), "commit", nullptr, nullptr, nullptr) != SQLITE_OK) {
      error = Explain(db_.get(), path_);
      Rollback();
      return false;
    }
    began_ = false;
    return true;
  }

  void Rollback() override {
    if (!sqlite3_get_autocommit(db_.get())) sqlite3_exec(db_.get(), "rollback", nullptr, nullptr, nullptr);
    began_ = false;
  }

  // An error such as a full disk may end the transaction by itself.
  bool InTransaction() const override { return began_ && !sqlite3_get_autocommit(db_.get()); }

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
      error = rc != SQLITE_OK ? Explain(db_.get(), path_) : "empty statement";
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

  // A run of rows of one shape through one prepared insert, every parameter
  // bound by its position.
  bool InsertRun(const PendingRows& rows, std::size_t from, std::size_t to, const std::string& text,
                 std::string& error) {
    const RowShape& shape = rows.Shape(from);
    if (shape.columns.empty()) {
      for (std::size_t i = from; i < to; ++i)
        if (!Execute(text, error)) return false;
      return true;
    }
    StmtHandle owned;
    sqlite3_stmt* stmt = Prepare(text, owned, error);
    if (!stmt) return false;
    // Only a date column's text is put in the stored form; other text is kept byte for byte.
    const auto& dates = DateColumns(shape.table);
    std::vector<char> isDate(shape.columns.size(), 0);
    if (!dates.empty())
      for (std::size_t k = 0; k < isDate.size(); ++k) isDate[k] = dates.count(sql::AsciiLower(shape.columns[k])) != 0;
    bool ok = true;
    for (std::size_t i = from; i < to && ok; ++i) {
      const auto cells = rows.Cells(i);
      for (std::size_t k = 0; k < cells.size(); ++k) {
        const int slot = static_cast<int>(k) + 1;
        const PendingCell& cell = cells[k];
        switch (cell.kind) {
          case CellKind::Integer: sqlite3_bind_int64(stmt, slot, cell.integer); break;
          case CellKind::Real: sqlite3_bind_double(stmt, slot, cell.real); break;
          case CellKind::Text: {
            const std::string_view t = rows.Text(cell);
            if (isDate[k]) {
              const std::string normal = NormaliseDateText(std::string(t), true);
              sqlite3_bind_text(stmt, slot, normal.data(), static_cast<int>(normal.size()), SQLITE_TRANSIENT);
            } else {
              sqlite3_bind_text64(stmt, slot, t.data(), t.size(), SQLITE_STATIC, SQLITE_UTF8);
            }
            break;
          }
          case CellKind::Blob: {
            const Variant& v = rows.Array(cell);
            if (v.Size() == 0)
              sqlite3_bind_zeroblob(stmt, slot, 0);
            else
              sqlite3_bind_blob64(stmt, slot, v.Data(), v.Size() * sizeof(double), SQLITE_STATIC);
            break;
          }
          case CellKind::Null: sqlite3_bind_null(stmt, slot); break;
        }
      }
      // Every parameter is bound again for each row: no need to clear them.
      const int rc = sqlite3_step(stmt);
      if (rc != SQLITE_DONE) {
        error = Explain(db_.get(), path_);
        ok = false;
      }
      sqlite3_reset(stmt);
    }
    // A cached insert keeps no values that point into rows about to go.
    sqlite3_clear_bindings(stmt);
    return ok;
  }

  DbHandle db_;
  Dialect dialect_;
  std::string path_;
  dev_t device_ = 0;
  ino_t inode_ = 0;
  std::chrono::steady_clock::time_point checked_ = std::chrono::steady_clock::now();  // identity last confirmed
  StatementCache cache_;
  mutable std::unordered_map<std::string, std::string> rewritten_;
  std::map<std::string, std::set<std::string>> dateColumns_;
  bool began_ = false;
};

bool AcceptsSqlite(const ConnectionString& parsed) {
  const std::string provider = sql::AsciiLower(parsed.Get("Provider"));
  return provider.rfind("microsoft.jet.oledb", 0) == 0 || provider == "sqlite";
}

// to_date(text, format), as the server has it: the text read by a format of
// the fields YYYY, MM, DD, HH24 (or HH), MI and SS, every other character of
// the format standing for itself; the result is the ISO text date columns hold
// ("YYYY-MM-DD HH:MM:SS"), or NULL when the text does not fit the format.
void ToDate(sqlite3_context* context, int, sqlite3_value** args) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(args[0]));
  const auto* format = reinterpret_cast<const char*>(sqlite3_value_text(args[1]));
  if (!text || !format) return sqlite3_result_null(context);
  int fields[6] = {0, 1, 1, 0, 0, 0};  // year, month, day, hour, minute, second
  static constexpr struct { const char* token; int field, digits; } kTokens[] = {
      {"YYYY", 0, 4}, {"HH24", 3, 2}, {"MM", 1, 2}, {"DD", 2, 2}, {"HH", 3, 2}, {"MI", 4, 2}, {"SS", 5, 2}};
  const char* t = text;
  for (const char* f = format; *f;) {
    bool matched = false;
    for (const auto& k : kTokens) {
      const std::size_t n = std::strlen(k.token);
      if (sqlite3_strnicmp(f, k.token, static_cast<int>(n)) != 0) continue;
      int value = 0, digits = 0;
      while (digits < k.digits && *t >= '0' && *t <= '9') value = value * 10 + (*t++ - '0'), ++digits;
      if (digits == 0) return sqlite3_result_null(context);
      fields[k.field] = value;
      f += n;
      matched = true;
      break;
    }
    if (matched) continue;
    if (*t != *f) return sqlite3_result_null(context);
    ++t, ++f;
  }
  while (*t == ' ') ++t;
  if (*t || fields[1] < 1 || fields[1] > 12 || fields[2] < 1 || fields[2] > 31 || fields[3] > 23 || fields[4] > 59 ||
      fields[5] > 59)
    return sqlite3_result_null(context);
  char out[64];
  std::snprintf(out, sizeof out, "%04d-%02d-%02d %02d:%02d:%02d", fields[0], fields[1], fields[2], fields[3], fields[4],
                fields[5]);
  sqlite3_result_text(context, out, -1, SQLITE_TRANSIENT);
}

// Journal and sync: WAL lets a session write while another holds a read open,
// and synchronous=FULL syncs the log at every commit, so a committed save
// survives a crash or power loss; a save batch is one commit.
bool Configure(sqlite3* db, bool writable, const std::string& path, std::string& error) {
  sqlite3_busy_timeout(db, 5000);
  sqlite3_extended_result_codes(db, 1);
  sqlite3_create_function_v2(db, "to_date", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, &ToDate, nullptr, nullptr,
                             nullptr);
  // Reading the schema proves the file is a database at all.
  if (sqlite3_exec(db, "select count(*) from sqlite_master", nullptr, nullptr, nullptr) != SQLITE_OK) {
    error = Explain(db, path);
    return false;
  }
  if (writable && !sqlite3_db_readonly(db, "main"))
    sqlite3_exec(db, "pragma journal_mode=wal", nullptr, nullptr, nullptr);
  sqlite3_exec(db, "pragma synchronous=full; pragma cache_size=-16384; pragma temp_store=memory", nullptr, nullptr,
               nullptr);
  return true;
}

// A file that exists is opened only when it begins as a database does: an empty
// file or any other file is never turned into one.
bool LooksLikeDatabase(const std::string& path, std::string& error) {
  struct stat st{};
  if (::stat(path.c_str(), &st) != 0) return true;  // missing: the open reports it
  if (S_ISDIR(st.st_mode)) {
    error = "not a project file: " + path + " (a directory)";
    return false;
  }
  if (S_ISREG(st.st_mode) && st.st_size == 0) {
    error = "not a project file: " + path + " (the file is empty)";
    return false;
  }
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return true;  // unreadable: the open reports why
  char header[16] = {};
  const ssize_t n = ::read(fd, header, sizeof header);
  ::close(fd);
  if (n != static_cast<ssize_t>(sizeof header) || std::memcmp(header, "SQLite format 3", 16) != 0) {
    error = "not a project file: " + path;
    return false;
  }
  return true;
}

std::string FileUri(const std::string& path, const char* parameters) {
  std::string uri = "file:";
  for (unsigned char c : path) {
    if (std::isalnum(c) || std::strchr("/-_.~", c)) {
      uri += static_cast<char>(c);
    } else {
      char hex[4];
      std::snprintf(hex, sizeof hex, "%%%02X", c);
      uri += hex;
    }
  }
  return uri + "?" + parameters;
}

ConnectionPtr OpenSqlite(const ConnectionString& parsed, Dialect dialect, std::string& error) {
  const std::string path = parsed.Get("Data Source");
  if (path.empty()) {
    error = "the connection string names no Data Source";
    return nullptr;
  }
  if (!LooksLikeDatabase(path, error)) return nullptr;
  // An Access-style project must exist already; a plain SQLite database may be created.
  const bool mayCreate = sql::EqualsIgnoreCase(parsed.Get("Provider"), "sqlite");
  // "Mode=Read" (as OLE DB spells it) opens the file read-only.
  const std::string mode = sql::AsciiLower(parsed.Get("Mode"));
  const bool readOnly = mode == "read" || mode == "ro";
  // Read-write first; then read-only; then, for read-only media where not even
  // the write-ahead log's index can be made, as an immutable file.
  enum Attempt { ReadWrite, ReadOnly, Immutable };
  std::string firstError;
  for (Attempt attempt : {ReadWrite, ReadOnly, Immutable}) {
    if (attempt == ReadWrite && readOnly) continue;
    sqlite3* raw = nullptr;
    int flags = attempt == ReadWrite ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    if (attempt == ReadWrite && mayCreate) flags |= SQLITE_OPEN_CREATE;
    const std::string name = attempt == Immutable ? FileUri(path, "immutable=1") : path;
    if (attempt == Immutable) flags |= SQLITE_OPEN_URI;
    const int rc = sqlite3_open_v2(name.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    DbHandle db(raw);
    std::string reason;
    if (rc == SQLITE_OK && Configure(db.get(), attempt == ReadWrite, path, reason))
      return std::make_unique<SqliteConnection>(std::move(db), dialect, path);
    if (rc != SQLITE_OK) reason = db ? Explain(db.get(), path) : "out of memory";
    if (firstError.empty()) firstError = reason;
    // A file that is no database, or a damaged one, is not tried again.
    const int code = db ? ErrorCode(db.get()) & 0xff : SQLITE_NOMEM;
    if (code == SQLITE_NOTADB || code == SQLITE_CORRUPT || code == SQLITE_NOMEM || code == SQLITE_FULL) break;
    // A missing file stays missing read-only.
    struct stat st{};
    if (::stat(path.c_str(), &st) != 0) break;
  }
  error = firstError;
  return nullptr;
}

const BackendRegistration kSqlite{BackendEntry{"sqlite", &AcceptsSqlite, &OpenSqlite}};

}  // namespace
}  // namespace petrodb::db
