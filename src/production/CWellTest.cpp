#include "petrodb/production/IWellTest.h"
#include "production/DailyReadings.h"

using namespace petrodb;
using namespace petrodb::production;

namespace {

// The network's injection wells are its nodes of type 2.
constexpr Pattern<"select * from d_well_test where Jh = '%s'and Scrq = %s"> kLoad;
constexpr Pattern<"select * from d_well_test where Jh like '%s%%' and Scrq between %sand %s order by scrq"> kLikeBetween;
constexpr Pattern<"select * from d_well_test where Jh = '%s'"> kOfWell;
constexpr Pattern<"select * from d_well_test where Jh = '%s' order by scrq"> kOfWellByDate;
constexpr Pattern<"select * from d_well_test order by scrq,jh"> kAll;
constexpr Pattern<"select Jh from  d_well_test where Jh in (%s)"> kWithTests;
constexpr Pattern<
    "select * from d_well_test where Jh in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = 2 ) "
    "order by scrq desc,Jh">
    kOfNetwork;
constexpr Pattern<
    "select * from d_well_test where Scrq = %s and Jh in ( select NodeName from n_nodes where PipenetName = '%s' and "
    "NodeType = 2 ) order by Jh">
    kOfNetworkAt;
constexpr Pattern<"select * from d_well_test where Jh = '%s' and Scrq = %s"> kExists;
constexpr Pattern<"delete from d_well_test where Jh = '%s'and Scrq = %s"> kDelete;
constexpr Pattern<"delete from d_well_test where Jh = '%s'"> kDeleteOfWell;
constexpr Pattern<
    "delete from d_well_test where Jh in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = 2 )">
    kDeleteOfNetwork;
constexpr Pattern<"delete from d_well_test where Jh in (%s)"> kDeleteOfWells;
constexpr Pattern<
    "select distinct Scrq from d_well_test where  Jh in ( select NodeName from n_nodes where PipenetName = '%s' and "
    "NodeType = 2 ) order by Scrq">
    kNetworkDates;

const ColumnTable<WellTestRecord> kColumns{"d_well_test", {
    Col("Jh", &WellTestRecord::Jh),
    Col("Scrq", &WellTestRecord::Scrq),
    Col("Scsj", &WellTestRecord::Scsj),
    Col("Rpzl", &WellTestRecord::Rpzl),
    Col("Rzsl", &WellTestRecord::Rzsl),
    Col("Gxyl", &WellTestRecord::Gxyl),
    Col("Yy", &WellTestRecord::Yy),
    Col("Ty", &WellTestRecord::Ty),
    Col("Xjsl", &WellTestRecord::Xjsl),
}};

const Readings<WellTestRecord> kWells{
    .columns = kColumns,
    .keyOf = [](const WellTestRecord& r) { return ReadingKey{r.Jh.c_str(), nullptr, r.Scrq.c_str()}; },
    .loadOne = [](ReadingKey k) { return kLoad(k.node, sql::Raw{k.date}); },
    .exists = [](ReadingKey k) { return kExists(k.node, sql::Raw{k.date}); },
    .deleteOne = [](ReadingKey k) { return kDelete(k.node, sql::Raw{k.date}); },
    .emptyNode = ErrorMessage("注水井号不能为空！"),
    .emptyDate = ErrorMessage("生产日期不能为空！"),
    .tableMissing = ErrorMessage("注水井日生产数据表为空！"),
};

}  // namespace

class CWellTest final : public CDailyReadings<IWellTest> {
 public:
  bool LoadWellTest(const char* jh, const char* date, WellTestRecord& record) override {
    return LoadReading(kWells, {jh, nullptr, date}, record);
  }
  bool LoadWellTestsLikeBetween(const char* prefix, const char* date1, const char* date2,
                                std::vector<WellTestRecord>& records) override {
    return LoadReadings(kWells, kLikeBetween(prefix, sql::Raw{date1}, sql::Raw{date2}), records);
  }
  bool LoadWellTestsOfWell(const char* jh, std::vector<WellTestRecord>& records) override {
    return LoadReadings(kWells, kOfWell(jh), records);
  }
  bool LoadWellTestsOfWellByDate(const char* jh, std::vector<WellTestRecord>& records) override {
    return LoadReadings(kWells, kOfWellByDate(jh), records);
  }
  bool LoadAllWellTests(std::vector<WellTestRecord>& records) override { return LoadReadings(kWells, kAll(), records); }
  bool ListWellsWithTests(const std::vector<std::string>& names, std::vector<std::string>& wells) override {
    return ListNames(kWithTests(sql::QuoteEach(names)), "Jh", wells);
  }
  bool LoadPipenetWellTests(const char* net, std::vector<WellTestRecord>& records) override {
    return LoadReadings(kWells, kOfNetwork(net), records);
  }
  bool LoadPipenetWellTestsAt(const char* net, const char* date, std::vector<WellTestRecord>& records) override {
    return LoadReadings(kWells, kOfNetworkAt(sql::Raw{date}, net), records);
  }
  bool WellTestExists(const char* jh, const char* date) override { return ReadingExists(kWells, {jh, nullptr, date}); }
  bool SaveWellTest(const WellTestRecord& record) override { return SaveReading(kWells, record); }
  bool SaveWellTestList(const std::vector<WellTestRecord>& records) override { return AppendReadings(kWells, records); }
  bool SaveWellTests(const std::vector<WellTestRecord>& records) override { return ReplaceReadings(kWells, records); }
  bool DeleteWellTest(const char* jh, const char* date) override { return Execute(kDelete(jh, sql::Raw{date})); }
  bool DeleteWellTestsOfWell(const char* jh) override { return Execute(kDeleteOfWell(jh)); }
  bool DeletePipenetWellTests(const char* net) override { return DeleteInNetwork(net, kDeleteOfNetwork(net)); }
  bool DeleteWellTestsOfWells(const std::vector<std::string>& names) override {
    return Execute(kDeleteOfWells(sql::QuoteEach(names)));
  }
  bool ListPipenetTestDates(const char* net, std::vector<std::string>& dates) override {
    return ListNames(kNetworkDates(net), "Scrq", dates);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CWellTest, IWellTest)
