#include "petrodb/production/IStressTestSampling.h"
#include "production/ReportPair.h"

using namespace petrodb;
using namespace petrodb::laboratory;

namespace {

using R = StressTestSamplingRecord;

struct Statements {
  static constexpr Pattern<"select SamplingID from W_STRESS_TESTING_SAMPLING where WellID = '%s' and TestTime = '%s' "
                           "and TableDate = '%s' ">
      identifier{};
  static constexpr Pattern<"select * from W_STRESS_TESTING_SAMPLING where WellID = '%s' and TestTime = '%s' and "
                           "TableDate = '%s' ">
      load{};
  static constexpr Pattern<"select * from W_STRESS_TESTING_SAMPLING where WellID = '%s'"> ofWell{};
  static constexpr Pattern<"select * from W_STRESS_TESTING_SAMPLING"> all{};
  static constexpr Pattern<"select DISTINCT WellID from W_STRESS_TESTING_SAMPLING order by WellID"> wells{};
  static constexpr Pattern<"select DISTINCT WellID from W_STRESS_TESTING_SAMPLING where SamplingID = %d"> wellOf{};
  // The comma before "where" makes it fail on every engine; kept as written.
  static constexpr Pattern<"update W_STRESS_TESTING_SAMPLING set DescentTimes = '%s',TotalCount = '%s', TestCount = "
                           "'%s', SealseatCount = '%s',EffectiveCount = '%s',PumpIsolate = '%s',SamplingCount = "
                           "'%s',Description = '%s',TableCreator = '%s',where WellID = '%s'and TestTime = '%s'and "
                           "TableDate = '%s'">
      updateText{};
  static constexpr Pattern<"delete from W_STRESS_TESTING_SAMPLING_DATA where SamplingID = %d"> deleteRows{};
  static constexpr Pattern<"delete from W_STRESS_TESTING_SAMPLING where WellID = '%s' and TestTime = '%s' and "
                           "TableDate = '%s' ">
      deleteKey{};
  static constexpr Pattern<"delete from W_STRESS_TESTING_SAMPLING where SamplingID = %d"> deleteID{};
  static constexpr Pattern<"delete from W_STRESS_TESTING_SAMPLING where WellID = '%s'"> deleteWell{};
  static constexpr Pattern<"delete from W_STRESS_TESTING_SAMPLING"> deleteAll{};

  static Statement update(const R& h) {
    return updateText(h.DescentTimes, h.TotalCount, h.TestCount, h.SealseatCount, h.EffectiveCount, h.PumpIsolate,
                      h.SamplingCount, h.Description, h.TableCreator, h.WellID, h.TestTime, h.TableDate);
  }
};

const ColumnTable<R> kColumns{"W_STRESS_TESTING_SAMPLING", {
    Col("WellID", &R::WellID),
    Col("TestTime", &R::TestTime),
    Col("TableDate", &R::TableDate),
    Col("DescentTimes", &R::DescentTimes),
    Col("TotalCount", &R::TotalCount),
    Col("TestCount", &R::TestCount),
    Col("SealseatCount", &R::SealseatCount),
    Col("EffectiveCount", &R::EffectiveCount),
    Col("PumpIsolate", &R::PumpIsolate),
    Col("SamplingCount", &R::SamplingCount),
    Col("Description", &R::Description),
    Col("TableCreator", &R::TableCreator),
    Col("ProjectName", &R::ProjectName),
    Col("SamplingID", &R::SamplingID).ReadOnly(),
}};

const ReportHeaders<R> kReports{
    .columns = kColumns,
    .id = &R::SamplingID,
    .idColumn = "SamplingID",
    .key = {&R::WellID, &R::TestTime, &R::TableDate},
};

}  // namespace

class CStressTestSampling final : public CReportHeader<IStressTestSampling, Statements, R, kReports> {
  PETRODB_REPORT_HEADER_OPERATIONS(StressTestSampling, StressTestSamplings, R)
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CStressTestSampling, IStressTestSampling)
