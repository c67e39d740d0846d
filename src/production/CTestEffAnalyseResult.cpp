#include "petrodb/production/ITestEffAnalyseResult.h"
#include "production/ReferenceTables.h"

using namespace petrodb;
using namespace petrodb::production;

namespace {

constexpr Pattern<"select * from v_sta_unit where StaName = '%s' and Scrq = %s"> kLoad;
constexpr Pattern<"select * from v_sta_unit where v_sta_unit.Scrq between %s and %s"> kLoadBetween;
constexpr Pattern<"select * from v_sta_unit where v_sta_unit.UnitName = '%s' and Scrq between %s and %s">
    kLoadOfUnitBetween;
constexpr Pattern<"select distinct v_sta_unit.Scrq from v_sta_unit where UnitName = '%s' order by Scrq "> kUnitDates;
constexpr Pattern<"select distinct v_sta_unit.Scrq from v_sta_unit order by Scrq"> kDates;

using R = TestEffAnalyseResultRecord;
const ColumnTable<R> kKeyColumns{"v_sta_unit", {
    Col("StaName", &R::StaName),
    Col("UnitName", &R::UnitName),
    Col("Scrq", &R::Scrq),
}};
const EffAnalyseRow<R> kRow{kKeyColumns};

}  // namespace

class CTestEffAnalyseResult final : public CReferenceTable<ITestEffAnalyseResult> {
 public:
  bool LoadEffResult(const char* station, const char* date, R& record) override {
    return LoadOneWith(kLoad(station, Spliced(date)), kRow, record);
  }
  bool LoadEffResultsBetween(const char* date1, const char* date2, std::vector<R>& records) override {
    return LoadList(kLoadBetween(Spliced(date1), Spliced(date2)), kRow, records);
  }
  bool LoadUnitEffResultsBetween(const char* unit, const char* date1, const char* date2,
                                 std::vector<R>& records) override {
    return LoadList(kLoadOfUnitBetween(unit, Spliced(date1), Spliced(date2)), kRow, records);
  }
  bool ListUnitEffResultDates(const char* unit, std::vector<std::string>& dates) override {
    return ListColumn(kUnitDates(unit), "Scrq", dates, Fill::Clear).found();
  }
  bool ListEffResultDates(std::vector<std::string>& dates) override {
    return ListColumn(kDates(), "Scrq", dates, Fill::Clear).found();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CTestEffAnalyseResult, ITestEffAnalyseResult)
