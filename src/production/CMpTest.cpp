#include "petrodb/production/IMpTest.h"
#include "production/DailyReadings.h"

using namespace petrodb;
using namespace petrodb::production;

namespace {

// The network's stations are its nodes of type 0, its injection pumps those of type 5.
constexpr Pattern<"select * from d_mp_test where StaName ='%s' and PumpCode='%s' and Scrq=%s"> kLoad;
constexpr Pattern<"delete from d_mp_test where StaName='%s'and PumpCode='%s'and Scrq=%s"> kDelete;
constexpr Pattern<
    "delete from d_mp_test where StaName in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = 0 )">
    kDeleteOfNetwork;
constexpr Pattern<"delete from d_mp_test where StaName in (%s)"> kDeleteOfStations;
constexpr Pattern<"select * from d_mp_test"> kAll;
constexpr Pattern<"select * from d_mp_test where StaName = '%s' order by scrq desc,staname"> kHistory;
constexpr Pattern<"select * from d_mp_test where StaName like '%s%%' and Scrq between %sand %s order by scrq desc,staname">
    kLikeBetween;
// The column Jh is kept as written although the table keys by StaName: the
// statement cannot run.
constexpr Pattern<
    "select * from d_mp_test where Scrq = %s and Jh in ( select NodeName from n_nodes where PipenetName = '%s' and "
    "NodeType = 5 ) order by StaName, PumpCode">
    kOfNetworkAt;
constexpr Pattern<"select * from v_mp_test where StaName ='%s' and Scrq = %s"> kWithPumps;

// Derived from the injection wells' texts by putting d_mp_test for
// d_well_test, StaName for Jh and 0 for the node type 2.
constexpr Pattern<"select * from d_mp_test where StaName = '%s'"> kOfStation;
constexpr Pattern<"select StaName from  d_mp_test where StaName in (%s)"> kWithTests;
constexpr Pattern<
    "select * from d_mp_test where StaName in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = "
    "0 ) order by scrq desc,StaName">
    kOfNetwork;
constexpr Pattern<"delete from d_mp_test where StaName = '%s'"> kDeleteOfStation;
constexpr Pattern<
    "select distinct Scrq from d_mp_test where  StaName in ( select NodeName from n_nodes where PipenetName = '%s' "
    "and NodeType = 0 ) order by Scrq">
    kNetworkDates;

const ColumnTable<MpTestRecord> kColumns{"d_mp_test", {
    Col("StaName", &MpTestRecord::StaName),
    Col("PumpCode", &MpTestRecord::PumpCode),
    Col("Scrq", &MpTestRecord::Scrq),
    Col("Zsbll", &MpTestRecord::Zsbll),
    Col("Zsbckyl", &MpTestRecord::Zsbckyl),
    Col("Zsbjkyl", &MpTestRecord::Zsbjkyl),
    Col("Bcsxl", &MpTestRecord::Bcsxl),
}};

const ColumnTable<MpTestViewRecord> kViewColumns{"v_mp_test", {
    Col("StaName", &MpTestViewRecord::StaName),
    Col("PumpCode", &MpTestViewRecord::PumpCode),
    Col("Scrq", &MpTestViewRecord::Scrq),
    Col("Zsbll", &MpTestViewRecord::Zsbll),
    Col("Zsbckyl", &MpTestViewRecord::Zsbckyl),
    Col("Zsbjkyl", &MpTestViewRecord::Zsbjkyl),
    Col("Bcsxl", &MpTestViewRecord::Bcsxl),
    Col("PumpModel", &MpTestViewRecord::PumpModel),
    Col("RodDia", &MpTestViewRecord::RodDia),
}};

// The key's select serves both the load and the existence test.
const Readings<MpTestRecord> kPumps{
    .columns = kColumns,
    .keyOf = [](const MpTestRecord& r) { return ReadingKey{r.StaName.c_str(), r.PumpCode.c_str(), r.Scrq.c_str()}; },
    .loadOne = [](ReadingKey k) { return kLoad(k.node, k.pump, sql::Raw{k.date}); },
    .exists = [](ReadingKey k) { return kLoad(k.node, k.pump, sql::Raw{k.date}); },
    .deleteOne = [](ReadingKey k) { return kDelete(k.node, k.pump, sql::Raw{k.date}); },
    .emptyNode = ErrorMessage("注水站名称不能为空！"),
    .emptyPump = ErrorMessage("泵号不能为空！"),
    .emptyDate = ErrorMessage("生产日期不能为空！"),
    .tableMissing = ErrorMessage("注水站机泵日生产数据表为空！"),
};

}  // namespace

class CMpTest final : public CDailyReadings<IMpTest> {
 public:
  bool LoadMpTest(const char* sta, const char* pump, const char* date, MpTestRecord& record) override {
    return LoadReading(kPumps, {sta, pump, date}, record);
  }
  bool LoadMpTestsLikeBetween(const char* prefix, const char* date1, const char* date2,
                              std::vector<MpTestRecord>& records) override {
    return LoadReadings(kPumps, kLikeBetween(prefix, sql::Raw{date1}, sql::Raw{date2}), records);
  }
  bool LoadMpTestsOfStation(const char* sta, std::vector<MpTestRecord>& records) override {
    return LoadReadings(kPumps, kOfStation(sta), records);
  }
  bool LoadMpTestsOfStationByDate(const char* sta, std::vector<MpTestRecord>& records) override {
    return LoadReadings(kPumps, kHistory(sta), records);
  }
  bool LoadAllMpTests(std::vector<MpTestRecord>& records) override { return LoadReadings(kPumps, kAll(), records); }
  bool ListStationsWithMpTests(const std::vector<std::string>& names, std::vector<std::string>& stations) override {
    return ListNames(kWithTests(sql::QuoteEach(names)), "StaName", stations);
  }
  bool LoadPipenetMpTests(const char* net, std::vector<MpTestRecord>& records) override {
    return LoadReadings(kPumps, kOfNetwork(net), records);
  }
  bool LoadPipenetMpTestsAt(const char* net, const char* date, std::vector<MpTestRecord>& records) override {
    return LoadReadings(kPumps, kOfNetworkAt(sql::Raw{date}, net), records);
  }
  bool MpTestExists(const char* sta, const char* pump, const char* date) override {
    return ReadingExists(kPumps, {sta, pump, date});
  }
  bool SaveMpTest(const MpTestRecord& record) override { return SaveReading(kPumps, record); }
  bool SaveMpTestList(const std::vector<MpTestRecord>& records) override { return AppendReadings(kPumps, records); }
  bool SaveMpTests(const std::vector<MpTestRecord>& records) override { return ReplaceReadings(kPumps, records); }
  bool DeleteMpTest(const char* sta, const char* pump, const char* date) override {
    return Execute(kDelete(sta, pump, sql::Raw{date}));
  }
  bool DeleteMpTestsOfStation(const char* sta) override { return Execute(kDeleteOfStation(sta)); }
  bool DeletePipenetMpTests(const char* net) override { return DeleteInNetwork(net, kDeleteOfNetwork(net)); }
  bool DeleteMpTestsOfStations(const std::vector<std::string>& names) override {
    return Execute(kDeleteOfStations(sql::QuoteEach(names)));
  }
  bool ListPipenetTestDates(const char* net, std::vector<std::string>& dates) override {
    return ListNames(kNetworkDates(net), "Scrq", dates);
  }
  bool LoadMpTestsWithPumps(const char* sta, const char* date, std::vector<MpTestViewRecord>& records) override {
    return LoadAll(kWithPumps(sta, sql::Raw{date}), kViewColumns, records, Fill::Clear).found();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CMpTest, IMpTest)
