#include "petrodb/production/IStressTestSamplingData.h"
#include "production/ReportPair.h"

using namespace petrodb;
using namespace petrodb::laboratory;

namespace {

using R = StressTestSamplingRow;

struct Statements {
  static constexpr Pattern<"select %sb.WellID from W_STRESS_TESTING_SAMPLING_DATA  a LEFT JOIN "
                           "W_STRESS_TESTING_SAMPLING  b ON a.SamplingID = b.SamplingID where a.SamplingID = %d and "
                           "a.MD = %f">
      rowsAtDepth{};
  static constexpr Pattern<"select %sb.WellID from W_STRESS_TESTING_SAMPLING_DATA  a LEFT JOIN "
                           "W_STRESS_TESTING_SAMPLING  b ON a.SamplingID = b.SamplingID where a.SamplingID = %d">
      rowsOfReport{};
  static constexpr Pattern<"select %sb.WellID from W_STRESS_TESTING_SAMPLING_DATA  a LEFT JOIN "
                           "W_STRESS_TESTING_SAMPLING  b ON a.SamplingID = b.SamplingID where b.ProjectName = '%s'">
      rowsOfProject{};
  static constexpr Pattern<"select * from W_STRESS_TESTING_SAMPLING_DATA where SamplingID = %d and SequenceNum = '%s' "
                           "and MD = '%f' ">
      rowExists{};
  static constexpr Pattern<"delete from W_STRESS_TESTING_SAMPLING_DATA where SamplingID = %d and SequenceNum = '%s' "
                           "and MD = '%f'">
      deleteRow{};
  static constexpr Pattern<"delete from W_STRESS_TESTING_SAMPLING_DATA where SamplingID = %d"> deleteRows{};
  static constexpr Pattern<"select SamplingID from W_STRESS_TESTING_SAMPLING where ProjectName = '%s'">
      projectIDs{};
  static constexpr Pattern<"delete from W_STRESS_TESTING_SAMPLING_DATA where SamplingID = %d "> deleteRowsOf{};
  static constexpr Pattern<"update W_STRESS_TESTING_SAMPLING_DATA set SamplingID = %d where SamplingID = %d">
      moveRows{};
};
using S = Statements;

const ColumnTable<R> kColumns{"W_STRESS_TESTING_SAMPLING_DATA", {
    Col("SamplingID", &R::SamplingID),
    Col("SequenceNum", &R::SequenceNum),
    Col("MD", &R::MD),
    Col("TVD", &R::TVD),
    Col("PreMudColumnPressure", &R::PreMudColumnPressure),
    Col("PressureValue", &R::PressureValue),
    Col("StrataPressure", &R::StrataPressure),
    Col("AfterMudColumnPressure", &R::AfterMudColumnPressure),
    Col("FluidityEstimate", &R::FluidityEstimate),
    Col("StrataPressureCoefficient", &R::StrataPressureCoefficient),
    Col("FormationTemperature", &R::FormationTemperature),
    Col("SpotPressureType", &R::SpotPressureType),
    Col("EvaluatePermeability", &R::EvaluatePermeability),
    Col("Description", &R::Description),
}};

const ReportRows<R> kRows{kColumns};

}  // namespace

class CStressTestSamplingData final : public CReportRows<IStressTestSamplingData, S, R, kRows> {
 public:
  bool LoadStressTestSamplingRows(int id, double md, std::vector<R>& rows) override {
    return LoadJoined<S::rowsAtDepth>(rows, id, md);
  }
  bool LoadReportStressTestSamplingRows(int id, std::vector<R>& rows) override {
    return LoadJoined<S::rowsOfReport>(rows, id);
  }
  bool LoadProjectStressTestSamplingRows(const char* projectName, std::vector<R>& rows) override {
    return LoadJoined<S::rowsOfProject>(rows, projectName);
  }
  bool StressTestSamplingRowExists(int id, const char* sequenceNum, double md) override {
    return Exists(S::rowExists(id, sequenceNum, md));
  }
  bool SaveStressTestSamplingRows(const std::vector<R>& rows) override { return SaveRows(rows); }
  bool DeleteStressTestSamplingRow(int id, const char* sequenceNum, double md) override {
    return Execute(S::deleteRow(id, sequenceNum, md));
  }
  bool DeleteStressTestSamplingRows(int id) override { return Execute(S::deleteRows(id)); }
  bool DeleteProjectStressTestSamplingRows(const char* projectName) override {
    return DeleteProjectRows(projectName);
  }
  bool MoveStressTestSamplingRows(int fromID, int toID) override { return Execute(S::moveRows(toID, fromID)); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CStressTestSamplingData, IStressTestSamplingData)
