#include "petrodb/production/ITestEffAnalyseData.h"
#include "production/DailyReadings.h"
#include "production/ReferenceTables.h"

using namespace petrodb;
using namespace petrodb::production;

namespace {

constexpr Pattern<"select * from t_eff_analyse where StaName = '%s' and Scrq = %s"> kLoad;
constexpr Pattern<"select * from t_eff_analyse where Scrq between %s and %s"> kLoadBetween;
constexpr Pattern<"select distinct t_eff_analyse.Scrq from t_eff_analyse order by Scrq"> kDates;
constexpr Pattern<"delete * from t_eff_analyse where StaName = '%s' and Scrq = %s"> kDelete;
constexpr Pattern<"delete from t_eff_analyse where StaName = '%s'"> kDeleteOfStation;

const ColumnTable<TestEffAnalyseRecord> kKeyColumns{"t_eff_analyse", {
    Col("StaName", &TestEffAnalyseRecord::StaName),
    Col("Scrq", &TestEffAnalyseRecord::Scrq),
}};
const EffAnalyseRow<TestEffAnalyseRecord> kRow{kKeyColumns};

Statement LoadOf(const char* station, const char* date) { return kLoad(station, Spliced(date)); }
Statement DeleteOf(const char* station, const char* date) { return kDelete(station, Spliced(date)); }

}  // namespace

class CTestEffAnalyseData final : public CReferenceTable<ITestEffAnalyseData> {
 public:
  bool LoadEffAnalyse(const char* station, const char* date, TestEffAnalyseRecord& record) override {
    return LoadOneWith(LoadOf(station, date), kRow, record);
  }
  bool LoadEffAnalysesBetween(const char* date1, const char* date2,
                              std::vector<TestEffAnalyseRecord>& records) override {
    return LoadList(kLoadBetween(Spliced(date1), Spliced(date2)), kRow, records);
  }
  bool ListEffAnalyseDates(std::vector<std::string>& dates) override {
    return ListColumn(kDates(), "Scrq", dates, Fill::Clear).found();
  }
  bool EffAnalyseExists(const char* station, const char* date) override { return Exists(LoadOf(station, date)); }
  bool SaveEffAnalyse(const TestEffAnalyseRecord& record) override {
    if (!KeyGiven(record.StaName, {}) || !KeyGiven(record.Scrq, {})) return false;
    return ReplaceRows(kKeyColumns.table(), DeleteOf(record.StaName.c_str(), record.Scrq.c_str()),
                       [&](CDbManage& db) { kRow.AddRow(db, record); });
  }
  bool SaveEffAnalyses(const std::vector<TestEffAnalyseRecord>& records) override {
    return Append(kKeyColumns.table(), [&](CDbManage& db) { kRow.AddRows(db, records); });
  }
  bool DeleteEffAnalyse(const char* station, const char* date) override { return Execute(DeleteOf(station, date)); }
  bool DeleteStationEffAnalyses(const char* station) override { return Execute(kDeleteOfStation(station)); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CTestEffAnalyseData, ITestEffAnalyseData)
