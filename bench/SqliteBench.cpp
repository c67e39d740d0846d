// Local project files: the session against the SQLite C API.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "dbaccess/DataObject.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Pool.h"
#include "Workloads.h"
#include "petrodb/Host.h"
#include "petrodb/IDataFactory.h"

namespace {

namespace fs = std::filesystem;

constexpr int kArray = 1000000;


// One project file for the whole run, made from the template with a wide table.
struct BenchProject {
  std::string file, connection;
  sqlite3* raw = nullptr;

  BenchProject() {
    const fs::path dir = fs::temp_directory_path() / ("petrodb-bench-" + std::to_string(::getpid()));
    fs::create_directories(dir);
    file = (dir / "Bench.mdb").string();
    fs::copy_file(fs::path(petrodb::ProgramDirectory()) / "Projects.mdb", file, fs::copy_options::overwrite_existing);
    connection = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file;
    sqlite3_open(file.c_str(), &raw);
    sqlite3_exec(raw,
                 "pragma journal_mode=wal; pragma synchronous=full;"
                 "create table bench_rows (ProjectName text collate nocase, WellID text collate nocase, WellName text "
                 "collate nocase, WellType text collate nocase, Well_SN real, Well_EW real, WellFlag text, WellSymbol "
                 "integer, Kb real, Ekb real, WellDepth real);"
                 "create table bench_arrays (Name text, Data blob);",
                 nullptr, nullptr, nullptr);
    sqlite3_exec(raw, "insert into b_project_data (ProjectName, Description) values ('P', 'bench')", nullptr,
                 nullptr, nullptr);
  }
  ~BenchProject() {
    petrodb::db::ClearConnectionPool();
    sqlite3_close(raw);
    fs::remove_all(fs::path(file).parent_path());
  }
  int filled = 0;  // rows FillRows left in bench_rows
  void Clear(const char* table) {
    if (std::string(table) == "bench_rows") filled = 0;
    sqlite3_exec(raw, (std::string("delete from ") + table).c_str(), nullptr, nullptr, nullptr);
  }
  void FillRows(int count) {
    if (filled == count) return;
    filled = count;
    Clear("bench_rows");
    sqlite3_exec(raw, "begin", nullptr, nullptr, nullptr);
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(raw, "insert into bench_rows values ('P', ?1, ?1, 'oil', ?2, ?2, '1', 3, 10.5, 9.5, 2000)", -1,
                       &s, nullptr);
    for (int i = 0; i < count; ++i) {
      const std::string id = "W" + std::to_string(i);
      sqlite3_bind_text(s, 1, id.c_str(), -1, SQLITE_TRANSIENT);
      sqlite3_bind_double(s, 2, i * 1.5);
      sqlite3_step(s);
      sqlite3_reset(s);
    }
    sqlite3_finalize(s);
    sqlite3_exec(raw, "commit", nullptr, nullptr, nullptr);
  }
};

BenchProject& Project() {
  static BenchProject project;
  return project;
}

// An operation's session: take from the pool, one select, read a row, return.
void Session_petrodb(benchmark::State& state) {
  auto& p = Project();
  std::string description;
  for (auto _ : state) {
    petrodb::bench::ReadOneField(p.connection, description);
    benchmark::DoNotOptimize(description);
  }
}
void Session_raw(benchmark::State& state) {
  auto& p = Project();
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(p.raw, "select * from b_project_data where ProjectName='P'", -1, &s, nullptr);
  std::string description;
  for (auto _ : state) {
    sqlite3_step(s);
    description = reinterpret_cast<const char*>(sqlite3_column_text(s, 1));
    sqlite3_reset(s);
    benchmark::DoNotOptimize(description);
  }
  sqlite3_finalize(s);
}

// BeginSaveData, AddNew x 100,000, SaveData of 11-column rows.
// The row count is the benchmark's argument: time per row should not grow with it.
void SaveBatch_petrodb(benchmark::State& state) {
  auto& p = Project();
  const int count = static_cast<int>(state.range(0));
  const auto ids = petrodb::bench::WellIds(count);
  for (auto _ : state) {
    state.PauseTiming();
    // Emptied through petrodb's own connection, as the raw twin empties it through
    // its own: neither finds its page cache stale from the other's delete.
    p.filled = 0;
    if (!CDbManage(p.connection.c_str()).ExecuteSQL("delete from bench_rows")) state.SkipWithError("delete failed");
    state.ResumeTiming();
    if (!petrodb::bench::SaveRows(p.connection, ids)) state.SkipWithError("SaveData failed");
  }
  state.SetItemsProcessed(state.iterations() * count);
}
void SaveBatch_raw(benchmark::State& state) {
  auto& p = Project();
  const int count = static_cast<int>(state.range(0));
  const auto ids = petrodb::bench::WellIds(count);
  // Prepared once, as petrodb keeps its prepared inserts from save to save.
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(p.raw, "insert into bench_rows values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)", -1, &s, nullptr);
  for (auto _ : state) {
    state.PauseTiming();
    p.Clear("bench_rows");
    state.ResumeTiming();
    sqlite3_exec(p.raw, "begin immediate", nullptr, nullptr, nullptr);
    for (int i = 0; i < count; ++i) {
      sqlite3_bind_text(s, 1, "P", -1, SQLITE_STATIC);
      sqlite3_bind_text(s, 2, ids[i].c_str(), static_cast<int>(ids[i].size()), SQLITE_STATIC);
      sqlite3_bind_text(s, 3, ids[i].c_str(), static_cast<int>(ids[i].size()), SQLITE_STATIC);
      sqlite3_bind_text(s, 4, "oil", -1, SQLITE_STATIC);
      sqlite3_bind_double(s, 5, i * 1.5);
      sqlite3_bind_double(s, 6, i * 1.5);
      sqlite3_bind_text(s, 7, "1", 1, SQLITE_STATIC);
      sqlite3_bind_int(s, 8, 3);
      sqlite3_bind_double(s, 9, 10.5);
      sqlite3_bind_double(s, 10, 9.5);
      sqlite3_bind_double(s, 11, 2000.0);
      sqlite3_step(s);
      sqlite3_reset(s);
    }
    sqlite3_exec(p.raw, "commit", nullptr, nullptr, nullptr);
  }
  sqlite3_finalize(s);
  state.SetItemsProcessed(state.iterations() * count);
}

using petrodb::bench::Row;

// Reading 100,000 rows by column name, against reading them by index.
void ReadRows_petrodb(benchmark::State& state) {
  auto& p = Project();
  const int count = static_cast<int>(state.range(0));
  p.FillRows(count);
  // Kept across repetitions, as on the raw side: the rows' memory is the caller's.
  static std::vector<Row> rows;
  for (auto _ : state) {
    petrodb::bench::ReadRows(p.connection, rows);
    benchmark::DoNotOptimize(rows.data());
  }
  state.SetItemsProcessed(state.iterations() * count);
}
void ReadRows_raw(benchmark::State& state) {
  auto& p = Project();
  const int count = static_cast<int>(state.range(0));
  p.FillRows(count);
  static std::vector<Row> rows;
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(p.raw, "select * from bench_rows", -1, &s, nullptr);
  auto text = [&](int i) { return std::string(reinterpret_cast<const char*>(sqlite3_column_text(s, i))); };
  for (auto _ : state) {
    rows.clear();
    while (sqlite3_step(s) == SQLITE_ROW) {
      Row r;
      r.project = text(0);
      r.id = text(1);
      r.name = text(2);
      r.type = text(3);
      r.sn = sqlite3_column_double(s, 4);
      r.ew = sqlite3_column_double(s, 5);
      r.flag = text(6)[0];
      r.symbol = sqlite3_column_int(s, 7);
      r.kb = sqlite3_column_double(s, 8);
      r.ekb = sqlite3_column_double(s, 9);
      r.depth = sqlite3_column_double(s, 10);
      rows.push_back(std::move(r));
    }
    sqlite3_reset(s);
    benchmark::DoNotOptimize(rows.data());
  }
  sqlite3_finalize(s);
  state.SetItemsProcessed(state.iterations() * count);
}

// A 1,000,000-double array written and read back.
void Array_petrodb(benchmark::State& state) {
  auto& p = Project();
  std::vector<double> values(kArray, 1.25), back;
  for (auto _ : state) {
    petrodb::bench::ArrayRoundTrip(p.connection, values, back);
    if (back.size() != values.size()) state.SkipWithError("array lost");
  }
  state.SetBytesProcessed(state.iterations() * kArray * sizeof(double) * 2);
}
void Array_raw(benchmark::State& state) {
  auto& p = Project();
  std::vector<double> values(kArray, 1.25), back;
  for (auto _ : state) {
    sqlite3_exec(p.raw, "delete from bench_arrays", nullptr, nullptr, nullptr);
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(p.raw, "insert into bench_arrays (Name, Data) values ('a', ?)", -1, &s, nullptr);
    sqlite3_exec(p.raw, "begin immediate", nullptr, nullptr, nullptr);
    sqlite3_bind_blob64(s, 1, values.data(), values.size() * sizeof(double), SQLITE_STATIC);
    sqlite3_step(s);
    sqlite3_exec(p.raw, "commit", nullptr, nullptr, nullptr);
    sqlite3_finalize(s);
    sqlite3_prepare_v2(p.raw, "select * from bench_arrays", -1, &s, nullptr);
    sqlite3_step(s);
    const int bytes = sqlite3_column_bytes(s, 1);
    back.resize(bytes / sizeof(double));
    std::memcpy(back.data(), sqlite3_column_blob(s, 1), bytes);
    sqlite3_finalize(s);
    if (back.size() != values.size()) state.SkipWithError("array lost");
  }
  state.SetBytesProcessed(state.iterations() * kArray * sizeof(double) * 2);
}

// Replacing one record by key: the petrodb operation (probe, delete, insert)
// against the raw engine doing the delete and the insert in one transaction.
void Replace_petrodb(benchmark::State& state) {
  auto& p = Project();
  IDataFactory* factory = CreateDataFactoryObject();
  std::unique_ptr<IAliasData> aliases(static_cast<IAliasData*>(factory->CreateObject("IAliasData")));
  aliases->SetConnection(p.connection.c_str());
  int round = 0;
  for (auto _ : state)
    if (!petrodb::bench::ReplaceAlias(*aliases, ++round)) state.SkipWithError("replace failed");
  aliases.reset();
  DeleteDataFactory(factory);
}
void Replace_raw(benchmark::State& state) {
  auto& p = Project();
  sqlite3_stmt* probe = nullptr;
  sqlite3_stmt* remove = nullptr;
  sqlite3_stmt* insert = nullptr;
  sqlite3_prepare_v2(p.raw, "select * from b_image_alias", -1, &probe, nullptr);
  sqlite3_prepare_v2(p.raw, "delete from b_image_alias where AliasName='sand'", -1, &remove, nullptr);
  sqlite3_prepare_v2(p.raw, "insert into b_image_alias (AliasName, ImageType, ImageFacet, ImageName) values (?, ?, ?, ?)",
                     -1, &insert, nullptr);
  int round = 0;
  for (auto _ : state) {
    sqlite3_step(probe);
    sqlite3_reset(probe);
    sqlite3_exec(p.raw, "begin immediate", nullptr, nullptr, nullptr);
    sqlite3_step(remove);
    sqlite3_reset(remove);
    sqlite3_bind_text(insert, 1, "sand", -1, SQLITE_STATIC);
    sqlite3_bind_int(insert, 2, 1);
    sqlite3_bind_int(insert, 3, ++round);
    sqlite3_bind_text(insert, 4, "sandstone", -1, SQLITE_STATIC);
    sqlite3_step(insert);
    sqlite3_reset(insert);
    sqlite3_exec(p.raw, "commit", nullptr, nullptr, nullptr);
  }
  sqlite3_finalize(probe);
  sqlite3_finalize(remove);
  sqlite3_finalize(insert);
}

// Every well of a 10,000-well project loaded, against the same select read by index.
void FillWells(BenchProject& p) {
  static bool filled = false;
  if (filled) return;
  filled = true;
  sqlite3_exec(p.raw, "begin", nullptr, nullptr, nullptr);
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(p.raw, petrodb::bench::kFillWells, -1, &s, nullptr);
  for (int i = 0; i < petrodb::bench::kGrowthWells; ++i) {
    const std::string id = "G" + std::to_string(i);
    sqlite3_bind_text(s, 1, id.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_double(s, 2, i * 1.5);
    sqlite3_step(s);
    sqlite3_reset(s);
  }
  sqlite3_finalize(s);
  sqlite3_exec(p.raw, "commit", nullptr, nullptr, nullptr);
}
void LoadWells_petrodb(benchmark::State& state) {
  auto& p = Project();
  FillWells(p);
  petrodb::bench::TimeLoadWells(state, p.connection);
}
void LoadWells_raw(benchmark::State& state) {
  auto& p = Project();
  FillWells(p);
  std::vector<WellRecord> records;
  auto text = [](sqlite3_stmt* s, int i) { return std::string(reinterpret_cast<const char*>(sqlite3_column_text(s, i))); };
  for (auto _ : state) {
    records.clear();
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(p.raw, "select * from w_well_data where ProjectName = 'G'", -1, &s, nullptr);
    while (sqlite3_step(s) == SQLITE_ROW) {
      WellRecord r;
      r.WellID = text(s, 1);
      r.WellName = text(s, 2);
      r.WellType = text(s, 3);
      r.Well_SN = sqlite3_column_double(s, 4);
      r.Well_EW = sqlite3_column_double(s, 5);
      r.WellFlag = text(s, 6)[0];
      r.WellSymbol = sqlite3_column_int(s, 7);
      r.Kb = sqlite3_column_double(s, 8);
      r.Ekb = sqlite3_column_double(s, 9);
      r.WellDepth = sqlite3_column_double(s, 10);
      records.push_back(std::move(r));
    }
    sqlite3_finalize(s);
    if (records.size() != petrodb::bench::kGrowthWells) state.SkipWithError("wells lost");
  }
}

// A well's 20 curves of 50,000 samples saved and loaded again, against the raw
// engine replacing the same rows in one transaction and reading them back.
constexpr int kSamples = petrodb::bench::kLogSamples;
void WellLog_petrodb(benchmark::State& state) { petrodb::bench::TimeWellLog(state, Project().connection); }
void WellLog_raw(benchmark::State& state) {
  auto& p = Project();
  const WellLog log = petrodb::bench::MakeLog("L", kSamples);
  std::vector<std::vector<double>> back;
  for (auto _ : state) {
    sqlite3_exec(p.raw, "begin immediate", nullptr, nullptr, nullptr);
    sqlite3_exec(p.raw, "delete from w_log_data where WellID = 'L'", nullptr, nullptr, nullptr);
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(p.raw,
                       "insert into w_log_data (WellID, CurveName, Measure, DepthCurveName, NullValue, CurveValue) "
                       "values ('L', ?, ?, 'DEPT', -999.25, ?)",
                       -1, &s, nullptr);
    for (const auto& c : log.Curves) {
      sqlite3_bind_text(s, 1, c.CurveName.c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_text(s, 2, c.Measure.c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_blob64(s, 3, c.Values.data(), c.Values.size() * sizeof(double), SQLITE_STATIC);
      sqlite3_step(s);
      sqlite3_reset(s);
    }
    sqlite3_finalize(s);
    sqlite3_exec(p.raw, "commit", nullptr, nullptr, nullptr);
    back.clear();
    sqlite3_prepare_v2(p.raw, "select * from w_log_data where WellID = 'L'", -1, &s, nullptr);
    while (sqlite3_step(s) == SQLITE_ROW) {
      const auto* data = static_cast<const double*>(sqlite3_column_blob(s, 5));
      back.emplace_back(data, data + sqlite3_column_bytes(s, 5) / sizeof(double));
    }
    sqlite3_finalize(s);
    if (back.size() != 20) state.SkipWithError("log lost");
  }
}

// Every marker of 1,000 wells loaded, against the same select read by index.
void FillMarkers(BenchProject& p) {
  static bool filled = false;
  if (filled) return;
  filled = true;
  sqlite3_exec(p.raw, "begin", nullptr, nullptr, nullptr);
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(p.raw,
                     "insert into w_marker (Source, WellID, MarkerName, Description, TopMD, BottomMD) "
                     "values (?1, ?2, ?3, 'layer', ?4, ?4 + 5)",
                     -1, &s, nullptr);
  for (const auto& id : petrodb::bench::MarkerWellIds())
    for (int m = 0; m < petrodb::bench::kMarkersPerWell; ++m) {
      const std::string name = "K" + std::to_string(m);
      sqlite3_bind_text(s, 1, petrodb::bench::kMarkerSource, -1, SQLITE_STATIC);
      sqlite3_bind_text(s, 2, id.c_str(), -1, SQLITE_TRANSIENT);
      sqlite3_bind_text(s, 3, name.c_str(), -1, SQLITE_TRANSIENT);
      sqlite3_bind_double(s, 4, 1000 + m * 10.0);
      sqlite3_step(s);
      sqlite3_reset(s);
    }
  sqlite3_finalize(s);
  sqlite3_exec(p.raw, "commit", nullptr, nullptr, nullptr);
}
using petrodb::bench::kAllMarkers;
void LoadMarkers_petrodb(benchmark::State& state) {
  auto& p = Project();
  FillMarkers(p);
  petrodb::bench::TimeLoadMarkers(state, p.connection);
}
void LoadMarkers_raw(benchmark::State& state) {
  auto& p = Project();
  FillMarkers(p);
  const std::string text = petrodb::bench::MarkersOfWellsText();
  std::vector<MarkerRecord> records;
  auto column = [](sqlite3_stmt* s, int i) { return std::string(reinterpret_cast<const char*>(sqlite3_column_text(s, i))); };
  for (auto _ : state) {
    records.clear();
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(p.raw, text.c_str(), -1, &s, nullptr);
    while (sqlite3_step(s) == SQLITE_ROW) {
      MarkerRecord r;
      r.WellID = column(s, 1);
      r.MarkerName = column(s, 2);
      r.Description = column(s, 3);
      r.TopMD = sqlite3_column_double(s, 4);
      r.BottomMD = sqlite3_column_double(s, 5);
      records.push_back(std::move(r));
    }
    sqlite3_finalize(s);
    if (records.size() != kAllMarkers) state.SkipWithError("markers lost");
  }
}

// A 20,000-node network replaced and loaded again, against the raw engine
// running the same delete, inserts and select (the hierarchy petrodb then
// answers from has no raw twin and is not timed).
void Network_petrodb(benchmark::State& state) { petrodb::bench::TimeNetwork(state, Project().connection); }
void Network_raw(benchmark::State& state) {
  auto& p = Project();
  const auto network = petrodb::bench::MakeNetwork();
  std::vector<NodeRecord> back;
  auto text = [](sqlite3_stmt* s, int i) { return std::string(reinterpret_cast<const char*>(sqlite3_column_text(s, i))); };
  for (auto _ : state) {
    sqlite3_exec(p.raw, "begin immediate", nullptr, nullptr, nullptr);
    sqlite3_exec(p.raw, "delete from n_nodes where PipenetName = 'net'", nullptr, nullptr, nullptr);
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(p.raw, petrodb::bench::kInsertNode, -1, &s, nullptr);
    for (const auto& n : network) {
      sqlite3_bind_text(s, 1, n.NodeName.c_str(), static_cast<int>(n.NodeName.size()), SQLITE_STATIC);
      sqlite3_bind_double(s, 2, n.NodeX);
      sqlite3_bind_double(s, 3, n.NodeY);
      sqlite3_bind_int(s, 4, n.NodeType);
      sqlite3_bind_text(s, 5, n.ParentNodeName.c_str(), static_cast<int>(n.ParentNodeName.size()), SQLITE_STATIC);
      sqlite3_step(s);
      sqlite3_reset(s);
    }
    sqlite3_finalize(s);
    sqlite3_exec(p.raw, "commit", nullptr, nullptr, nullptr);
    back.clear();
    sqlite3_prepare_v2(p.raw, "select * from n_nodes where PipenetName = 'net' order by NodeType", -1, &s, nullptr);
    while (sqlite3_step(s) == SQLITE_ROW) {
      NodeRecord n;
      n.PipenetName = text(s, 0);
      n.NodeName = text(s, 1);
      n.NodeX = sqlite3_column_double(s, 2);
      n.NodeY = sqlite3_column_double(s, 3);
      n.NodeZ = sqlite3_column_double(s, 4);
      n.NodeType = sqlite3_column_int(s, 5);
      n.NodeColor = sqlite3_column_int(s, 6);
      n.ParentNodeName = text(s, 7);
      n.Memo = text(s, 8);
      n.CoorelateData = text(s, 9);
      n.BoundaryCondition = text(s, 10);
      back.push_back(std::move(n));
    }
    sqlite3_finalize(s);
    if (back.size() != network.size()) state.SkipWithError("nodes lost");
  }
}

BENCHMARK(Network_petrodb)->Name("Network20kNodes/petrodb")->Unit(benchmark::kMillisecond);
BENCHMARK(Network_raw)->Name("Network20kNodes/raw")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadMarkers_petrodb)->Name("LoadMarkers1000Wells/petrodb")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadMarkers_raw)->Name("LoadMarkers1000Wells/raw")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadWells_petrodb)->Name("LoadWells10k/petrodb")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadWells_raw)->Name("LoadWells10k/raw")->Unit(benchmark::kMillisecond);
BENCHMARK(WellLog_petrodb)->Name("WellLog20x50k/petrodb")->Unit(benchmark::kMillisecond);
BENCHMARK(WellLog_raw)->Name("WellLog20x50k/raw")->Unit(benchmark::kMillisecond);
BENCHMARK(Replace_petrodb)->Name("Replace/petrodb")->Unit(benchmark::kMicrosecond);
BENCHMARK(Replace_raw)->Name("Replace/raw")->Unit(benchmark::kMicrosecond);
BENCHMARK(Session_petrodb)->Name("Session/petrodb");
BENCHMARK(Session_raw)->Name("Session/raw");
// 11-column rows: 10,000, 100,000 and 1,000,000 of them.
void RowCounts(benchmark::internal::Benchmark* b) {
  // Each repetition runs at least 0.2 s of the timed work: a 10,000-row case is
  // then timed over some twenty runs instead of one, the largest over one.
  b->Unit(benchmark::kMillisecond)->MinTime(0.2)->Arg(10000)->Arg(100000)->Arg(1000000);
}
BENCHMARK(SaveBatch_petrodb)->Name("SaveRows/petrodb")->Apply(RowCounts);
BENCHMARK(SaveBatch_raw)->Name("SaveRows/raw")->Apply(RowCounts);
BENCHMARK(ReadRows_petrodb)->Name("ReadRowsByName/petrodb")->Apply(RowCounts);
BENCHMARK(ReadRows_raw)->Name("ReadRowsByName/raw")->Apply(RowCounts);
BENCHMARK(Array_petrodb)->Name("Array1M/petrodb")->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(Array_raw)->Name("Array1M/raw")->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace
