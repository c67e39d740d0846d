// The shared server: project databases on PostgreSQL, over libpq.
#include <libpq-fe.h>
#include <poll.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <mutex>
#include <optional>
#include <sstream>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "dbaccess/JetBridge.h"
#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"
#include "dbaccess/postgres/PgBridge.h"
#include "dbaccess/postgres/PgValues.h"

namespace petrodb::db {
namespace {

static_assert(std::endian::native == std::endian::little,
              "double arrays are stored little-endian; add a byte swap for this platform");

using Clock = std::chrono::steady_clock;

struct ConnCloser {
  void operator()(PGconn* c) const { PQfinish(c); }
};
using ConnHandle = std::unique_ptr<PGconn, ConnCloser>;

struct ResultClearer {
  void operator()(PGresult* r) const { PQclear(r); }
};
using ResultHandle = std::unique_ptr<PGresult, ResultClearer>;

// Rows of a bare-table read are fetched through a server cursor in slices, so a
// probe of a big table holds one slice, never the table. The later slices are
// as many rows as fit in about 96 kB on the wire (judged from the first slice):
// a slice that fits in the socket's buffer is sent whole while the reader goes
// through the one before, where a larger one would make the server wait for it.
constexpr int kFirstSlice = 64;
constexpr int kLeastSlice = 256;
constexpr int kMostSlice = 4096;
constexpr int kSliceBytes = 96 << 10;
// Batches at least this long go through COPY; shorter ones through a prepared insert.
constexpr std::size_t kCopyThreshold = 16;
// COPY data goes out in pieces this large: small enough to stay in the cache
// and to let the server read the first rows while the next are formatted.
constexpr std::size_t kCopyChunk = 64 << 10;
// A save batch this long starts going to the server before it is saved.
constexpr std::size_t kAheadRows = 1024;
// Reads prepared on one connection at most, and read texts remembered to find
// the repeated ones (forgotten all at once when there are more).
constexpr std::size_t kPreparedReads = 256;
constexpr std::size_t kSeenReads = 4096;

// Time limits, in seconds: connecting ("Timeout=" overrides), and one statement
// ("Command Timeout=" overrides). The server cancels a statement that runs
// longer; the client gives up on a server that does not answer a little later.
constexpr int kConnectTimeout = 5;
constexpr int kCommandTimeout = 120;
constexpr int kClientGrace = 5;
// A failed connect is remembered this long, so that a dead server fails fast.
constexpr auto kRememberFailure = std::chrono::seconds(10);
// Writers of one database take this advisory lock when their transaction begins.
constexpr const char* kWriterLock = "select pg_advisory_xact_lock(7370726)";

bool Contains(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

// The engine's message without its severity prefix and its context lines.
std::string EngineText(PGconn* conn, const PGresult* result = nullptr) {
  std::string text = result ? PQresultErrorMessage(result) : "";
  if (text.empty() && conn) text = PQerrorMessage(conn);
  for (const char* prefix : {"ERROR:  ", "FATAL:  "})
    if (text.rfind(prefix, 0) == 0) text.erase(0, std::strlen(prefix));
  if (const auto line = text.find('\n'); line != std::string::npos && line + 1 < text.size() &&
                                         text.compare(line + 1, 6, "LINE 1") == 0)
    text.erase(line);
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
  for (char& c : text)
    if (c == '\n') c = ' ';
  return text.empty() ? "the server gave no reason" : text;
}

// Connection parameters from "Provider=PostgreSQL;Host=…;Port=…;Database=…;User ID=…;Password=…",
// or the SQL Server keys "Data Source=host[,port];Initial Catalog=db".
struct ServerParams {
  std::vector<std::pair<std::string, std::string>> values;
  int connectTimeout = kConnectTimeout;
  int commandTimeout = kCommandTimeout;

  static int Seconds(const std::string& text, int fallback) {
    int value = 0;
    const auto r = std::from_chars(text.data(), text.data() + text.size(), value);
    return r.ec == std::errc() && r.ptr == text.data() + text.size() && value > 0 ? value : fallback;
  }

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
    p.connectTimeout = Seconds(first({"Timeout", "Connect Timeout", "Connection Timeout"}), kConnectTimeout);
    p.commandTimeout = Seconds(first({"Command Timeout", "CommandTimeout"}), kCommandTimeout);
    p.Set("host", host);
    p.Set("port", port);
    p.Set("dbname", first({"Database", "Initial Catalog", "dbname"}));
    p.Set("user", first({"User ID", "User", "Uid", "Username", "User Name"}));
    p.Set("password", first({"Password", "Pwd"}));
    p.Set("sslmode", first({"SSL Mode", "SslMode", "sslmode"}));
    p.Set("connect_timeout", std::to_string(p.connectTimeout));
    p.Set("application_name", "petrodb");
    p.Set("client_encoding", "UTF8");
    p.Set("keepalives", "1");
    p.Set("keepalives_idle", "30");
    p.Set("keepalives_interval", "10");
    p.Set("keepalives_count", "3");
    // Dates the module writes are year first; the server must read them so.
    // Every statement has a time limit, and a statement whose client went away
    // is cancelled.
    p.Set("options", "-c DateStyle=ISO,YMD -c statement_timeout=" + std::to_string(p.commandTimeout * 1000) +
                         " -c client_connection_check_interval=5000");
    return p;
  }

  std::string Get(const std::string& key) const {
    for (const auto& [k, v] : values)
      if (k == key) return v;
    return {};
  }

  void Set(const std::string& key, const std::string& value) {
    for (auto& [k, v] : values)
      if (k == key) {
        v = value;
        return;
      }
    if (!value.empty()) values.emplace_back(key, value);
  }

  // "server <host>:<port>, database <name>" for messages (no password).
  std::string Where() const {
    const std::string host = Get("host").empty() ? "localhost" : Get("host");
    const std::string port = Get("port").empty() ? "5432" : Get("port");
    return "server " + host + ":" + port + ", database " + Get("dbname");
  }

  std::string ExplainConnectFailure(const std::string& engine) const {
    const std::string where = Where();
    if (Contains(engine, "authentication failed") || Contains(engine, "no password supplied"))
      return "authentication failed for user \"" + Get("user") + "\" on " + where;
    if (Contains(engine, "timeout expired"))
      return "the server did not answer within " + std::to_string(std::max(2, connectTimeout)) + " s: " + where;
    if (Contains(engine, "does not exist")) return engine + ": " + where;
    return "cannot connect to " + where + " (" + engine + ")";
  }

  ConnHandle Connect(std::string& error) const;
};

// Failed connects by parameters, so that a dead server fails fast.
struct FailedConnects {
  std::mutex mutex;
  std::map<std::string, std::pair<Clock::time_point, std::string>> byKey;
};
FailedConnects& Failures() {
  static FailedConnects failures;
  return failures;
}

ConnHandle ServerParams::Connect(std::string& error) const {
  std::string key;
  for (const auto& [k, v] : values) key += k + '\x1f' + v + '\x1e';
  {
    auto& failures = Failures();
    std::lock_guard lock(failures.mutex);
    const auto it = failures.byKey.find(key);
    if (it != failures.byKey.end()) {
      if (Clock::now() - it->second.first < kRememberFailure) {
        error = it->second.second;
        return nullptr;
      }
      failures.byKey.erase(it);
    }
  }
  std::vector<const char*> keys, vals;
  for (const auto& [k, v] : values) {
    keys.push_back(k.c_str());
    vals.push_back(v.c_str());
  }
  keys.push_back(nullptr);
  vals.push_back(nullptr);
  ConnHandle conn(PQconnectdbParams(keys.data(), vals.data(), 0));
  if (!conn || PQstatus(conn.get()) != CONNECTION_OK) {
    error = ExplainConnectFailure(EngineText(conn.get()));
    auto& failures = Failures();
    std::lock_guard lock(failures.mutex);
    failures.byKey[key] = {Clock::now(), error};
    return nullptr;
  }
  return conn;
}

// True while nothing has arrived on an idle connection's socket: a server that
// went away (restart, idle timeout) leaves an end of file or an error there.
bool SocketQuiet(PGconn* conn) {
  const int fd = PQsocket(conn);
  if (fd < 0) return false;
  pollfd p{fd, POLLIN, 0};
  const int n = ::poll(&p, 1, 0);
  return n == 0;
}

bool Failed(const PGresult* r) {
  const auto status = PQresultStatus(r);
  return status == PGRES_FATAL_ERROR || status == PGRES_BAD_RESPONSE || status == PGRES_PIPELINE_ABORTED;
}

class PgConnection;

// Rows of one result, read in the binary format.
class PgCursor final : public Cursor {
 public:
  // `probe` names the server cursor of a whole-table read ("" for a plain
  // result); the connection fetches its further slices.
  PgCursor(PgConnection* owner, ResultHandle result, std::string probe, long generation);
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
  std::span<const std::byte> Blob(int i) const override;
  std::string Error() const override { return error_; }
  void Fetch(const int* columns, std::size_t count, FieldCell* out) const override {
    FetchCells(*this, columns, count, out);
  }

 private:
  void Adopt(ResultHandle result);
  int SliceRows() const;
  void End(bool early = false);
  const char* Value(int i) const { return PQgetvalue(result_.get(), row_, i); }
  int Length(int i) const { return PQgetlength(result_.get(), row_, i); }

  PgConnection* owner_;
  ResultHandle result_;
  int rows_ = 0;
  int row_ = 0;
  std::string probe_;
  long generation_;
  int slice_ = kFirstSlice;  // rows asked for in the current slice
  int next_ = kLeastSlice;   // rows to ask for in the next ones
  std::vector<unsigned> types_;
  bool binary_ = true;  // the result's format (text otherwise)
  mutable std::vector<std::string> scratch_;
  std::string error_;
};

class PgConnection final : public Connection {
 public:
  PgConnection(ConnHandle conn, ServerParams params, Dialect dialect)
      : conn_(std::move(conn)), params_(std::move(params)), dialect_(dialect) {
    LookUpCitext();
  }

  Dialect GetDialect() const override { return dialect_; }
  std::string Where() const override { return params_.Where(); }

  bool Healthy() override {
    Settle();
    ahead_.reset();  // its batch went with the sessions that used the connection last
    if (!conn_ || PQstatus(conn_.get()) != CONNECTION_OK) return false;
    if (txn_ != Txn::None || PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) {
      // A transaction left open is rolled back, not reused.
      std::string ignored;
      Run("rollback", ignored);
      EndTransaction();
      if (PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) return false;
    }
    return Quiet();
  }

  const std::string& Rewrite(const std::string& statement) const override {
    // Access texts are not rewritten here: they fail as they would on a server.
    return rewritten_ = pg::RewriteServerForPostgres(statement);
  }

  // Rows come in the text format: the server makes it much faster than the
  // binary one for extension types such as citext. Results with double arrays
  // come binary, which carries them at their size rather than as hex; a
  // statement once seen to return an array is asked for binary from then on.
  std::unique_ptr<Cursor> Query(const std::string& statement, std::string& error, bool arrays = false) override {
    if (!Live(error)) return nullptr;
    const bool binary = arrays || arrayTexts_.count(statement) > 0;
    if (std::string table; IsWholeTableRead(statement, table)) return OpenProbe(table, binary, error);
    for (int attempt = 0;; ++attempt) {
      Sent sent;
      sent.reuse = true;
      ResultHandle r = Statement(statement, binary ? 1 : 0, false, sent, error);
      if (attempt == 0 && ForgetStale(statement, sent, r.get())) continue;
      if (r && !Failed(r.get())) {
        if (!binary) NoteArrays(statement, r.get());
        return std::make_unique<PgCursor>(this, std::move(r), std::string(), generation_);
      }
      // A read that met a dropped connection, outside a transaction, is run again on a new one.
      const bool nothingWritten = txn_ == Txn::None || (txn_ == Txn::Operation && pendingBegin_);
      if (attempt == 0 && nothingWritten && PQstatus(conn_.get()) == CONNECTION_BAD && Reconnect(error)) continue;
      if (r) error = Explain(r.get());
      return nullptr;
    }
  }

  bool Execute(const std::string& statement, std::string& error) override {
    if (!Live(error)) return false;
    ResultHandle r = Statement(statement, 0, true, error);
    if (!r) return false;
    if (!Failed(r.get())) return true;
    error = Explain(r.get());
    return false;
  }

  bool TableExists(const std::string& table) override {
    std::string error, plain;
    // Only a plain name can be a table here (and such a name never makes to_regclass fail).
    if (!IsWholeTableRead("select * from " + table, plain) || !Live(error)) return false;
    const char* values[] = {table.c_str()};
    if (!PQsendQueryParams(conn_.get(), "select to_regclass($1) is not null", 1, nullptr, values, nullptr, nullptr, 0))
      return false;
    ResultHandle r = Collect(error);
    return r && PQresultStatus(r.get()) == PGRES_TUPLES_OK && PQntuples(r.get()) == 1 &&
           PQgetvalue(r.get(), 0, 0)[0] == 't';
  }

  // One batch at a time goes ahead; one whose COPY was stopped waits for its save.
  bool SendAhead(const PendingRows& rows) override {
    const std::size_t sealed = rows.Sealed();
    if (ahead_ && ahead_->batch != rows.Id()) return false;
    if (!ahead_ && !OpenAhead(rows, sealed)) return false;
    if (!ahead_->open) return false;
    if (rows.RunEnd(0) < sealed) {  // no longer one COPY: the save sends the rest its own way
      StopAhead();
      return false;
    }
    return SendRows(*ahead_, rows, sealed);
  }

  void TakeBack(const PendingRows& rows) override {
    if (!ahead_ || ahead_->batch != rows.Id()) return;
    if (ahead_->open) StopAhead();
    ahead_.reset();
  }

  bool Insert(const PendingRows& rows, std::vector<std::string>& ran, std::string& error) override {
    std::optional<CopyRows> ahead;
    if (ahead_ && ahead_->batch == rows.Id()) {
      // Still under way in the transaction Begin adopted for it: the last rows, and the COPY's end.
      if (ahead_->open && !ahead_->broken && txn_ == Txn::Operation && rows.RunEnd(0) == rows.size()) {
        CopyRows c = std::move(*ahead_);
        ahead_.reset();
        clean_ = false;
        ran.push_back(c.statement);
        SendRows(c, rows, rows.size());
        if (!EndCopy(c, error) || !Run(kWriterLock, error)) return false;
        lockPending_ = false;
        return true;
      }
      if (ahead_->open) StopAhead();
      ahead = std::move(ahead_);
      ahead_.reset();
    }
    if (rows.LetGo() > 0 && !ahead) {
      error = "the rows of the batch sent ahead are gone";
      return false;
    }
    if (!Live(error)) return false;
    const bool own = !InTransaction();
    // One run of COPY in a transaction of its own: the begin goes with the COPY,
    // the commit follows its rows.
    if (own && !ahead && !rows.empty() && rows.RunEnd(0) == rows.size() && UseCopy(rows, 0, rows.size())) {
      if (Copy(rows, 0, rows.size(), ran, error, true)) return true;
      std::string ignored;
      if (conn_ && PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) Run("rollback", ignored);
      return false;
    }
    if (own && !Run("begin", error)) return false;
    if (!own && (pendingBegin_ || lockPending_)) {
      if (!Run(std::string(pendingBegin_ ? "begin; " : "") + kWriterLock, error)) {
        std::string ignored;
        if (PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) Run("rollback", ignored);
        return false;
      }
      pendingBegin_ = lockPending_ = false;
    }
    if (!own) clean_ = false;
    for (std::size_t i = 0; i < rows.size();) {
      const std::size_t j = rows.RunEnd(i);
      const bool ok = i == 0 && ahead           ? RunCopy(*ahead, rows, j, ran, error)
                      : UseCopy(rows, i, j) ? Copy(rows, i, j, ran, error)
                                            : InsertEach(rows, i, j, ran, error);
      if (!ok) {
        if (own) {
          std::string ignored;
          Run("rollback", ignored);
        }
        return false;
      }
      i = j;
    }
    if (own && !Run("commit", error)) {
      std::string ignored;
      Run("rollback", ignored);
      return false;
    }
    return true;
  }

  std::optional<RestoreRequest> AsRestore(const std::string& statement) const override {
    return pg::RestoreFor(statement);
  }

  // A new database on this server, loaded from the backup script in one
  // transaction; a database whose load fails is dropped again. Runs on
  // connections of its own, outside any transaction of this one.
  bool RestoreDatabase(const RestoreRequest& request, std::string& error) override {
    std::ifstream in(request.backup, std::ios::binary);
    if (!in) {
      error = "cannot read the backup \"" + request.backup + "\"";
      return false;
    }
    std::stringstream script;
    script << in.rdbuf();
    ConnHandle admin = params_.Connect(error);
    if (!admin) return false;
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(params_.commandTimeout + kClientGrace);
    if (!RunOn(admin.get(), "create database " + request.database, deadline, error)) return false;
    ServerParams target = params_;
    target.Set("dbname", request.database);
    bool loaded = false;
    if (ConnHandle conn = target.Connect(error)) {
      loaded = RunOn(conn.get(), "begin;\n" + script.str() + "\ncommit;", deadline, error) &&
               PQtransactionStatus(conn.get()) == PQTRANS_IDLE;
      if (!loaded) error = "cannot load \"" + request.backup + "\": " + error;
    }
    if (!loaded) {
      std::string ignored;
      RunOn(admin.get(), "drop database if exists " + request.database, deadline, ignored);
    }
    return loaded;
  }

  // The begin and the writers' lock go to the server with the first write.
  bool Begin(std::string& error) override {
    if (ahead_ && ahead_->open && !ahead_->broken && txn_ == Txn::None) {
      // Rows sent ahead stand in a transaction begun for them; the writers'
      // lock follows them (see OpenAhead).
      txn_ = Txn::Operation;
      pendingBegin_ = false;
      lockPending_ = clean_ = true;
      return true;
    }
    if (!Live(error)) return false;
    if (txn_ == Txn::Operation) {
      error = "a transaction is already open";
      return false;
    }
    // A transaction a whole-table read opened becomes the operation's.
    pendingBegin_ = txn_ != Txn::Probe;
    lockPending_ = txn_ == Txn::Probe;
    txn_ = Txn::Operation;
    clean_ = true;
    return true;
  }

  bool Commit(std::string& error) override {
    Settle();
    if (!InTransaction()) {
      error = "the transaction was ended by an earlier error (" + Where() + ")";
      Rollback();
      return false;
    }
    if (pendingBegin_) {  // nothing was written
      EndTransaction();
      return true;
    }
    const bool ok = Run("commit", error);
    // A failed commit leaves nothing open on the server.
    if (!ok && conn_ && PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) {
      std::string ignored;
      Run("rollback", ignored);
    }
    EndTransaction();
    return ok;
  }

  void Rollback() override {
    Settle();
    if (txn_ == Txn::None) return;
    if (!pendingBegin_ && conn_ && PQstatus(conn_.get()) == CONNECTION_OK &&
        PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) {
      std::string ignored;
      Run("rollback", ignored);
    }
    EndTransaction();
  }

  bool InTransaction() const override {
    if (txn_ != Txn::Operation) return false;
    if (ahead_ && ahead_->open) return true;
    const_cast<PgConnection*>(this)->Settle();
    if (pendingBegin_) return true;  // nothing written yet: any connection will do
    return conn_ && PQstatus(conn_.get()) == CONNECTION_OK && PQtransactionStatus(conn_.get()) == PQTRANS_INTRANS;
  }

  // Server cursors of whole-table reads, for PgCursor.
  bool ProbeOpen(const std::string& name, long generation) const {
    return generation == generation_ && std::find(probes_.begin(), probes_.end(), name) != probes_.end();
  }
  static std::string FetchText(const std::string& name, int rows) {
    return "fetch " + std::to_string(rows) + " from " + name;
  }
  ResultHandle FetchSlice(const std::string& name, int rows, std::string& error) {
    ResultHandle r = Statement(FetchText(name, rows), 1, false, error);
    if (r && Failed(r.get())) error = Explain(r.get());
    return r;
  }
  // Asks for a cursor's next slice while its reader works through the current
  // one (when nothing else is on its way back).
  void FetchAhead(const std::string& name, int rows, long generation) {
    if (inFlight_ || !ProbeOpen(name, generation) || !conn_ || PQstatus(conn_.get()) != CONNECTION_OK) return;
    InFlight f{name, {}};
    std::string ignored;
    if (Send(FetchText(name, rows), 1, false, f.sent, ignored)) inFlight_ = std::move(f);
  }
  // The slice asked for ahead of a cursor's reader, if there is one (a failed
  // one as null or a failed result, with its error).
  bool TakeFetched(const std::string& name, ResultHandle& slice, std::string& error) {
    if (inFlight_ && inFlight_->probe == name) Settle();
    for (auto it = fetched_.begin(); it != fetched_.end(); ++it)
      if (it->probe == name) {
        slice = std::move(it->result);
        error = std::move(it->error);
        fetched_.erase(it);
        return true;
      }
    return false;
  }
  void ForgetFetched(const std::string& name) {
    std::erase_if(fetched_, [&](const Fetched& f) { return f.probe == name; });
  }
  // Closes a server cursor; the transaction opened for it ends with the last one.
  // With `early`, the reader still has the cursor's last rows to go through: the
  // transaction's end is collected before the next statement, not waited for.
  void EndProbe(const std::string& name, bool early = false) {
    Settle();
    const auto it = std::find(probes_.begin(), probes_.end(), name);
    if (it == probes_.end()) return;
    probes_.erase(it);
    std::string ignored;
    if (txn_ == Txn::Probe && probes_.empty()) {  // the commit closes the cursor
      const char* end = PQtransactionStatus(conn_.get()) == PQTRANS_INTRANS ? "commit" : "rollback";
      if (early && conn_ && PQsendQuery(conn_.get(), end))
        inFlight_ = InFlight{};
      else
        Run(end, ignored);
      EndTransaction();
    } else if (PQtransactionStatus(conn_.get()) == PQTRANS_INTRANS) {
      Statement("close " + name, 0, false, ignored);
    }
  }
  unsigned CitextOid() const { return citext_; }

  // Remembers a statement whose text-format result held an array column.
  void NoteArrays(const std::string& statement, const PGresult* r) {
    for (int i = 0, n = PQnfields(r); i < n; ++i)
      if (PQftype(r, i) == pg::kBytea && PQfformat(r, i) == 0) {
        if (arrayTexts_.size() >= 1024) arrayTexts_.clear();
        arrayTexts_.insert(statement);
        return;
      }
  }
  long Generation() const { return generation_; }

 private:
  // Who opened the transaction standing on the connection.
  enum class Txn { None, Probe, Operation };

  // Every server cursor and the transaction end together.
  void EndTransaction() {
    txn_ = Txn::None;
    pendingBegin_ = lockPending_ = false;
    clean_ = true;
    probes_.clear();
    ++generation_;
  }

  std::string Explain(const PGresult* r) const {
    const std::string engine = EngineText(conn_.get(), r);
    const char* state = r ? PQresultErrorField(r, PG_DIAG_SQLSTATE) : nullptr;
    const std::string code = state ? state : "";
    const std::string where = Where();
    if (code == "53100") return "disk full: " + where + " (" + engine + ")";
    if (code == "57014")
      return "the statement ran longer than " + std::to_string(params_.commandTimeout) + " s and was cancelled: " +
             where;
    if (code == "55P03" || code == "40P01") return "database is locked by another process: " + where + " (" + engine + ")";
    if (code.rfind("28", 0) == 0) return "authentication failed for user \"" + params_.Get("user") + "\" on " + where;
    if (!conn_ || PQstatus(conn_.get()) == CONNECTION_BAD)
      return "the connection to the server was lost: " + where + " (" + engine + ")";
    return engine + " (" + where + ")";
  }

  Clock::time_point Deadline() const {
    return Clock::now() + std::chrono::seconds(params_.commandTimeout + kClientGrace);
  }

  // Waits until a result can be read without blocking; false at the deadline or
  // when the connection fails.
  static bool Await(PGconn* conn, Clock::time_point deadline, std::string& error) {
    while (PQisBusy(conn)) {
      const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
      if (left <= 0) {
        error = "the server did not answer in time";
        return false;
      }
      pollfd p{PQsocket(conn), POLLIN, 0};
      const int n = ::poll(&p, 1, static_cast<int>(std::min<long long>(left, 1000)));
      if (n < 0 && errno != EINTR) {
        error = std::strerror(errno);
        return false;
      }
      if (n > 0 && !PQconsumeInput(conn)) {
        error = EngineText(conn);
        return false;
      }
    }
    return true;
  }

  // The results of the command sent: the first that failed, else the last that
  // holds rows, else the last. A COPY start is returned at once. Null when the
  // server did not answer in time or the connection broke (error filled).
  static ResultHandle CollectOn(PGconn* conn, Clock::time_point deadline, std::string& error) {
    ResultHandle kept;
    bool keptFailed = false, keptRows = false;
    for (;;) {
      if (!Await(conn, deadline, error)) return nullptr;
      ResultHandle r(PQgetResult(conn));
      if (!r) return kept;
      const auto status = PQresultStatus(r.get());
      if (status == PGRES_COPY_IN || status == PGRES_COPY_OUT || status == PGRES_COPY_BOTH) return r;
      if (status == PGRES_PIPELINE_SYNC) return kept;
      if (keptFailed) continue;
      if (Failed(r.get())) {
        kept = std::move(r);
        keptFailed = true;
      } else if (status == PGRES_TUPLES_OK || !keptRows) {
        keptRows = keptRows || status == PGRES_TUPLES_OK;
        kept = std::move(r);
      }
    }
  }

  // A connection whose server stopped answering cannot be trusted with the next
  // statement: it is closed (the server then cancels what it still runs).
  ResultHandle Collect(std::string& error) {
    ResultHandle r = CollectOn(conn_.get(), Deadline(), error);
    if (!r && !error.empty()) {
      error = "the server stopped answering: " + Where() + " (" + error + ")";
      Drop();
    }
    return r;
  }

  static bool RunOn(PGconn* conn, const std::string& text, Clock::time_point deadline, std::string& error) {
    if (!PQsendQuery(conn, text.c_str())) {
      error = EngineText(conn);
      return false;
    }
    ResultHandle r = CollectOn(conn, deadline, error);
    if (!r) return false;
    if (Failed(r.get())) {
      error = EngineText(conn, r.get());
      return false;
    }
    return true;
  }

  // The session's own statements (begin, commit, savepoints): the simple protocol.
  bool Run(const std::string& text, std::string& error) {
    Settle();
    if (!conn_) {
      error = "no connection";
      return false;
    }
    if (!PQsendQuery(conn_.get(), text.c_str())) {
      error = Explain(nullptr);
      return false;
    }
    ResultHandle r = Collect(error);
    if (!r) return false;
    if (Failed(r.get())) {
      error = Explain(r.get());
      return false;
    }
    return true;
  }

  // Closes a connection that cannot be trusted any more; an operation that has
  // written nothing yet stays pending for the next connection.
  void Drop() {
    const bool resume = txn_ == Txn::Operation && pendingBegin_;
    inFlight_.reset();
    conn_.reset();
    quietAt_ = {};
    prepared_.clear();
    reads_.clear();
    EndTransaction();
    if (resume) {
      txn_ = Txn::Operation;
      pendingBegin_ = true;
    }
  }

  // One statement of the module (the extended protocol runs exactly one).
  // - The first write of an operation's transaction goes in one round trip with
  //   the begin and the writers' lock (Begin only notes that one is wanted).
  // - In a transaction that holds writes (or a whole-table read's cursor), the
  //   statement runs between a savepoint and its release, in the same round
  //   trip, so that its failure undoes only itself.
  // - A statement that fails in an operation's transaction that holds nothing
  //   yet rolls that back and begins again at the next write: nothing is lost.
  // How a statement went out, for collecting its result later.
  struct Sent {
    bool reuse = false;  // asked for: a read that may run as a prepared statement
    bool pipeline = false, beginFirst = false, guard = false, writes = false;
    std::size_t commands = 0, mineAt = 0;
    std::string prepared;    // the prepared statement that ran it, if one did
    std::string preparing;   // its text, when it was prepared in the same round trip
    std::string broken;      // the pipeline could not be sent
  };

  ResultHandle Statement(const std::string& text, int format, bool writes, std::string& error) {
    Sent sent;
    return Statement(text, format, writes, sent, error);
  }
  ResultHandle Statement(const std::string& text, int format, bool writes, Sent& sent, std::string& error) {
    Settle();
    if (!Send(text, format, writes, sent, error)) return nullptr;
    return Finish(sent, error);
  }

  // A read repeated on a connection runs as a statement prepared there, so the
  // server no longer parses and plans it each time. A text is prepared the
  // second time it is seen: keys written into statements make most texts unique.
  void PlanReuse(const std::string& text, Sent& s) {
    if (const auto it = reads_.find(text); it != reads_.end()) {
      s.prepared = it->second;
      return;
    }
    if (reads_.size() >= kPreparedReads) return;
    // Texts seen are kept as hashes: a rare clash only prepares a read early.
    const std::size_t hash = std::hash<std::string>{}(text);
    if (seenReads_.insert(hash).second) {
      if (seenReads_.size() > kSeenReads) {
        seenReads_.clear();
        seenReads_.insert(hash);
      }
      return;
    }
    s.prepared = "petrodb_" + std::to_string(++preparedCounter_);
    s.preparing = text;
  }

  // A prepared read that the server refused because the statement went stale:
  // its result would change shape (a table gained or lost a column), or the
  // statement is gone (deallocated by a host's own statement). It is
  // forgotten, so that the read can be prepared again.
  bool ForgetStale(const std::string& text, const Sent& s, const PGresult* r) {
    if (s.prepared.empty() || !r || !Failed(r)) return false;
    const char* state = PQresultErrorField(r, PG_DIAG_SQLSTATE);
    const std::string code = state ? state : "";
    if (code != "0A000" && code != "26000") return false;
    reads_.erase(text);
    std::string ignored;
    if (code == "0A000" && conn_) Run("deallocate " + s.prepared, ignored);
    return true;
  }

  // Sends a statement of the module (see Statement); false when nothing went out.
  bool Send(const std::string& text, int format, bool writes, Sent& s, std::string& error) {
    if (!conn_) {
      error = "no connection";
      return false;
    }
    PGconn* c = conn_.get();
    const bool operation = txn_ == Txn::Operation;
    if (s.reuse) PlanReuse(text, s);
    s.writes = writes;
    s.beginFirst = operation && (pendingBegin_ || lockPending_) && writes;
    const bool unsaved = operation && clean_ && probes_.empty();
    s.guard = PQtransactionStatus(c) == PQTRANS_INTRANS && !unsaved;
    if (!s.beginFirst && !s.guard && s.preparing.empty()) {
      const int sent = s.prepared.empty()
                           ? PQsendQueryParams(c, text.c_str(), 0, nullptr, nullptr, nullptr, nullptr, format)
                           : PQsendQueryPrepared(c, s.prepared.c_str(), 0, nullptr, nullptr, nullptr, format);
      if (!sent) {
        error = Explain(nullptr);
        return false;
      }
      return true;
    }
    if (!PQenterPipelineMode(c)) {
      error = Explain(nullptr);
      return false;
    }
    s.pipeline = true;
    enum class How { Text, Prepare, Prepared };
    struct Command {
      const char* text;  // each source is a terminated text that outlives the sending
      int format = 0;
      How how = How::Text;
    };
    std::vector<Command> commands;
    if (s.beginFirst) {
      if (pendingBegin_) commands.push_back({"begin"});
      commands.push_back({kWriterLock});
    }
    if (s.guard) commands.push_back({"savepoint petrodb_statement"});
    if (!s.preparing.empty()) commands.push_back({text.c_str(), 0, How::Prepare});
    s.mineAt = commands.size();
    commands.push_back({text.c_str(), format, s.prepared.empty() ? How::Text : How::Prepared});
    if (s.guard) commands.push_back({"release savepoint petrodb_statement"});
    s.commands = commands.size();
    bool sent = true;
    for (const Command& k : commands) {
      if (!sent) break;
      if (k.how == How::Text)
        sent = PQsendQueryParams(c, k.text, 0, nullptr, nullptr, nullptr, nullptr, k.format);
      else if (k.how == How::Prepare)
        sent = PQsendPrepare(c, s.prepared.c_str(), k.text, 0, nullptr);
      else
        sent = PQsendQueryPrepared(c, s.prepared.c_str(), 0, nullptr, nullptr, nullptr, k.format);
    }
    sent = sent && PQpipelineSync(c);
    if (!sent) s.broken = EngineText(c);
    return true;
  }

  // The result of a statement sent.
  ResultHandle Finish(const Sent& s, std::string& error) {
    if (!s.pipeline) {
      ResultHandle r = Collect(error);
      AfterStatement(r.get(), s.writes);
      return r;
    }
    PGconn* c = conn_.get();
    std::string broken = s.broken;
    std::vector<ResultHandle> results;
    const Clock::time_point deadline = Deadline();
    // Each command's results end with a null result; the sync has no null after it.
    for (std::size_t command = 0; command <= s.commands && broken.empty(); ++command)
      results.push_back(CollectOn(c, deadline, broken));
    if (!broken.empty()) {
      error = "the server stopped answering: " + Where() + " (" + broken + ")";
      Drop();
      return nullptr;
    }
    PQexitPipelineMode(c);
    if (s.beginFirst) pendingBegin_ = lockPending_ = false;
    if (!s.preparing.empty() && PQresultStatus(results[s.mineAt - 1].get()) == PGRES_COMMAND_OK)
      reads_.emplace(s.preparing, s.prepared);
    ResultHandle mine = std::move(results[s.mineAt]);
    // What went before failed (a lock wait past its time, a statement that does
    // not parse): the statement did not run, and that failure is its answer.
    for (std::size_t k = 0; k < s.mineAt; ++k)
      if (!results[k] || Failed(results[k].get())) {
        mine = std::move(results[k]);
        break;
      }
    if (s.guard && (!mine || Failed(mine.get()))) {
      std::string ignored;
      Run("rollback to savepoint petrodb_statement; release savepoint petrodb_statement", ignored);
    } else {
      AfterStatement(mine.get(), s.writes);
    }
    if (!mine) error = "the server gave no result";
    return mine;
  }

  // What is still on its way back from the server: the next slice of a server
  // cursor asked for ahead of its reader, or the end of a cursor's transaction.
  // It is collected before anything else goes out on the connection.
  struct InFlight {
    std::string probe;  // "" for the end of a transaction
    Sent sent;
  };
  struct Fetched {
    std::string probe;
    ResultHandle result;
    std::string error;
  };

  void Settle() {
    if (ahead_ && ahead_->open) StopAhead();
    if (!inFlight_) return;
    InFlight f = std::move(*inFlight_);
    inFlight_.reset();
    std::string error;
    ResultHandle r = Finish(f.sent, error);
    if (f.probe.empty()) return;  // a transaction's end: its outcome matters to no one
    if (r && Failed(r.get())) error = Explain(r.get());
    fetched_.push_back(Fetched{std::move(f.probe), std::move(r), std::move(error)});
  }

  // Keeps track of what the operation's transaction holds.
  void AfterStatement(const PGresult* r, bool writes) {
    if (txn_ != Txn::Operation || pendingBegin_) return;
    if (r && !Failed(r)) {
      if (writes) clean_ = false;
      return;
    }
    if (clean_ && probes_.empty() && conn_ && PQtransactionStatus(conn_.get()) == PQTRANS_INERROR) {
      std::string ignored;
      Run("rollback", ignored);
      pendingBegin_ = true;
    }
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
  // An operation whose transaction already holds writes cannot move to another
  // connection: it fails; one that has written nothing yet goes on there.
  bool Live(std::string& error) {
    Settle();
    const bool ok = conn_ && PQstatus(conn_.get()) == CONNECTION_OK;
    if (ok && PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) return true;
    if (ok && Quiet()) return true;
    if (txn_ == Txn::Operation && !pendingBegin_) {
      error = "the connection to the server was lost during the operation: " + Where();
      Drop();
      return false;
    }
    return Reconnect(error);
  }

  // The socket was quiet a moment ago (the pool looks before handing the
  // connection out) or is now: one look serves both.
  bool Quiet() {
    const auto now = Clock::now();
    if (now - quietAt_ < std::chrono::milliseconds(1)) return true;
    if (!SocketQuiet(conn_.get())) return false;
    quietAt_ = now;
    return true;
  }

  bool Reconnect(std::string& error) {
    ConnHandle fresh = params_.Connect(error);
    if (!fresh) return false;
    CountConnectionOpened();
    const bool resume = txn_ == Txn::Operation && pendingBegin_;
    inFlight_.reset();
    conn_ = std::move(fresh);
    quietAt_ = {};
    prepared_.clear();
    reads_.clear();
    EndTransaction();
    if (resume) {
      txn_ = Txn::Operation;
      pendingBegin_ = true;
    }
    return true;
  }

  // One round trip: the cursor's own transaction when none is open (else a
  // savepoint, so that a missing table undoes only itself), the declare and the
  // first slice.
  std::unique_ptr<Cursor> OpenProbe(const std::string& table, bool binary, std::string& error) {
    const std::string name = "petrodb_rows_" + std::to_string(++probeCounter_);
    const std::string body = "declare " + name + (binary ? " binary" : "") + " no scroll cursor for select * from " +
                             table + "; fetch " +
                             std::to_string(kFirstSlice) + " from " + name;
    const bool opened = txn_ == Txn::None || (txn_ == Txn::Operation && pendingBegin_);
    const std::string text =
        opened ? "begin; " + body : "savepoint petrodb_statement; " + body + "; release savepoint petrodb_statement";
    ResultHandle r;
    if (PQsendQuery(conn_.get(), text.c_str())) r = Collect(error);
    if (!r || PQresultStatus(r.get()) != PGRES_TUPLES_OK) {
      if (r) error = Explain(r.get());
      if (conn_) {
        std::string ignored;
        if (!opened)
          Run("rollback to savepoint petrodb_statement; release savepoint petrodb_statement", ignored);
        else if (PQtransactionStatus(conn_.get()) != PQTRANS_IDLE)
          Run("rollback", ignored);
      }
      return nullptr;
    }
    if (txn_ == Txn::None) txn_ = Txn::Probe;
    // An operation that has written nothing yet takes the writers' lock in this
    // transaction before its first write.
    if (txn_ == Txn::Operation && pendingBegin_) {
      pendingBegin_ = false;
      lockPending_ = true;
    }
    probes_.push_back(name);
    if (!binary) NoteArrays("select * from " + table, r.get());
    return std::make_unique<PgCursor>(this, std::move(r), name, generation_);
  }

  void LookUpCitext() {
    ResultHandle r(PQexec(conn_.get(), "select oid from pg_catalog.pg_type where typname = 'citext' limit 1"));
    if (PQresultStatus(r.get()) == PGRES_TUPLES_OK && PQntuples(r.get()) == 1)
      citext_ = static_cast<unsigned>(std::strtoul(PQgetvalue(r.get(), 0, 0), nullptr, 10));
  }

  static std::string Parameter(std::size_t k) { return "$" + std::to_string(k + 1); }

  // Which columns of a shape are date columns of its table: the server reads
  // their text itself once a date literal's delimiters are gone.
  static std::vector<char> DateFlags(const RowShape& shape) {
    std::vector<char> flags(shape.columns.size());
    for (std::size_t k = 0; k < flags.size(); ++k) flags[k] = IsDateColumn(shape.table, shape.columns[k]);
    return flags;
  }

  static std::string_view CellText(const PendingRows& rows, const PendingCell& cell, bool date, std::string& out) {
    switch (cell.kind) {
      case CellKind::Integer: return out = std::to_string(cell.integer);
      case CellKind::Real: return out = pg::DoubleText(cell.real);
      case CellKind::Text: {
        const std::string_view text = rows.Text(cell);
        if (!date || !IsDelimitedText(text)) return text;
        return out = UnwrapDateLiteral(std::string(text));
      }
      default: return {};
    }
  }

  // COPY for a long run of rows with columns, unless they carry double arrays:
  // those travel faster as binary parameters than as hex text.
  static bool UseCopy(const PendingRows& rows, std::size_t from, std::size_t to) {
    if (to - from < kCopyThreshold || rows.Shape(from).columns.empty()) return false;
    for (const PendingCell& cell : rows.Cells(from))
      if (cell.kind == CellKind::Blob) return false;
    return true;
  }

  // Rows one by one through a statement prepared once per connection; arrays
  // travel as binary parameters.
  bool InsertEach(const PendingRows& rows, std::size_t from, std::size_t to,
                  std::vector<std::string>& ran, std::string& error) {
    const RowShape& shape = rows.Shape(from);
    const std::string text = InsertText(shape, &pg::ColumnIdentifier, &Parameter);
    ran.push_back(text);
    const std::size_t n = shape.columns.size();
    std::string& name = prepared_[text];
    if (name.empty()) {
      const std::string candidate = "petrodb_" + std::to_string(++preparedCounter_);
      ResultHandle r;
      if (PQsendPrepare(conn_.get(), candidate.c_str(), text.c_str(), static_cast<int>(n), nullptr))
        r = Collect(error);
      if (!r || PQresultStatus(r.get()) != PGRES_COMMAND_OK) {
        if (r) error = Explain(r.get());
        prepared_.erase(text);
        return false;
      }
      name = candidate;
    }
    const std::vector<char> dates = DateFlags(shape);
    std::string scratch;
    std::vector<std::string> texts(n);
    std::vector<const char*> values(n);
    std::vector<int> lengths(n), formats(n);
    for (std::size_t i = from; i < to; ++i) {
      const auto cells = rows.Cells(i);
      for (std::size_t k = 0; k < n; ++k) {
        const PendingCell& cell = cells[k];
        formats[k] = 0;
        lengths[k] = 0;
        if (cell.kind == CellKind::Null) {
          values[k] = nullptr;
        } else if (cell.kind == CellKind::Blob) {
          static const char kEmpty = 0;
          const Variant& v = rows.Array(cell);
          values[k] = v.Size() ? reinterpret_cast<const char*>(v.Data()) : &kEmpty;
          lengths[k] = static_cast<int>(v.Size() * sizeof(double));
          formats[k] = 1;
        } else {
          // Text parameters end at their NUL: each value gets its own terminated copy.
          texts[k].assign(CellText(rows, cell, dates[k], scratch));
          values[k] = texts[k].c_str();
        }
      }
      ResultHandle r;
      if (PQsendQueryPrepared(conn_.get(), name.c_str(), static_cast<int>(n), values.data(), lengths.data(),
                              formats.data(), 0))
        r = Collect(error);
      if (!r || PQresultStatus(r.get()) != PGRES_COMMAND_OK) {
        if (r) error = Explain(r.get());
        return false;
      }
    }
    return true;
  }

  static std::string CopyText(const RowShape& shape) {
    std::string text = "copy " + shape.table + " (";
    for (std::size_t k = 0; k < shape.columns.size(); ++k) text += (k ? ", " : "") + pg::ColumnIdentifier(shape.columns[k]);
    return text + ") from stdin";
  }

  // Rows on their way through one COPY, formatted as COPY text. A batch sent
  // ahead of its save (`keep`) keeps all its text, to send again if a statement
  // comes between; otherwise the text goes once sent.
  struct CopyRows {
    std::uint64_t batch = 0;
    std::string statement;  // the COPY
    std::vector<char> dates;
    bool keep = false;
    std::size_t formatted = 0;     // rows formatted so far
    std::string text;              // formatted and not sent yet
    std::vector<std::string> sent;  // pieces sent, when kept
    bool open = false;             // its COPY is under way (else it waits for the save)
    bool broken = false;      // a piece could not be sent
  };

  CopyRows CopyOf(const PendingRows& rows, std::size_t from, bool keep) const {
    CopyRows c;
    c.batch = rows.Id();
    c.statement = CopyText(rows.Shape(from));
    c.dates = DateFlags(rows.Shape(from));
    c.keep = keep;
    c.formatted = from;
    c.text.reserve(kCopyChunk + 4096);
    return c;
  }

  // One row as a line of COPY text.
  static void AppendCopyRow(const PendingRows& rows, std::size_t i, const std::vector<char>& dates, std::string& out,
                            std::string& scratch) {
    const auto cells = rows.Cells(i);
    for (std::size_t k = 0; k < cells.size(); ++k) {
      if (k) out += '\t';
      const PendingCell& cell = cells[k];
      switch (cell.kind) {
        case CellKind::Null: out += "\\N"; break;
        case CellKind::Blob: {
          const Variant& v = rows.Array(cell);
          pg::AppendCopyBytea(out, v.Data(), v.Size() * sizeof(double));
          break;
        }
        case CellKind::Text: pg::AppendCopyText(out, CellText(rows, cell, dates[k], scratch)); break;
        case CellKind::Real: pg::AppendDouble(out, cell.real); break;
        case CellKind::Integer: {
          char digits[24];
          out.append(digits, std::to_chars(digits, digits + sizeof digits, cell.integer).ptr);
          break;
        }
      }
    }
    out += '\n';
  }

  // Passes the text formatted to the COPY once a piece's worth has gathered
  // (any amount with `all`). False when a piece could not be sent.
  bool SendText(CopyRows& c, bool all) {
    if (c.text.size() < (all ? 1 : kCopyChunk)) return !c.broken;
    if (!c.broken) c.broken = PQputCopyData(conn_.get(), c.text.data(), static_cast<int>(c.text.size())) != 1;
    if (c.keep) {
      c.sent.push_back(std::move(c.text));
      c.text = std::string();
      c.text.reserve(kCopyChunk + 4096);
    } else {
      c.text.clear();
    }
    return !c.broken;
  }

  // Sends again what a batch sent ahead before its COPY was stopped.
  bool SendAgain(CopyRows& c) {
    c.broken = false;
    for (const std::string& piece : c.sent)
      if (!c.broken) c.broken = PQputCopyData(conn_.get(), piece.data(), static_cast<int>(piece.size())) != 1;
    return !c.broken;
  }

  // Formats and sends the rows up to `to`.
  bool SendRows(CopyRows& c, const PendingRows& rows, std::size_t to) {
    std::string scratch;
    while (c.formatted < to && !c.broken) {
      AppendCopyRow(rows, c.formatted++, c.dates, c.text, scratch);
      SendText(c, false);
    }
    return !c.broken;
  }

  // Starts the COPY: in a transaction of its own with `begin`, else in the one open.
  bool StartCopy(const std::string& begin, const CopyRows& c, std::string& error, const char* end = "") {
    ResultHandle start;
    if (PQsendQuery(conn_.get(), (begin + c.statement + end).c_str())) start = Collect(error);
    if (start && PQresultStatus(start.get()) == PGRES_COPY_IN) return true;
    if (start) error = Explain(start.get());
    return false;
  }

  // Sends the rest of the text and ends the COPY (aborts it when a piece could
  // not be sent); true when the server stored every row.
  bool EndCopy(CopyRows& c, std::string& error) {
    const bool sent = SendText(c, true);
    const bool ended = PQputCopyEnd(conn_.get(), sent ? nullptr : "the rows could not be sent") == 1;
    ResultHandle done = Collect(error);
    if (!done) return false;
    if (Failed(done.get()) || !sent || !ended) {
      error = Explain(done.get());
      return false;
    }
    return true;
  }

  // A long run of rows with the same columns through COPY, in text format.
  // `around` wraps the COPY in its own transaction, in the same round trips.
  bool Copy(const PendingRows& rows, std::size_t from, std::size_t to, std::vector<std::string>& ran,
            std::string& error, bool around = false) {
    CopyRows c = CopyOf(rows, from, false);
    return RunCopy(c, rows, to, ran, error, around);
  }

  // One COPY of `c`: what it holds from earlier (a batch sent ahead before its
  // COPY was stopped), then its rows up to `to`.
  bool RunCopy(CopyRows& c, const PendingRows& rows, std::size_t to, std::vector<std::string>& ran,
               std::string& error, bool around = false) {
    ran.push_back(c.statement);
    if (!StartCopy(around ? "begin; " : "", c, error, around ? "; commit" : "")) return false;
    SendAgain(c);
    SendRows(c, rows, to);
    return EndCopy(c, error);
  }

  // Starts sending a batch ahead of its save when nothing else stands on the
  // connection and its rows so far are one long run for COPY: one COPY in a
  // transaction of its own. The writers' lock waits for the save, so that a
  // batch built slowly holds up no other writer; it is taken before the commit.
  bool OpenAhead(const PendingRows& rows, std::size_t sealed) {
    std::string error;
    if (sealed < kAheadRows || txn_ != Txn::None || !Live(error) || txn_ != Txn::None || inFlight_ ||
        !probes_.empty() || PQtransactionStatus(conn_.get()) != PQTRANS_IDLE || rows.RunEnd(0) < sealed ||
        !UseCopy(rows, 0, sealed))
      return false;
    CopyRows c = CopyOf(rows, 0, true);
    if (!StartCopy("begin; ", c, error)) {
      std::string ignored;
      if (conn_ && PQtransactionStatus(conn_.get()) != PQTRANS_IDLE) Run("rollback", ignored);
      return false;
    }
    c.open = true;
    ahead_ = std::move(c);
    return true;
  }

  // Rows sent ahead are not to be stored now: the server drops them with their
  // transaction, and their text waits for the batch's save. An operation that
  // had adopted them has written nothing.
  void StopAhead() {
    ahead_->open = false;
    if (txn_ == Txn::Operation) {
      pendingBegin_ = true;
      lockPending_ = false;
      clean_ = true;
    }
    if (!conn_) return;
    std::string ignored;
    if (PQputCopyEnd(conn_.get(), "the rows sent ahead are sent again with their save") == 1) Collect(ignored);
    if (conn_ && PQstatus(conn_.get()) == CONNECTION_OK && PQtransactionStatus(conn_.get()) != PQTRANS_IDLE)
      Run("rollback", ignored);
  }

  ConnHandle conn_;
  ServerParams params_;
  Dialect dialect_;
  unsigned citext_ = 0;
  Txn txn_ = Txn::None;
  bool pendingBegin_ = false;  // an operation's transaction not yet begun on the server
  bool lockPending_ = false;   // begun (by a whole-table read), the writers' lock not yet taken
  bool clean_ = true;          // the operation's transaction holds no write yet
  std::vector<std::string> probes_;  // open server cursors
  long generation_ = 0;              // counts transaction ends: cursors of an ended one are gone
  long probeCounter_ = 0;
  std::unordered_map<std::string, std::string> prepared_;     // inserts: text, name
  std::unordered_map<std::string, std::string> reads_;        // repeated reads: text, name
  std::unordered_set<std::size_t> seenReads_;
  long preparedCounter_ = 0;
  std::unordered_set<std::string> arrayTexts_;
  mutable std::string rewritten_;  // the last statement rewritten
  Clock::time_point quietAt_{};  // when the socket was last seen quiet
  std::optional<InFlight> inFlight_;
  std::optional<CopyRows> ahead_;  // a save batch's rows sent ahead of its save
  std::vector<Fetched> fetched_;  // slices asked for ahead, collected before their reader came to them
};

PgCursor::PgCursor(PgConnection* owner, ResultHandle result, std::string probe, long generation)
    : owner_(owner), probe_(std::move(probe)), generation_(generation) {
  Adopt(std::move(result));
}

// A read abandoned early closes its server cursor.
PgCursor::~PgCursor() { End(); }

void PgCursor::End(bool early) {
  if (!probe_.empty()) {
    if (owner_->ProbeOpen(probe_, generation_)) owner_->EndProbe(probe_, early);
    owner_->ForgetFetched(probe_);
  }
  probe_.clear();
}

void PgCursor::Adopt(ResultHandle result) {
  result_ = std::move(result);
  rows_ = PQresultStatus(result_.get()) == PGRES_TUPLES_OK ? PQntuples(result_.get()) : 0;
  row_ = 0;
  const int n = PQnfields(result_.get());
  types_.resize(n);
  binary_ = n == 0 || PQfformat(result_.get(), 0) == 1;
  for (int i = 0; i < n; ++i) {
    types_[i] = PQftype(result_.get(), i);
    if (types_[i] == owner_->CitextOid()) types_[i] = pg::kText;
  }
  scratch_.assign(n, std::string());
  if (!probe_.empty() && slice_ == kFirstSlice && rows_ > 0) next_ = SliceRows();
  // The last slice of a server cursor closes it at once (the rows are here).
  if (rows_ < slice_) End(true);
}

// Rows of the later slices: as many as fit in kSliceBytes, judged by the first
// slice's rows (each field costs its length and four bytes, each row seven).
int PgCursor::SliceRows() const {
  const PGresult* r = result_.get();
  const int fields = PQnfields(r);
  long long bytes = 0;
  for (int row = 0; row < rows_; ++row) {
    bytes += 7;
    for (int i = 0; i < fields; ++i) bytes += 4 + PQgetlength(r, row, i);
  }
  const long long perRow = std::max<long long>(1, bytes / rows_);
  return static_cast<int>(std::clamp<long long>(kSliceBytes / perRow, kLeastSlice, kMostSlice));
}

bool PgCursor::Next() {
  if (row_ >= rows_) return false;
  if (++row_ < rows_) {
    // A reader that goes on past the first rows will want the next slice.
    if (row_ == kFirstSlice / 4 && slice_ == kFirstSlice && rows_ == kFirstSlice && !probe_.empty())
      owner_->FetchAhead(probe_, next_, generation_);
    return true;
  }
  if (probe_.empty() || rows_ < slice_) {
    End();
    return false;
  }
  std::string error;
  ResultHandle slice;
  const bool ahead = owner_->TakeFetched(probe_, slice, error);
  const bool failedAhead = ahead && (!slice || PQresultStatus(slice.get()) != PGRES_TUPLES_OK);
  if (!failedAhead && !owner_->ProbeOpen(probe_, generation_)) {
    error_ = "the rows of a whole-table read were cut short: its transaction ended";
    owner_->ForgetFetched(probe_);
    probe_.clear();
    return false;
  }
  if (!ahead) slice = owner_->FetchSlice(probe_, next_, error);
  if (!slice || PQresultStatus(slice.get()) != PGRES_TUPLES_OK) {
    error_ = error.empty() ? "the next rows could not be fetched" : error;
    End();
    rows_ = row_ = 0;
    return false;
  }
  slice_ = next_;
  Adopt(std::move(slice));
  // The server reads the next slice while this one is gone through.
  if (!probe_.empty() && rows_ == slice_) owner_->FetchAhead(probe_, next_, generation_);
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

namespace {

// Text-format numbers; 0 when the text is none.
std::int64_t TextInteger(std::string_view text) {
  std::int64_t v = 0;
  std::from_chars(text.data(), text.data() + text.size(), v);
  return v;
}
double TextReal(std::string_view text) {
  double v = 0;
  std::from_chars(text.data(), text.data() + text.size(), v);
  return v;
}

}  // namespace

std::span<const std::byte> PgCursor::Blob(int i) const {
  if (!binary_) {
    if (!pg::ByteaFromText(std::string_view(Value(i), static_cast<std::size_t>(Length(i))), scratch_[i])) return {};
    return {reinterpret_cast<const std::byte*>(scratch_[i].data()), scratch_[i].size()};
  }
  return {reinterpret_cast<const std::byte*>(Value(i)), static_cast<std::size_t>(Length(i))};
}

// Integer and Real of a column of another kind read its text (0 when it is no number).
std::int64_t PgCursor::Integer(int i) const {
  if (!binary_) {
    switch (types_[i]) {
      case pg::kBool: return Value(i)[0] == 't';
      case pg::kInt2:
      case pg::kInt4:
      case pg::kOid:
      case pg::kInt8: return TextInteger(std::string_view(Value(i), Length(i)));
      case pg::kFloat4:
      case pg::kFloat8: return static_cast<std::int64_t>(Real(i));
      case pg::kBytea: return 0;
      default: break;
    }
    double d = 0;
    return sql::ParseWholeNumber(Text(i), d) && d > -9.2e18 && d < 9.2e18 ? static_cast<std::int64_t>(d) : 0;
  }
  switch (types_[i]) {
    case pg::kBool: return Value(i)[0] != 0;
    case pg::kInt2: return pg::ReadBigEndian(Value(i), 2);
    case pg::kInt4: return pg::ReadBigEndian(Value(i), 4);
    case pg::kOid: return static_cast<std::uint32_t>(pg::ReadBigEndian(Value(i), 4));
    case pg::kInt8: return pg::ReadBigEndian(Value(i), 8);
    case pg::kFloat4:
    case pg::kFloat8: return static_cast<std::int64_t>(Real(i));
    case pg::kBytea: return 0;
    default: {
      double d = 0;
      return sql::ParseWholeNumber(Text(i), d) && d > -9.2e18 && d < 9.2e18 ? static_cast<std::int64_t>(d) : 0;
    }
  }
}

double PgCursor::Real(int i) const {
  switch (types_[i]) {
    case pg::kFloat4:  // as text: the shortest text that reads back the same float
      return binary_ ? pg::ReadFloat4(Value(i))
                     : static_cast<float>(TextReal(std::string_view(Value(i), Length(i))));
    case pg::kFloat8: return binary_ ? pg::ReadFloat8(Value(i)) : TextReal(std::string_view(Value(i), Length(i)));
    case pg::kBool:
    case pg::kInt2:
    case pg::kInt4:
    case pg::kOid:
    case pg::kInt8: return static_cast<double>(Integer(i));
    case pg::kBytea: return 0;
    default: {
      double d = 0;
      return sql::ParseWholeNumber(Text(i), d) ? d : 0;
    }
  }
}

std::string_view PgCursor::Text(int i) const {
  if (!binary_) {
    const std::string_view text(Value(i), static_cast<std::size_t>(Length(i)));
    switch (types_[i]) {
      case pg::kTimestamp:
      case pg::kTime: return scratch_[i] = pg::TimestampTextFromText(text, false);
      case pg::kTimestampTz: return scratch_[i] = pg::TimestampTextFromText(text, true);
      default: return text;
    }
  }
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
