#include "petrodb/production/IStaTest.h"
#include "production/DailyReadings.h"

using namespace petrodb;
using namespace petrodb::production;

namespace {

// The network's stations are its nodes of type 0.
constexpr Pattern<"select * from d_sta_test where StaName = '%s' and Scrq = %s"> kLoad;
constexpr Pattern<"select * from d_sta_test where StaName like '%s%%' and Scrq between %sand %s "> kLikeBetween;
constexpr Pattern<"select * from d_sta_test where StaName = '%s' order by Scrq desc,staname"> kHistory;
constexpr Pattern<"select * from d_sta_test"> kAll;
constexpr Pattern<
    "select * from d_sta_test where Scrq = %s and StaName in ( select NodeName from n_nodes where PipenetName = '%s' "
    "and NodeType = 0 ) order by StaName">
    kOfNetworkAt;
constexpr Pattern<"delete from d_sta_test where StaName = '%s'and Scrq = %s"> kDelete;
constexpr Pattern<
    "delete from d_sta_test where StaName in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = 0 )">
    kDeleteOfNetwork;
constexpr Pattern<"delete from d_sta_test where StaName in (%s)"> kDeleteOfStations;
constexpr Pattern<
    "select distinct Scrq from d_sta_test where  StaName in ( select NodeName from n_nodes where PipenetName = '%s' "
    "and NodeType = 0 ) order by Scrq">
    kNetworkDates;
constexpr Pattern<"select distinct d_sta_test.StaName from d_sta_test"> kStations;

// Derived from the injection wells' texts by putting d_sta_test for
// d_well_test, StaName for Jh and 0 for the node type 2.
constexpr Pattern<"select * from d_sta_test where StaName = '%s'"> kOfStation;
constexpr Pattern<"select StaName from  d_sta_test where StaName in (%s)"> kWithTests;
constexpr Pattern<
    "select * from d_sta_test where StaName in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = "
    "0 ) order by scrq desc,StaName">
    kOfNetwork;
constexpr Pattern<"select * from d_sta_test where StaName = '%s' and Scrq = %s"> kExists;
constexpr Pattern<"delete from d_sta_test where StaName = '%s'"> kDeleteOfStation;

const ColumnTable<StaTestRecord> kColumns{"d_sta_test", {
    Col("StaName", &StaTestRecord::StaName),
    Col("Scrq", &StaTestRecord::Scrq),
    Col("Lsyl", &StaTestRecord::Lsyl),
    Col("Hgyl", &StaTestRecord::Hgyl),
    Col("Rjcksl", &StaTestRecord::Rjcksl),
    Col("Rjydl", &StaTestRecord::Rjydl),
    Col("Xnsl", &StaTestRecord::Xnsl),
}};

const Readings<StaTestRecord> kStationsReadings{
    .columns = kColumns,
    .keyOf = [](const StaTestRecord& r) { return ReadingKey{r.StaName.c_str(), nullptr, r.Scrq.c_str()}; },
    .loadOne = [](ReadingKey k) { return kLoad(k.node, sql::Raw{k.date}); },
    .exists = [](ReadingKey k) { return kExists(k.node, sql::Raw{k.date}); },
    .deleteOne = [](ReadingKey k) { return kDelete(k.node, sql::Raw{k.date}); },
    .emptyNode = ErrorMessage("注水站名称不能为空！"),
    .emptyDate = ErrorMessage("生产日期不能为空！"),
    .tableMissing = ErrorMessage("注水站日生产数据表为空！"),
};
const auto& kSta = kStationsReadings;

}  // namespace

class CStaTest final : public CDailyReadings<IStaTest> {
 public:
  bool LoadStaTest(const char* sta, const char* date, StaTestRecord& record) override {
    return LoadReading(kSta, {sta, nullptr, date}, record);
  }
  bool LoadStaTestsLikeBetween(const char* prefix, const char* date1, const char* date2,
                               std::vector<StaTestRecord>& records) override {
    return LoadReadings(kSta, kLikeBetween(prefix, sql::Raw{date1}, sql::Raw{date2}), records);
  }
  bool LoadStaTestsOfStation(const char* sta, std::vector<StaTestRecord>& records) override {
    return LoadReadings(kSta, kOfStation(sta), records);
  }
  bool LoadStaTestsOfStationByDate(const char* sta, std::vector<StaTestRecord>& records) override {
    return LoadReadings(kSta, kHistory(sta), records);
  }
  bool LoadAllStaTests(std::vector<StaTestRecord>& records) override { return LoadReadings(kSta, kAll(), records); }
  bool ListStationsWithTests(const std::vector<std::string>& names, std::vector<std::string>& stations) override {
    return ListNames(kWithTests(sql::QuoteEach(names)), "StaName", stations);
  }
  bool LoadPipenetStaTests(const char* net, std::vector<StaTestRecord>& records) override {
    return LoadReadings(kSta, kOfNetwork(net), records);
  }
  bool LoadPipenetStaTestsAt(const char* net, const char* date, std::vector<StaTestRecord>& records) override {
    return LoadReadings(kSta, kOfNetworkAt(sql::Raw{date}, net), records);
  }
  bool StaTestExists(const char* sta, const char* date) override { return ReadingExists(kSta, {sta, nullptr, date}); }
  bool SaveStaTest(const StaTestRecord& record) override { return SaveReading(kSta, record); }
  bool SaveStaTestList(const std::vector<StaTestRecord>& records) override { return AppendReadings(kSta, records); }
  bool SaveStaTests(const std::vector<StaTestRecord>& records) override { return ReplaceReadings(kSta, records); }
  bool DeleteStaTest(const char* sta, const char* date) override { return Execute(kDelete(sta, sql::Raw{date})); }
  bool DeleteStaTestsOfStation(const char* sta) override { return Execute(kDeleteOfStation(sta)); }
  bool DeletePipenetStaTests(const char* net) override { return DeleteInNetwork(net, kDeleteOfNetwork(net)); }
  bool DeleteStaTestsOfStations(const std::vector<std::string>& names) override {
    return Execute(kDeleteOfStations(sql::QuoteEach(names)));
  }
  bool ListPipenetTestDates(const char* net, std::vector<std::string>& dates) override {
    return ListNames(kNetworkDates(net), "Scrq", dates);
  }
  bool ListTestedStations(std::vector<std::string>& stations) override {
    return ListNames(kStations(), "StaName", stations);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CStaTest, IStaTest)
