// The shared server: the session on PostgreSQL against libpq doing the same work
// on an open connection. Runs when PETRODB_BENCH_PG (or PETRODB_TEST_PG) names a
// server connection ("Provider=PostgreSQL;Host=…;Port=…;Database=…;User ID=…");
// a database is made for the run from the shipped backup and dropped after it.
#if __has_include(<libpq-fe.h>)
#include <benchmark/benchmark.h>
#include <libpq-fe.h>
#include <unistd.h>

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "dbaccess/ConnectionString.h"
#include "dbaccess/DataObject.h"
#include "Workloads.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"
#include "petrodb/Host.h"

namespace {

constexpr int kArray = 1000000;  // 8 MB of doubles

std::string ServerConnection() {
  for (const char* name : {"PETRODB_BENCH_PG", "PETRODB_TEST_PG"})
    if (const char* v = std::getenv(name); v && *v) return v;
  return {};
}

struct BenchServer {
  std::string database, connection, server;
  PGconn* raw = nullptr;
  bool ready = false;

  BenchServer() {
    server = ServerConnection();
    if (server.empty()) return;
    const petrodb::db::ConnectionString parsed(server);
    database = "petrodb_bench_" + std::to_string(::getpid());
    std::string keys = "Provider=PostgreSQL;Host=" + parsed.Get("Host") + ";Port=" + parsed.Get("Port") +
                       ";User ID=" + parsed.Get("User ID");
    if (parsed.Has("Password")) keys += ";Password=" + parsed.Get("Password");
    connection = keys + ";Database=" + database;
    const std::string backup = (std::filesystem::path(petrodb::ProgramDirectory()) / "orvex.bak").string();
    {
      CDbManage db(server.c_str());
      if (!db.ExecuteSQL(petrodb::sql::Format("RESTORE FILELISTONLY FROM DISK = '%s' RESTORE DATABASE %s FROM DISK = "
                                              "'%s' WITH MOVE '%s' TO '%s',MOVE '%s' TO '%s'",
                                              backup, database, backup, "orvex_Data", "-", "orvex_Log", "-")
                             .c_str()))
        return;
    }
    std::string conninfo = "host='" + parsed.Get("Host") + "' port='" + parsed.Get("Port") + "' user='" +
                           parsed.Get("User ID") + "' dbname='" + database + "'";
    if (parsed.Has("Password")) conninfo += " password='" + parsed.Get("Password") + "'";
    raw = PQconnectdb(conninfo.c_str());
    if (PQstatus(raw) != CONNECTION_OK) return;
    Exec("create table bench_rows (ProjectName citext, WellID citext, WellName citext, WellType citext, Well_SN "
         "double precision, Well_EW double precision, WellFlag citext, WellSymbol integer, Kb double precision, Ekb "
         "double precision, WellDepth double precision)");
    Exec("create table bench_arrays (Name citext, Data bytea)");
    Exec("alter table bench_arrays alter column Data set storage external");
    Exec("insert into b_project_data (ProjectName, Description) values ('P', 'bench')");
    ready = true;
  }
  ~BenchServer() {
    if (raw) PQfinish(raw);
    petrodb::db::ClearConnectionPool();
    if (!database.empty() && !server.empty()) {
      CDbManage db(server.c_str());
      db.ExecuteSQL(petrodb::sql::Format("drop database if exists %s with (force)", database).c_str());
    }
  }
  void Exec(const std::string& text) { PQclear(PQexec(raw, text.c_str())); }
  void FillWells() {
    if (wellsFilled) return;
    wellsFilled = true;
    Exec("insert into w_well_data select 'G', 'G' || i, 'G' || i, 'oil', i * 1.5, i * 1.5, '1', 3, 10.5, 9.5, 2000 "
         "from generate_series(0, " + std::to_string(petrodb::bench::kGrowthWells - 1) + ") i");
  }
  bool wellsFilled = false;
  void FillMarkers() {
    if (markersFilled) return;
    markersFilled = true;
    Exec(std::string("insert into w_marker (Source, WellID, MarkerName, Description, TopMD, BottomMD) select '") +
         petrodb::bench::kMarkerSource + "', 'M' || w, 'K' || m, 'layer', 1000 + m * 10, 1005 + m * 10 from "
         "generate_series(0, " + std::to_string(petrodb::bench::kMarkerWells - 1) + ") w, generate_series(0, " +
         std::to_string(petrodb::bench::kMarkersPerWell - 1) + ") m");
  }
  bool markersFilled = false;
  void FillRows(int count) {
    Exec("truncate bench_rows");
    Exec("insert into bench_rows select 'P', 'W' || i, 'W' || i, 'oil', i * 1.5, i * 1.5, '1', 3, 10.5, 9.5, 2000 "
         "from generate_series(0, " + std::to_string(count - 1) + ") i");
  }
};

BenchServer* Server(benchmark::State& state) {
  static BenchServer server;
  if (!server.ready) {
    state.SkipWithError("no PostgreSQL server: set PETRODB_BENCH_PG to a server connection string");
    return nullptr;
  }
  return &server;
}

// 11-column rows: 10,000, 100,000 and 1,000,000 of them (the benchmark's argument).
void RowCounts(benchmark::internal::Benchmark* b) {
  // Each repetition runs at least 0.2 s of the timed work: a 10,000-row case is
  // then timed over some twenty runs instead of one, the largest over one.
  b->Unit(benchmark::kMillisecond)->MinTime(0.2)->Arg(10000)->Arg(100000)->Arg(1000000);
}

// One operation's session from the pool, against the same query on an open PGconn.
void PgSession_petrodb(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  std::string description;
  for (auto _ : state) {
    petrodb::bench::ReadOneField(p->connection, description);
    benchmark::DoNotOptimize(description);
  }
}
void PgSession_raw(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  std::string description;
  for (auto _ : state) {
    PGresult* r = PQexec(p->raw, "select * from b_project_data where ProjectName='P'");
    description = PQgetvalue(r, 0, PQfnumber(r, "description"));
    PQclear(r);
    benchmark::DoNotOptimize(description);
  }
}

// A 100,000-row save, against COPY of the same rows.
void PgSave_petrodb(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  const int count = static_cast<int>(state.range(0));
  const auto ids = petrodb::bench::WellIds(count);
  for (auto _ : state) {
    state.PauseTiming();
    // Emptied on petrodb's own connection, as the raw twin empties it on its own:
    // the server then has nothing to catch up on before the save.
    if (!CDbManage(p->connection.c_str()).ExecuteSQL("truncate bench_rows")) state.SkipWithError("truncate failed");
    state.ResumeTiming();
    if (!petrodb::bench::SaveRows(p->connection, ids)) state.SkipWithError("SaveData failed");
  }
  state.SetItemsProcessed(state.iterations() * count);
}
void PgSave_raw(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  const int count = static_cast<int>(state.range(0));
  const auto ids = petrodb::bench::WellIds(count);
  for (auto _ : state) {
    state.PauseTiming();
    p->Exec("truncate bench_rows");
    state.ResumeTiming();
    p->Exec("begin");
    PQclear(PQexec(p->raw, "copy bench_rows from stdin"));
    std::string buffer;
    char number[64];
    for (int i = 0; i < count; ++i) {
      std::snprintf(number, sizeof number, "%.17g", i * 1.5);
      buffer += "P\t" + ids[i] + "\t" + ids[i] + "\toil\t" + number + "\t" + number + "\t1\t3\t10.5\t9.5\t2000\n";
      if (buffer.size() >= (64 << 10)) {  // pieces as large as petrodb's
        PQputCopyData(p->raw, buffer.data(), static_cast<int>(buffer.size()));
        buffer.clear();
      }
    }
    PQputCopyData(p->raw, buffer.data(), static_cast<int>(buffer.size()));
    PQputCopyEnd(p->raw, nullptr);
    while (PGresult* r = PQgetResult(p->raw)) PQclear(r);
    p->Exec("commit");
  }
  state.SetItemsProcessed(state.iterations() * count);
}

using petrodb::bench::Row;

// Reading 100,000 rows by column name, against PQgetvalue by index.
void PgRead_petrodb(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  const int count = static_cast<int>(state.range(0));
  p->FillRows(count);
  // Kept across repetitions, as on the raw side: the rows' memory is the caller's.
  static std::vector<Row> rows;
  for (auto _ : state) {
    petrodb::bench::ReadRows(p->connection, rows);
    if (rows.size() != static_cast<std::size_t>(count)) state.SkipWithError("rows lost");
  }
  state.SetItemsProcessed(state.iterations() * count);
}
void PgRead_raw(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  const int count = static_cast<int>(state.range(0));
  p->FillRows(count);
  static std::vector<Row> rows;
  for (auto _ : state) {
    rows.clear();
    PGresult* res = PQexec(p->raw, "select * from bench_rows");
    const int n = PQntuples(res);
    for (int i = 0; i < n; ++i) {
      Row r;
      r.project = PQgetvalue(res, i, 0);
      r.id = PQgetvalue(res, i, 1);
      r.name = PQgetvalue(res, i, 2);
      r.type = PQgetvalue(res, i, 3);
      // Numbers parsed as fast as the library can (no locale).
      auto number = [&](int column, auto& out) {
        const char* text = PQgetvalue(res, i, column);
        std::from_chars(text, text + PQgetlength(res, i, column), out);
      };
      number(4, r.sn);
      number(5, r.ew);
      r.flag = PQgetvalue(res, i, 6)[0];
      number(7, r.symbol);
      number(8, r.kb);
      number(9, r.ekb);
      number(10, r.depth);
      rows.push_back(std::move(r));
    }
    PQclear(res);
    if (rows.size() != static_cast<std::size_t>(count)) state.SkipWithError("rows lost");
  }
  state.SetItemsProcessed(state.iterations() * count);
}

// An 8 MB array written and read back, against a raw binary bytea round trip.
void PgArray_petrodb(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  std::vector<double> values(kArray, 1.25), back;
  for (auto _ : state) {
    petrodb::bench::ArrayRoundTrip(p->connection, values, back);
    if (back.size() != values.size()) state.SkipWithError("array lost");
  }
  state.SetBytesProcessed(state.iterations() * kArray * sizeof(double) * 2);
}
void PgArray_raw(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  std::vector<double> values(kArray, 1.25), back;
  for (auto _ : state) {
    p->Exec("delete from bench_arrays");
    const char* params[] = {reinterpret_cast<const char*>(values.data())};
    const int lengths[] = {static_cast<int>(values.size() * sizeof(double))};
    const int formats[] = {1};
    const Oid types[] = {17};
    PQclear(PQexecParams(p->raw, "insert into bench_arrays (Name, Data) values ('a', $1)", 1, types, params, lengths,
                         formats, 0));
    PGresult* r = PQexecParams(p->raw, "select * from bench_arrays", 0, nullptr, nullptr, nullptr, nullptr, 1);
    const int bytes = PQgetlength(r, 0, 1);
    back.resize(bytes / sizeof(double));
    std::memcpy(back.data(), PQgetvalue(r, 0, 1), bytes);
    PQclear(r);
    if (back.size() != values.size()) state.SkipWithError("array lost");
  }
  state.SetBytesProcessed(state.iterations() * kArray * sizeof(double) * 2);
}

// Every well of a 10,000-well project loaded, against the same select read by index.
void PgLoadWells_petrodb(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  p->FillWells();
  petrodb::bench::TimeLoadWells(state, p->connection);
}
void PgLoadWells_raw(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  p->FillWells();
  std::vector<WellRecord> records;
  for (auto _ : state) {
    records.clear();
    PGresult* res = PQexec(p->raw, "select * from w_well_data where ProjectName = 'G'");
    const int n = PQntuples(res);
    for (int i = 0; i < n; ++i) {
      WellRecord r;
      r.WellID = PQgetvalue(res, i, 1);
      r.WellName = PQgetvalue(res, i, 2);
      r.WellType = PQgetvalue(res, i, 3);
      r.Well_SN = std::strtod(PQgetvalue(res, i, 4), nullptr);
      r.Well_EW = std::strtod(PQgetvalue(res, i, 5), nullptr);
      r.WellFlag = PQgetvalue(res, i, 6)[0];
      r.WellSymbol = static_cast<int>(std::strtol(PQgetvalue(res, i, 7), nullptr, 10));
      r.Kb = std::strtod(PQgetvalue(res, i, 8), nullptr);
      r.Ekb = std::strtod(PQgetvalue(res, i, 9), nullptr);
      r.WellDepth = std::strtod(PQgetvalue(res, i, 10), nullptr);
      records.push_back(std::move(r));
    }
    PQclear(res);
    if (records.size() != petrodb::bench::kGrowthWells) state.SkipWithError("wells lost");
  }
}

// A well's 20 curves of 50,000 samples saved and loaded again, against libpq
// replacing the same rows in one transaction and reading them back in binary.
constexpr int kSamples = petrodb::bench::kLogSamples;
void PgWellLog_petrodb(benchmark::State& state) {
  if (BenchServer* p = Server(state)) petrodb::bench::TimeWellLog(state, p->connection);
}
void PgWellLog_raw(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  const WellLog log = petrodb::bench::MakeLog("L", kSamples);
  std::vector<std::vector<double>> back;
  for (auto _ : state) {
    p->Exec("begin");
    p->Exec("delete from w_log_data where WellID = 'L'");
    for (const auto& c : log.Curves) {
      const char* params[] = {c.CurveName.c_str(), c.Measure.c_str(), reinterpret_cast<const char*>(c.Values.data())};
      const int lengths[] = {0, 0, static_cast<int>(c.Values.size() * sizeof(double))};
      const int formats[] = {0, 0, 1};
      PQclear(PQexecParams(p->raw,
                           "insert into w_log_data (WellID, CurveName, Measure, DepthCurveName, NullValue, CurveValue) "
                           "values ('L', $1, $2, 'DEPT', -999.25, $3)",
                           3, nullptr, params, lengths, formats, 0));
    }
    p->Exec("commit");
    back.clear();
    PGresult* r = PQexecParams(p->raw, "select * from w_log_data where WellID = 'L'", 0, nullptr, nullptr, nullptr,
                               nullptr, 1);
    const int column = PQfnumber(r, "curvevalue");
    for (int i = 0; i < PQntuples(r); ++i) {
      const auto* data = reinterpret_cast<const double*>(PQgetvalue(r, i, column));
      back.emplace_back(data, data + PQgetlength(r, i, column) / sizeof(double));
    }
    PQclear(r);
    if (back.size() != 20) state.SkipWithError("log lost");
  }
}

// Every marker of 1,000 wells loaded, against the same select read by index.
using petrodb::bench::kAllMarkers;
void PgLoadMarkers_petrodb(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  p->FillMarkers();
  petrodb::bench::TimeLoadMarkers(state, p->connection);
}
void PgLoadMarkers_raw(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  p->FillMarkers();
  const std::string text = petrodb::bench::MarkersOfWellsText();
  std::vector<MarkerRecord> records;
  for (auto _ : state) {
    records.clear();
    PGresult* res = PQexec(p->raw, text.c_str());
    for (int i = 0; i < PQntuples(res); ++i) {
      MarkerRecord r;
      r.WellID = PQgetvalue(res, i, 1);
      r.MarkerName = PQgetvalue(res, i, 2);
      r.Description = PQgetvalue(res, i, 3);
      r.TopMD = std::strtod(PQgetvalue(res, i, 4), nullptr);
      r.BottomMD = std::strtod(PQgetvalue(res, i, 5), nullptr);
      records.push_back(std::move(r));
    }
    PQclear(res);
    if (records.size() != kAllMarkers) state.SkipWithError("markers lost");
  }
}

// A 20,000-node network replaced and loaded again, against libpq running the
// same delete, inserts (one prepared statement) and select; the hierarchy is not timed.
void PgNetwork_petrodb(benchmark::State& state) {
  if (BenchServer* p = Server(state)) petrodb::bench::TimeNetwork(state, p->connection);
}
void PgNetwork_raw(benchmark::State& state) {
  BenchServer* p = Server(state);
  if (!p) return;
  const auto network = petrodb::bench::MakeNetwork();
  std::vector<NodeRecord> back;
  PQclear(PQprepare(p->raw, "bench_node", petrodb::bench::kInsertNode, 5, nullptr));
  for (auto _ : state) {
    p->Exec("begin");
    p->Exec("delete from n_nodes where PipenetName = 'net'");
    for (const auto& n : network) {
      char x[32], y[32], type[16];
      std::snprintf(x, sizeof x, "%.17g", n.NodeX);
      std::snprintf(y, sizeof y, "%.17g", n.NodeY);
      std::snprintf(type, sizeof type, "%d", n.NodeType);
      const char* params[] = {n.NodeName.c_str(), x, y, type, n.ParentNodeName.c_str()};
      PQclear(PQexecPrepared(p->raw, "bench_node", 5, params, nullptr, nullptr, 0));
    }
    p->Exec("commit");
    back.clear();
    PGresult* res = PQexec(p->raw, "select * from n_nodes where PipenetName = 'net' order by NodeType");
    for (int i = 0; i < PQntuples(res); ++i) {
      NodeRecord n;
      n.PipenetName = PQgetvalue(res, i, 0);
      n.NodeName = PQgetvalue(res, i, 1);
      n.NodeX = std::strtod(PQgetvalue(res, i, 2), nullptr);
      n.NodeY = std::strtod(PQgetvalue(res, i, 3), nullptr);
      n.NodeZ = std::strtod(PQgetvalue(res, i, 4), nullptr);
      n.NodeType = static_cast<int>(std::strtol(PQgetvalue(res, i, 5), nullptr, 10));
      n.NodeColor = static_cast<int>(std::strtol(PQgetvalue(res, i, 6), nullptr, 10));
      n.ParentNodeName = PQgetvalue(res, i, 7);
      n.Memo = PQgetvalue(res, i, 8);
      n.CoorelateData = PQgetvalue(res, i, 9);
      n.BoundaryCondition = PQgetvalue(res, i, 10);
      back.push_back(std::move(n));
    }
    PQclear(res);
    if (back.size() != network.size()) state.SkipWithError("nodes lost");
  }
}

BENCHMARK(PgNetwork_petrodb)->Name("PgNetwork20kNodes/petrodb")->Unit(benchmark::kMillisecond);
BENCHMARK(PgNetwork_raw)->Name("PgNetwork20kNodes/raw")->Unit(benchmark::kMillisecond);
BENCHMARK(PgLoadMarkers_petrodb)->Name("PgLoadMarkers1000Wells/petrodb")->Unit(benchmark::kMillisecond);
BENCHMARK(PgLoadMarkers_raw)->Name("PgLoadMarkers1000Wells/raw")->Unit(benchmark::kMillisecond);
BENCHMARK(PgLoadWells_petrodb)->Name("PgLoadWells10k/petrodb")->Unit(benchmark::kMillisecond);
BENCHMARK(PgLoadWells_raw)->Name("PgLoadWells10k/raw")->Unit(benchmark::kMillisecond);
BENCHMARK(PgWellLog_petrodb)->Name("PgWellLog20x50k/petrodb")->Unit(benchmark::kMillisecond);
BENCHMARK(PgWellLog_raw)->Name("PgWellLog20x50k/raw")->Unit(benchmark::kMillisecond);
BENCHMARK(PgSession_petrodb)->Name("PgSession/petrodb");
BENCHMARK(PgSession_raw)->Name("PgSession/raw");
BENCHMARK(PgSave_petrodb)->Name("PgSaveRows/petrodb")->Apply(RowCounts);
BENCHMARK(PgSave_raw)->Name("PgSaveRows/raw")->Apply(RowCounts);
BENCHMARK(PgRead_petrodb)->Name("PgReadRowsByName/petrodb")->Apply(RowCounts);
BENCHMARK(PgRead_raw)->Name("PgReadRowsByName/raw")->Apply(RowCounts);
BENCHMARK(PgArray_petrodb)->Name("PgArray8MB/petrodb")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(PgArray_raw)->Name("PgArray8MB/raw")->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
#endif
