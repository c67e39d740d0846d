#include "petrodb/production/IMpData.h"
#include "production/DailyReadings.h"

using namespace petrodb;
using namespace petrodb::production;

namespace {

// The network's stations are its nodes of type 0.
constexpr Pattern<"select * from t_mp_data where StaName ='%s' and PumpCode='%s' and Csrq=%s"> kLoad;
constexpr Pattern<"delete from t_mp_data where StaName='%s'and PumpCode='%s'and Csrq=%s"> kDelete;
constexpr Pattern<"delete from t_mp_data where StaName in (%s)"> kDeleteOfStations;
constexpr Pattern<"select * from t_mp_data where t_mp_data.StaName = '%s' order by Csrq desc,staname"> kHistory;
constexpr Pattern<"select * from t_mp_data"> kAll;
constexpr Pattern<"select * from t_mp_data where StaName like '%s%%' and Csrq between %sand %s"> kLikeBetween;
constexpr Pattern<
    "select * from t_mp_data where Csrq = %s and  StaName in ( select NodeName from  n_nodes where PipenetName = '%s' "
    "and  NodeType = 0)  order by StaName, PumpCode">
    kOfNetworkAt;
constexpr Pattern<"select distinct t_mp_data.StaName from t_mp_data"> kStations;
constexpr Pattern<"select distinct t_mp_data.Csrq from t_mp_data where t_mp_data.StaName = '%s' order by Csrq">
    kStationDates;

// Derived from the injection wells' texts by putting t_mp_data for
// d_well_test, StaName for Jh, Csrq for Scrq and 0 for the node type 2.
constexpr Pattern<"select * from t_mp_data where StaName = '%s'"> kOfStation;
constexpr Pattern<"select StaName from  t_mp_data where StaName in (%s)"> kWithTests;
constexpr Pattern<
    "select * from t_mp_data where StaName in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = "
    "0 ) order by csrq desc,StaName">
    kOfNetwork;
constexpr Pattern<"delete from t_mp_data where StaName = '%s'"> kDeleteOfStation;
constexpr Pattern<
    "delete from t_mp_data where StaName in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = 0 )">
    kDeleteOfNetwork;
constexpr Pattern<
    "select distinct Csrq from t_mp_data where  StaName in ( select NodeName from n_nodes where PipenetName = '%s' "
    "and NodeType = 0 ) order by Csrq">
    kNetworkDates;

const ColumnTable<MpDataRecord> kColumns{"t_mp_data", {
    Col("StaName", &MpDataRecord::StaName),
    Col("PumpCode", &MpDataRecord::PumpCode),
    Col("Csrq", &MpDataRecord::Csrq),
    Col("Bx", &MpDataRecord::Bx),
    Col("Zsbll", &MpDataRecord::Zsbll),
    Col("Zsbckyl", &MpDataRecord::Zsbckyl),
    Col("Zsbjkyl", &MpDataRecord::Zsbjkyl),
    Col("Pjwggl", &MpDataRecord::Pjwggl),
    Col("Pjsrgl", &MpDataRecord::Pjsrgl),
    Col("Pjcsdl", &MpDataRecord::Pjcsdl),
    Col("Djyxxl", &MpDataRecord::Djyxxl),
    Col("Djsrgl", &MpDataRecord::Djsrgl),
}};

// The key's select serves both the load and the existence test.
const Readings<MpDataRecord> kTests{
    .columns = kColumns,
    .keyOf = [](const MpDataRecord& r) { return ReadingKey{r.StaName.c_str(), r.PumpCode.c_str(), r.Csrq.c_str()}; },
    .loadOne = [](ReadingKey k) { return kLoad(k.node, k.pump, sql::Raw{k.date}); },
    .exists = [](ReadingKey k) { return kLoad(k.node, k.pump, sql::Raw{k.date}); },
    .deleteOne = [](ReadingKey k) { return kDelete(k.node, k.pump, sql::Raw{k.date}); },
    .emptyNode = ErrorMessage("注水站名称不能为空！"),
    .emptyPump = ErrorMessage("泵号不能为空！"),
    .emptyDate = ErrorMessage("测试日期不能为空！"),
    .tableMissing = ErrorMessage("注水站机泵测试数据表为空！"),
};

}  // namespace

class CMpData final : public CDailyReadings<IMpData> {
 public:
  bool LoadMpData(const char* sta, const char* pump, const char* date, MpDataRecord& record) override {
    return LoadReading(kTests, {sta, pump, date}, record);
  }
  bool LoadMpDataLikeBetween(const char* prefix, const char* date1, const char* date2,
                             std::vector<MpDataRecord>& records) override {
    return LoadReadings(kTests, kLikeBetween(prefix, sql::Raw{date1}, sql::Raw{date2}), records);
  }
  bool LoadMpDataOfStation(const char* sta, std::vector<MpDataRecord>& records) override {
    return LoadReadings(kTests, kOfStation(sta), records);
  }
  bool LoadMpDataOfStationByDate(const char* sta, std::vector<MpDataRecord>& records) override {
    return LoadReadings(kTests, kHistory(sta), records);
  }
  bool LoadAllMpData(std::vector<MpDataRecord>& records) override { return LoadReadings(kTests, kAll(), records); }
  bool ListStationsWithMpData(const std::vector<std::string>& names, std::vector<std::string>& stations) override {
    return ListNames(kWithTests(sql::QuoteEach(names)), "StaName", stations);
  }
  bool LoadPipenetMpData(const char* net, std::vector<MpDataRecord>& records) override {
    return LoadReadings(kTests, kOfNetwork(net), records);
  }
  bool LoadPipenetMpDataAt(const char* net, const char* date, std::vector<MpDataRecord>& records) override {
    return LoadReadings(kTests, kOfNetworkAt(sql::Raw{date}, net), records);
  }
  bool MpDataExists(const char* sta, const char* pump, const char* date) override {
    return ReadingExists(kTests, {sta, pump, date});
  }
  bool SaveMpData(const MpDataRecord& record) override { return SaveReading(kTests, record); }
  bool SaveMpDataList(const std::vector<MpDataRecord>& records) override { return AppendReadings(kTests, records); }
  bool SaveMpDataMany(const std::vector<MpDataRecord>& records) override { return ReplaceReadings(kTests, records); }
  bool DeleteMpData(const char* sta, const char* pump, const char* date) override {
    return Execute(kDelete(sta, pump, sql::Raw{date}));
  }
  bool DeleteMpDataOfStation(const char* sta) override { return Execute(kDeleteOfStation(sta)); }
  bool DeletePipenetMpData(const char* net) override { return DeleteInNetwork(net, kDeleteOfNetwork(net)); }
  bool DeleteMpDataOfStations(const std::vector<std::string>& names) override {
    return Execute(kDeleteOfStations(sql::QuoteEach(names)));
  }
  bool ListPipenetTestDates(const char* net, std::vector<std::string>& dates) override {
    return ListNames(kNetworkDates(net), "Csrq", dates);
  }
  bool ListTestedStations(std::vector<std::string>& stations) override {
    return ListNames(kStations(), "StaName", stations);
  }
  bool ListStationTestDates(const char* sta, std::vector<std::string>& dates) override {
    return ListNames(kStationDates(sta), "Csrq", dates);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CMpData, IMpData)
