// The shared server: project databases on PostgreSQL, over libpq.
#include <libpq-fe.h>
#include <poll.h>

#include <bit>
#include <charconv>
#include <cstring>
#include <fstream>
#include <regex>
#include <sstream>
#include <unordered_map>

#include "dbaccess/JetBridge.h"
#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"
#include "dbaccess/postgres/PgBridge.h"
#include "dbaccess/postgres/PgValues.h"

namespace petrodb::db {
namespace {

static_assert(std::endian::native == std::endian::little,
              "double arrays are stored little-endian; add a byte swap for this platform");

struct ConnCloser {
  void operator()(PGconn* c) const { PQfinish(c); }
};
using ConnHandle = std::unique_ptr<PGconn, ConnCloser>;

struct ResultClearer {
  void operator()(PGresult* r) const { PQclear(r); }
};
using ResultHandle = std::unique_ptr<PGresult, ResultClearer>;

// Rows of a bare-table read are fetched through a server cursor in slices, so a
// probe of a big table holds one slice, never the table.
constexpr int kFirstSlice = 64;
constexpr int kNextSlice = 2048;
// Batches at least this long go through COPY; shorter ones through a prepared insert.
constexpr std::size_t kCopyThreshold = 16;
constexpr std::size_t kCopyChunk = 1 << 20;

std::string ErrorText(PGconn* conn, const PGresult* result = nullptr) {
  std::string text = result ? PQresultErrorMessage(result) : "";
  if (text.empty() && conn) text = PQerrorMessage(conn);
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
  return text.empty() ? "the server gave no reason" : text;
}

// Connection parameters from "Provider=PostgreSQL;Host=…;Port=…;Database=…;User ID=…;Password=…",
// or the SQL Server keys "Data Source=host[,port];Initial Catalog=db".
struct ServerParams {
  std::vector<std::pair<std::string, std::string>> values;

  static ServerParams From(const ConnectionString& parsed) {
    ServerParams p;
    auto first = [&](std::initializer_list<const char*> keys) {
      for (const char* k : keys)
        if (parsed.Has(k)) return parsed.Get(k);
      return std::string();
    };
    std::string host = first({"Host", "Server", "Data Source", "Address"});
    std::string port = first({"Port"});
    if (const auto comma = host.find(','); comma != std::string::npos) {
      if (port.empty()) port = host.substr(comma + 1);
      host.erase(comma);
    }
    p.Set("host", host);
    p.Set("port", port);
    p.Set("dbname", first({"Database", "Initial Catalog", "dbname"}));
    p.Set("user", first({"User ID", "User", "Uid", "Username", "User Name"}));
    p.Set("password", first({"Password", "Pwd"}));
    p.Set("sslmode", first({"SSL Mode", "SslMode", "sslmode"}));
    std::string timeout = first({"Timeout", "Connect Timeout", "Connection Timeout"});
    p.Set("connect_timeout", timeout.empty() ? "15" : timeout);
    p.Set("application_name", "petrodb");
    p.Set("client_encoding", "UTF8");
    // Dates the module writes are year first; the server must read them so.
    p.Set("options", "-c DateStyle=ISO,YMD");
    return p;
  }

  void Set(const std::string& key, const std::string& value) {
    for (auto& [k, v] : values)
      if (k == key) {
        v = value;
        return;
      }
    if (!value.empty()) values.emplace_back(key, value);
  }

  ConnHandle Connect(std::string& error) const {
    std::vector<const char*> keys, vals;
    for (const auto& [k, v] : values) {
      keys.push_back(k.c_str());
      vals.push_back(v.c_str());
    }
    keys.push_back(nullptr);
    vals.push_back(nullptr);
    ConnHandle conn(PQconnectdbParams(keys.data(), vals.data(), 0));
    if (!conn || PQstatus(conn.get()) != CONNECTION_OK) {
      error = "cannot connect to the server: " + ErrorText(conn.get());
      return nullptr;
    }
    return conn;
  }
};

// True while nothing has arrived on an idle connection's socket: a server that
// went away (restart, idle timeout) leaves an end of file or an error there.
bool SocketQuiet(PGconn* conn) {
  const int fd = PQsocket(conn);
  if (fd < 0) return false;
  pollfd p{fd, POLLIN, 0};
  const int n = ::poll(&p, 1, 0);
  return n == 0;
}

class PgConnection;

// Rows of one result, read in the binary format.
class PgCursor final : public Cursor {
 public:
  // `probe` is set for a server-cursor read; the connection fetches further slices.
  PgCursor(PgConnection* owner, ResultHandle result, long probe);
  ~PgCursor() override;

  bool OnRow() const override { return row_ < rows_; }
  bool Next() override;
  int ColumnCount() const override { return PQnfields(result_.get()); }
  std::string_view ColumnName(int i) const override {
    const char* name = PQfname(result_.get(), i);
    return name ? name : "";
  }
  CellKind Kind(int i) const override;
  std::int64_t Integer(int i) const override;
  double Real(int i) const override;
  std::string_view Text(int i) const override;
  std::span<const std::byte> Blob(int i) const override {
    return {reinterpret_cast<const std::byte*>(PQgetvalue(result_.get(), row_, i)),
            static_cast<std::size_t>(PQgetlength(result_.get(), row_, i))};
  }

 private:
  void Adopt(ResultHandle result);
  const char* Value(int i) const { return PQgetvalue(result_.get(), row_, i); }
  int Length(int i) const { return PQgetlength(result_.get(), row_, i); }

  PgConnection* owner_;
  ResultHandle result_;
  int rows_ = 0;
  int row_ = 0;
  long probe_;  // the server cursor's token; 0 for a plain result
  int slice_ = kFirstSlice;  // rows asked for in the current slice
  std::vector<unsigned> types_;
  mutable std::vector<std::string> scratch_;
};

class PgConnection final : public Connection {
 public:
  PgConnection(ConnHandle conn, ServerParams params, Dialect dialect)
      : conn_(std::move(conn)), params_(std::move(params)), dialect_(dialect) {
    LookUpCitext();
  }

  Dialect GetDialect() const override { return dialect_; }

  bool Healthy() override {
    EndProbe();
    if (!conn_ || PQstatus(conn_.get()) != CONNECTION_OK) return false;
    if (PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) {
      // A transaction left open by a failed save is rolled back, not reused.
      ResultHandle r(PQexec(conn_.get(), "rollback"));
      if (PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) return false;
    }
    return SocketQuiet(conn_.get());
  }

  std::string Rewrite(const std::string& statement) const override {
    // Access texts are not rewritten here: they fail as they would on a server.
    return pg::RewriteServerForPostgres(statement);
  }

  std::unique_ptr<Cursor> Query(const std::string& statement, std::string& error) override {
    EndProbe();
    if (!Live(error)) return nullptr;
    if (std::string table; IsWholeTableRead(statement, table)) return OpenProbe(table, error);
    for (int attempt = 0;; ++attempt) {
      ResultHandle r(PQexecParams(conn_.get(), statement.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 1));
      const auto status = PQresultStatus(r.get());
      if (status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK)
        return std::make_unique<PgCursor>(this, std::move(r), 0);
      // A read that met a dropped connection is run again on a new one.
      if (attempt == 0 && PQstatus(conn_.get()) == CONNECTION_BAD && Reconnect(error)) continue;
      error = ErrorText(conn_.get(), r.get());
      return nullptr;
    }
  }

  bool Execute(const std::string& statement, std::string& error) override {
    EndProbe();
    if (!Live(error)) return false;
    if (pg::RestorePlan plan; pg::ParseRestore(statement, plan)) return Restore(plan, error);
    ResultHandle r(PQexecParams(conn_.get(), statement.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0));
    const auto status = PQresultStatus(r.get());
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK) return true;
    error = ErrorText(conn_.get(), r.get());
    return false;
  }

  bool TableExists(const std::string& table) override {
    EndProbe();
    std::string error;
    if (!Live(error)) return false;
    const char* values[] = {table.c_str()};
    ResultHandle r(PQexecParams(conn_.get(), "select to_regclass($1) is not null", 1, nullptr, values, nullptr,
                                nullptr, 0));
    return PQresultStatus(r.get()) == PGRES_TUPLES_OK && PQntuples(r.get()) == 1 &&
           PQgetvalue(r.get(), 0, 0)[0] == 't';
  }

  bool Insert(const std::vector<PendingRow>& rows, std::string& error) override {
    EndProbe();
    if (!Live(error)) return false;
    if (!Simple("begin", error)) return false;
    for (std::size_t i = 0; i < rows.size();) {
      std::size_t j = i + 1;
      while (j < rows.size() && SameShape(rows[i], rows[j])) ++j;
      const bool ok = (j - i >= kCopyThreshold && !rows[i].cells.empty()) ? Copy(rows, i, j, error)
                                                                           : InsertEach(rows, i, j, error);
      if (!ok) {
        std::string ignored;
        Simple("rollback", ignored);
        return false;
      }
      i = j;
    }
    if (!Simple("commit", error)) {
      std::string ignored;
      Simple("rollback", ignored);
      return false;
    }
    return true;
  }

  // Server cursor support for PgCursor.
  bool ProbeOpen(long token) const { return probe_ == token; }
  ResultHandle FetchSlice() {
    static const std::string text = "fetch " + std::to_string(kNextSlice) + " from petrodb_rows";
    return ResultHandle(PQexec(conn_.get(), text.c_str()));
  }
  void EndProbe() {
    if (!probe_) return;
    probe_ = 0;
    if (PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) ResultHandle(PQexec(conn_.get(), "commit"));
  }
  unsigned CitextOid() const { return citext_; }

 private:
  static bool SameShape(const PendingRow& a, const PendingRow& b) {
    if (a.table != b.table || a.cells.size() != b.cells.size()) return false;
    for (std::size_t k = 0; k < a.cells.size(); ++k)
      if (a.cells[k].first != b.cells[k].first) return false;
    return true;
  }

  static bool IsWholeTableRead(const std::string& statement, std::string& table) {
    static constexpr std::string_view kPrefix = "select * from ";
    if (statement.size() <= kPrefix.size() || statement.compare(0, kPrefix.size(), kPrefix) != 0) return false;
    table = statement.substr(kPrefix.size());
    const unsigned char first = static_cast<unsigned char>(table[0]);
    if (!(std::isalpha(first) || first == '_' || first >= 0x80)) return false;
    for (unsigned char c : table)
      if (!(std::isalnum(c) || c == '_' || c == '.' || c == '$' || c >= 0x80)) return false;
    return true;
  }

  // Checks the connection before a statement: one that the server dropped while
  // it lay idle is replaced, so the statement never meets a dead connection.
  bool Live(std::string& error) {
    if (PQstatus(conn_.get()) == CONNECTION_OK && PQtransactionStatus(conn_.get()) == PQTRANS_IDLE &&
        SocketQuiet(conn_.get()))
      return true;
    if (PQstatus(conn_.get()) == CONNECTION_OK && PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) return true;
    return Reconnect(error);
  }

  bool Reconnect(std::string& error) {
    ConnHandle fresh = params_.Connect(error);
    if (!fresh) return false;
    conn_ = std::move(fresh);
    prepared_.clear();
    probe_ = 0;
    return true;
  }

  bool Simple(const char* text, std::string& error) {
    ResultHandle r(PQexec(conn_.get(), text));
    if (PQresultStatus(r.get()) == PGRES_COMMAND_OK) return true;
    error = ErrorText(conn_.get(), r.get());
    return false;
  }

  std::unique_ptr<Cursor> OpenProbe(const std::string& table, std::string& error) {
    const std::string text = "begin; declare petrodb_rows binary no scroll cursor for select * from " + table +
                             "; fetch " + std::to_string(kFirstSlice) + " from petrodb_rows";
    ResultHandle r(PQexec(conn_.get(), text.c_str()));
    if (PQresultStatus(r.get()) != PGRES_TUPLES_OK) {
      error = ErrorText(conn_.get(), r.get());
      if (PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) ResultHandle(PQexec(conn_.get(), "rollback"));
      return nullptr;
    }
    probe_ = ++probeCounter_;
    return std::make_unique<PgCursor>(this, std::move(r), probe_);
  }

  void LookUpCitext() {
    ResultHandle r(PQexec(conn_.get(), "select oid from pg_catalog.pg_type where typname = 'citext' limit 1"));
    if (PQresultStatus(r.get()) == PGRES_TUPLES_OK && PQntuples(r.get()) == 1)
      citext_ = static_cast<unsigned>(std::strtoul(PQgetvalue(r.get(), 0, 0), nullptr, 10));
  }

  static std::string InsertText(const PendingRow& row) {
    if (row.cells.empty()) return "insert into " + row.table + " default values";
    std::string text = "insert into " + row.table + " (";
    std::string marks;
    for (std::size_t k = 0; k < row.cells.size(); ++k) {
      text += (k ? ", " : "") + pg::ColumnIdentifier(row.cells[k].first);
      marks += (k ? ", $" : "$") + std::to_string(k + 1);
    }
    return text + ") values (" + marks + ")";
  }

  static std::string CellText(const PendingRow& row, std::size_t k) {
    const Cell& cell = row.cells[k].second;
    if (const auto* i = std::get_if<std::int64_t>(&cell)) return std::to_string(*i);
    if (const auto* d = std::get_if<double>(&cell)) return pg::DoubleText(*d);
    if (const auto* t = std::get_if<TextValue>(&cell)) return MaybeDate(t->text) ? NormaliseDateText(t->text, false) : t->text;
    return {};
  }

  // Texts in the module's date form are stored padded, as the file backend does.
  static bool MaybeDate(const std::string& text) {
    return text.size() >= 11 && text.size() <= 40 && std::isdigit(static_cast<unsigned char>(text[0])) &&
           text.find(':') != std::string::npos;
  }

  // Rows one by one through a statement prepared once per connection; arrays
  // travel as binary parameters.
  bool InsertEach(const std::vector<PendingRow>& rows, std::size_t from, std::size_t to, std::string& error) {
    const std::string text = InsertText(rows[from]);
    const std::size_t n = rows[from].cells.size();
    std::string& name = prepared_[text];
    if (name.empty()) {
      const std::string candidate = "petrodb_" + std::to_string(++preparedCounter_);
      ResultHandle r(PQprepare(conn_.get(), candidate.c_str(), text.c_str(), static_cast<int>(n), nullptr));
      if (PQresultStatus(r.get()) != PGRES_COMMAND_OK) {
        error = ErrorText(conn_.get(), r.get());
        prepared_.erase(text);
        return false;
      }
      name = candidate;
    }
    std::vector<std::string> texts(n);
    std::vector<const char*> values(n);
    std::vector<int> lengths(n), formats(n);
    for (std::size_t i = from; i < to; ++i) {
      const PendingRow& row = rows[i];
      for (std::size_t k = 0; k < n; ++k) {
        const Cell& cell = row.cells[k].second;
        formats[k] = 0;
        lengths[k] = 0;
        if (std::holds_alternative<std::monostate>(cell)) {
          values[k] = nullptr;
        } else if (const auto* v = std::get_if<Variant>(&cell)) {
          static const char kEmpty = 0;
          values[k] = v->Size() ? reinterpret_cast<const char*>(v->Data()) : &kEmpty;
          lengths[k] = static_cast<int>(v->Size() * sizeof(double));
          formats[k] = 1;
        } else {
          texts[k] = CellText(row, k);
          values[k] = texts[k].c_str();
        }
      }
      ResultHandle r(PQexecPrepared(conn_.get(), name.c_str(), static_cast<int>(n), values.data(), lengths.data(),
                                    formats.data(), 0));
      if (PQresultStatus(r.get()) != PGRES_COMMAND_OK) {
        error = ErrorText(conn_.get(), r.get());
        return false;
      }
    }
    return true;
  }

  // A long run of rows with the same columns through COPY, in text format.
  bool Copy(const std::vector<PendingRow>& rows, std::size_t from, std::size_t to, std::string& error) {
    const PendingRow& first = rows[from];
    std::string text = "copy " + first.table + " (";
    for (std::size_t k = 0; k < first.cells.size(); ++k) text += (k ? ", " : "") + pg::ColumnIdentifier(first.cells[k].first);
    text += ") from stdin";
    ResultHandle start(PQexec(conn_.get(), text.c_str()));
    if (PQresultStatus(start.get()) != PGRES_COPY_IN) {
      error = ErrorText(conn_.get(), start.get());
      return false;
    }
    std::string buffer;
    buffer.reserve(kCopyChunk + 4096);
    bool sent = true;
    for (std::size_t i = from; i < to && sent; ++i) {
      const PendingRow& row = rows[i];
      for (std::size_t k = 0; k < row.cells.size(); ++k) {
        if (k) buffer += '\t';
        const Cell& cell = row.cells[k].second;
        if (std::holds_alternative<std::monostate>(cell)) {
          buffer += "\\N";
        } else if (const auto* v = std::get_if<Variant>(&cell)) {
          pg::AppendCopyBytea(buffer, v->Data(), v->Size() * sizeof(double));
        } else if (const auto* t = std::get_if<TextValue>(&cell)) {
          if (MaybeDate(t->text))
            pg::AppendCopyText(buffer, NormaliseDateText(t->text, false));
          else
            pg::AppendCopyText(buffer, t->text);
        } else if (const auto* d = std::get_if<double>(&cell)) {
          pg::AppendDouble(buffer, *d);
        } else if (const auto* n = std::get_if<std::int64_t>(&cell)) {
          char digits[24];
          buffer.append(digits, std::to_chars(digits, digits + sizeof digits, *n).ptr);
        }
      }
      buffer += '\n';
      if (buffer.size() >= kCopyChunk) {
        sent = PQputCopyData(conn_.get(), buffer.data(), static_cast<int>(buffer.size())) == 1;
        buffer.clear();
      }
    }
    if (sent && !buffer.empty())
      sent = PQputCopyData(conn_.get(), buffer.data(), static_cast<int>(buffer.size())) == 1;
    sent = PQputCopyEnd(conn_.get(), sent ? nullptr : "the rows could not be sent") == 1 && sent;
    bool ok = sent;
    while (PGresult* raw = PQgetResult(conn_.get())) {
      ResultHandle r(raw);
      if (PQresultStatus(raw) != PGRES_COMMAND_OK) {
        if (ok) error = ErrorText(conn_.get(), raw);
        ok = false;
      }
    }
    if (!sent && error.empty()) error = ErrorText(conn_.get());
    return ok;
  }

  // "RESTORE DATABASE": a new database on this server, loaded from the backup
  // script in one transaction; a database whose load fails is dropped again.
  bool Restore(const pg::RestorePlan& plan, std::string& error) {
    std::ifstream in(plan.backup, std::ios::binary);
    if (!in) {
      error = "cannot read the backup \"" + plan.backup + "\"";
      return false;
    }
    std::stringstream script;
    script << in.rdbuf();
    const std::string create = "create database " + plan.database;
    if (!Simple(create.c_str(), error)) return false;
    ServerParams target = params_;
    target.Set("dbname", plan.database);
    bool loaded = false;
    if (ConnHandle conn = target.Connect(error)) {
      ResultHandle r(PQexec(conn.get(), ("begin;\n" + script.str() + "\ncommit;").c_str()));
      loaded = PQresultStatus(r.get()) == PGRES_COMMAND_OK && PQtransactionStatus(conn.get()) == PQTRANS_IDLE;
      if (!loaded) error = "cannot load \"" + plan.backup + "\": " + ErrorText(conn.get(), r.get());
    }
    if (!loaded) {
      std::string ignored;
      Simple(("drop database if exists " + plan.database).c_str(), ignored);
    }
    return loaded;
  }

  ConnHandle conn_;
  ServerParams params_;
  Dialect dialect_;
  unsigned citext_ = 0;
  long probe_ = 0;
  long probeCounter_ = 0;
  std::unordered_map<std::string, std::string> prepared_;
  long preparedCounter_ = 0;
};

PgCursor::PgCursor(PgConnection* owner, ResultHandle result, long probe) : owner_(owner), probe_(probe) {
  Adopt(std::move(result));
}

PgCursor::~PgCursor() {
  if (probe_ && owner_->ProbeOpen(probe_)) owner_->EndProbe();
}

void PgCursor::Adopt(ResultHandle result) {
  result_ = std::move(result);
  rows_ = PQresultStatus(result_.get()) == PGRES_TUPLES_OK ? PQntuples(result_.get()) : 0;
  row_ = 0;
  const int n = PQnfields(result_.get());
  types_.resize(n);
  for (int i = 0; i < n; ++i) {
    types_[i] = PQftype(result_.get(), i);
    if (types_[i] == owner_->CitextOid()) types_[i] = pg::kText;
  }
  scratch_.assign(n, std::string());
  // The last slice of a server cursor ends its transaction at once.
  if (probe_ && rows_ == 0 && owner_->ProbeOpen(probe_)) owner_->EndProbe();
}

bool PgCursor::Next() {
  if (row_ >= rows_) return false;
  if (++row_ < rows_) return true;
  if (!probe_ || !owner_->ProbeOpen(probe_) || rows_ < slice_) {
    if (probe_ && owner_->ProbeOpen(probe_)) owner_->EndProbe();
    return false;
  }
  ResultHandle slice = owner_->FetchSlice();
  if (PQresultStatus(slice.get()) != PGRES_TUPLES_OK) {
    owner_->EndProbe();
    return false;
  }
  slice_ = kNextSlice;
  Adopt(std::move(slice));
  return row_ < rows_;
}

CellKind PgCursor::Kind(int i) const {
  if (PQgetisnull(result_.get(), row_, i)) return CellKind::Null;
  switch (types_[i]) {
    case pg::kBool:
    case pg::kInt2:
    case pg::kInt4:
    case pg::kInt8:
    case pg::kOid: return CellKind::Integer;
    case pg::kFloat4:
    case pg::kFloat8: return CellKind::Real;
    case pg::kBytea: return CellKind::Blob;
    default: return CellKind::Text;
  }
}

std::int64_t PgCursor::Integer(int i) const {
  switch (types_[i]) {
    case pg::kBool: return Value(i)[0] != 0;
    case pg::kInt2: return pg::ReadBigEndian(Value(i), 2);
    case pg::kInt4: return pg::ReadBigEndian(Value(i), 4);
    case pg::kOid: return static_cast<std::uint32_t>(pg::ReadBigEndian(Value(i), 4));
    case pg::kInt8: return pg::ReadBigEndian(Value(i), 8);
    default: return static_cast<std::int64_t>(Real(i));
  }
}

double PgCursor::Real(int i) const {
  switch (types_[i]) {
    case pg::kFloat4: return pg::ReadFloat4(Value(i));
    case pg::kFloat8: return pg::ReadFloat8(Value(i));
    default: return static_cast<double>(Integer(i));
  }
}

std::string_view PgCursor::Text(int i) const {
  switch (types_[i]) {
    case pg::kTimestamp:
    case pg::kTimestampTz: return scratch_[i] = pg::TimestampText(pg::ReadBigEndian(Value(i), 8));
    case pg::kDate: return scratch_[i] = pg::DateText(static_cast<std::int32_t>(pg::ReadBigEndian(Value(i), 4)));
    case pg::kTime: return scratch_[i] = pg::TimeText(pg::ReadBigEndian(Value(i), 8));
    case pg::kNumeric: return scratch_[i] = pg::NumericText(Value(i), Length(i));
    case pg::kChar: return std::string_view(Value(i), Length(i));
    default: return std::string_view(Value(i), static_cast<std::size_t>(Length(i)));
  }
}

bool AcceptsPostgres(const ConnectionString& parsed) {
  const std::string provider = sql::AsciiLower(parsed.Get("Provider"));
  return provider == "postgresql" || provider == "postgres" || provider == "pgsql" || provider == "npgsql";
}

ConnectionPtr OpenPostgres(const ConnectionString& parsed, Dialect dialect, std::string& error) {
  ServerParams params = ServerParams::From(parsed);
  ConnHandle conn = params.Connect(error);
  if (!conn) return nullptr;
  return std::make_unique<PgConnection>(std::move(conn), std::move(params), dialect);
}

const BackendRegistration kPostgres{BackendEntry{"postgresql", &AcceptsPostgres, &OpenPostgres}};

}  // namespace
}  // namespace petrodb::db
