#pragma once
// The petrodb side of each benchmark, the same for every engine, so that the
// only difference between two engines' runs is the engine.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "dbaccess/DataObject.h"
#include "dbaccess/DbManage.h"
#include "petrodb/IDataFactory.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/network/INode.h"
#include "petrodb/welllog/IAliasData.h"
#include "petrodb/welllog/ILogData.h"
#include "petrodb/welllog/IMarkerData.h"

namespace petrodb::bench {

// An 11-column row shaped like a well record.
struct Row {
  std::string project, id, name, type;
  double sn = 0, ew = 0, kb = 0, ekb = 0, depth = 0;
  char flag = 0;
  int symbol = 0;
};

inline const ColumnTable<Row> kRowColumns{"bench_rows", {
    Col("ProjectName", &Row::project), Col("WellID", &Row::id), Col("WellName", &Row::name),
    Col("WellType", &Row::type), Col("Well_SN", &Row::sn), Col("Well_EW", &Row::ew), Col("WellFlag", &Row::flag),
    Col("WellSymbol", &Row::symbol), Col("Kb", &Row::kb), Col("Ekb", &Row::ekb), Col("WellDepth", &Row::depth),
}};

struct ArrayRow {
  std::string name;
  std::vector<double> data;
};
inline const ColumnTable<ArrayRow> kArrayColumns{"bench_arrays", {Col("Name", &ArrayRow::name), Col("Data", &ArrayRow::data)}};

inline std::vector<std::string> WellIds(int count) {
  std::vector<std::string> ids;
  for (int i = 0; i < count; ++i) ids.push_back("W" + std::to_string(i));
  return ids;
}

// One operation's session: take from the pool, one select, read a field, return.
inline void ReadOneField(const std::string& connection, std::string& description) {
  CDbManage db(connection.c_str());
  db.GetDataFromDB("select * from b_project_data where ProjectName='P'");
  db.GetFieldValue("Description", description);
}

// BeginSaveData, AddNew per id, SaveData into bench_rows.
inline bool SaveRows(const std::string& connection, const std::vector<std::string>& ids) {
  CDbManage db(connection.c_str());
  db.BeginSaveData("bench_rows");
  Row row{"P", "", "", "oil", 0, 0, 10.5, 9.5, 2000.0, '1', 3};
  for (std::size_t i = 0; i < ids.size(); ++i) {
    row.id = row.name = ids[i];
    row.sn = row.ew = i * 1.5;
    kRowColumns.AddRow(db, row);
  }
  return db.SaveData();
}

// Every row of bench_rows, read by column name.
inline void ReadRows(const std::string& connection, std::vector<Row>& rows) {
  rows.clear();
  CDbManage db(connection.c_str());
  ForEachRow(db, "select * from bench_rows", false, [&](CDbManage& d) {
    Row r;
    kRowColumns.Read(d, r);
    rows.push_back(std::move(r));
    return true;
  });
}

// One array written to bench_arrays and read back.
inline void ArrayRoundTrip(const std::string& connection, const std::vector<double>& values,
                           std::vector<double>& back) {
  {
    CDbManage db(connection.c_str());
    db.ExecuteSQL("delete from bench_arrays");
    db.BeginSaveData("bench_arrays");
    kArrayColumns.AddRow(db, ArrayRow{"a", values});
    db.SaveData();
  }
  CDbManage db(connection.c_str());
  db.GetDataFromDB("select * from bench_arrays", true);
  columns::ReadValue(db, "Data", back);
}

// An operation that replaces a record by key: probe, delete, insert.
inline bool ReplaceAlias(IAliasData& aliases, int round) {
  return aliases.SaveImageAlias(ImageAlias{"sand", 1, round, "sandstone"});
}

// A data object of the factory's making, on a connection, for a whole run.
template <class Interface>
struct DataObject {
  IDataFactory* factory = CreateDataFactoryObject();
  Interface* object;
  DataObject(const char* name, const std::string& connection)
      : object(static_cast<Interface*>(factory->CreateObject(name))) {
    object->SetConnection(connection.c_str());
  }
  ~DataObject() {
    delete object;
    DeleteDataFactory(factory);
  }
  Interface* operator->() { return object; }
};

// Projects with many wells: the wells of project "G", as the raw side stores them.
constexpr int kGrowthWells = 10000;
inline const char* const kFillWells =
    "insert into w_well_data (ProjectName, WellID, WellName, WellType, Well_SN, Well_EW, WellFlag, WellSymbol, Kb, "
    "Ekb, WellDepth) values ('G', ?1, ?1, 'oil', ?2, ?2, '1', 3, 10.5, 9.5, 2000)";

// The markers of 1,000 wells, ten each, in the layering's source: wells "M0".."M999".
constexpr int kMarkerWells = 1000;
constexpr int kMarkersPerWell = 10;
inline const char* const kMarkerSource = "\xe5\x9c\xb0\xe8\xb4\xa8\xe5\x88\x86\xe5\xb1\x82";
inline std::vector<std::string> MarkerWellIds() {
  std::vector<std::string> ids;
  for (int i = 0; i < kMarkerWells; ++i) ids.push_back("M" + std::to_string(i));
  return ids;
}
// The statement the load of every marker of those wells sends.
inline std::string MarkersOfWellsText() {
  std::string list;
  for (const auto& id : MarkerWellIds()) list += (list.empty() ? "'" : ", '") + id + "'";
  return std::string("select * from w_marker  where Source ='") + kMarkerSource + "'and WellID in (" + list +
         ") order by TopMD";
}

// A network of 20,000 nodes in a tree, four children a node: node 0 is the top.
constexpr int kNetworkNodes = 20000;
inline std::vector<NodeRecord> MakeNetwork() {
  std::vector<NodeRecord> nodes(kNetworkNodes);
  for (int i = 0; i < kNetworkNodes; ++i) {
    NodeRecord& n = nodes[i];
    n.PipenetName = "net";
    n.NodeName = "N" + std::to_string(i);
    n.NodeX = i * 0.5;
    n.NodeY = i * 0.25;
    n.NodeType = 1 + i % 5;
    n.ParentNodeName = i == 0 ? "-1" : "N" + std::to_string((i - 1) / 4);
  }
  return nodes;
}
inline const char* const kInsertNode =
    "insert into n_nodes (PipenetName, NodeName, NodeX, NodeY, NodeZ, NodeType, NodeColor, ParentNodeName, Memo, "
    "CoorelateData, BoundaryCondition) values ('net', $1, $2, $3, 0, $4, 0, $5, '', '', '')";

// A well's log: one depth curve and 19 curves that it indexes, `samples` each.
inline WellLog MakeLog(const std::string& well, int samples) {
  WellLog log;
  log.WellID = well;
  log.NullValue = -999.25;
  std::vector<std::string> depths;
  for (int c = 0; c < 20; ++c) {
    LogCurve curve;
    curve.CurveName = c == 0 ? "DEPT" : "C" + std::to_string(c);
    curve.Measure = c == 0 ? "m" : "api";
    curve.Values.resize(samples);
    for (int i = 0; i < samples; ++i) curve.Values[i] = c == 0 ? 1000 + i * 0.125 : c + i * 1e-3;
    log.Curves.push_back(std::move(curve));
    depths.push_back("DEPT");
  }
  log.Link(depths);
  return log;
}

// The petrodb side of the growth cases, timed the same way on every engine:
// the engine's file only fills the tables and names the connection.
inline constexpr int kLogSamples = 50000;
inline constexpr std::size_t kAllMarkers = static_cast<std::size_t>(kMarkerWells) * kMarkersPerWell;

inline void TimeLoadWells(benchmark::State& state, const std::string& connection) {
  DataObject<IBasicWellData> wells("IBasicWellData", connection);
  std::vector<WellRecord> records;
  for (auto _ : state)
    if (!wells->LoadProjectWells("G", records) || records.size() != kGrowthWells) state.SkipWithError("wells lost");
}

inline void TimeWellLog(benchmark::State& state, const std::string& connection) {
  DataObject<ILogData> logs("ILogData", connection);
  const WellLog log = MakeLog("L", kLogSamples);
  WellLog back;
  for (auto _ : state)
    if (!logs->SaveWellLog(log) || !logs->LoadWellLog("L", back) || back.Curves.size() != 20 ||
        back.Curves[19].Values.size() != static_cast<std::size_t>(kLogSamples))
      state.SkipWithError("log lost");
}

inline void TimeLoadMarkers(benchmark::State& state, const std::string& connection) {
  DataObject<IMarkerData> markers("IMarkerData", connection);
  const auto ids = MarkerWellIds();
  std::vector<MarkerRecord> records;
  for (auto _ : state) {
    records.clear();
    if (!markers->LoadMarkersOfWells(ids, records) || records.size() != kAllMarkers) state.SkipWithError("markers lost");
  }
}

// The network's rows are timed; its hierarchy is checked afterwards, untimed.
inline void TimeNetwork(benchmark::State& state, const std::string& connection) {
  DataObject<INode> nodes("INode", connection);
  const auto network = MakeNetwork();
  std::vector<NodeRecord> back;
  for (auto _ : state)
    if (!nodes->DeletePipenetNodes("net") || !nodes->SaveNodes("net", network) || !nodes->LoadNodes("net", back) ||
        back.size() != network.size())
      state.SkipWithError("nodes lost");
  std::vector<NodeRecord> top, children;
  if (!nodes->LoadTopNodes(top) || top.size() != 1 || !nodes->LoadChildNodes(top[0], children) || children.size() != 4)
    state.SkipWithError("hierarchy lost");
}

}  // namespace petrodb::bench
