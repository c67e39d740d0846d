#include "petrodb/production/IMarkerTestData.h"
#include "production/ReportPair.h"

using namespace petrodb;
using namespace petrodb::laboratory;

namespace {

using R = MarkerTestRow;

struct Statements {
  static constexpr Pattern<"select %sb.WellID from W_MARKER_TESTING_DATA  a LEFT JOIN W_MARKER_TESTING  b ON a.TestID "
                           "= b.TestID where a.TestID = %d and a.TestingProgram = '%s'">
      rowsOfProgram{};
  static constexpr Pattern<"select %sb.WellID from W_MARKER_TESTING_DATA  a LEFT JOIN W_MARKER_TESTING  b ON a.TestID "
                           "= b.TestID where a.TestID = %d">
      rowsOfReport{};
  static constexpr Pattern<"select %sb.WellID from W_MARKER_TESTING_DATA  a LEFT JOIN W_MARKER_TESTING  b ON a.TestID "
                           "= b.TestID where b.ProjectName = '%s'">
      rowsOfProject{};
  static constexpr Pattern<"select * from W_MARKER_TESTING_DATA where TestID = %d and TestingProgram = '%s'and "
                           "Cherries = '%s'">
      rowExists{};
  static constexpr Pattern<"delete from W_MARKER_TESTING_DATA where TestID = %d and TestingProgram = '%s' and "
                           "Cherries = '%s'">
      deleteRow{};
  static constexpr Pattern<"delete from W_MARKER_TESTING_DATA where TestID = %d"> deleteRows{};
  static constexpr Pattern<"select TestID from W_MARKER_TESTING where ProjectName = '%s'"> projectIDs{};
  static constexpr Pattern<"delete from W_MARKER_TESTING_DATA where TestID = %d "> deleteRowsOf{};
};
using S = Statements;

const ColumnTable<R> kColumns{"W_MARKER_TESTING_DATA", {
    Col("TestID", &R::TestID),
    Col("TestingProgram", &R::TestingProgram),
    Col("TestNumber", &R::TestNumber),
    Col("TestDuration", &R::TestDuration),
    Col("Cherries", &R::Cherries),
    Col("BottomPressure", &R::BottomPressure),
    Col("WellheadPressure", &R::WellheadPressure),
    Col("BottomTemperature", &R::BottomTemperature),
    Col("WellheadTemperature", &R::WellheadTemperature),
    Col("OilFlow", &R::OilFlow),
    Col("GasFlow", &R::GasFlow),
    Col("WaterFlow", &R::WaterFlow),
}};

const ReportRows<R> kRows{kColumns};

}  // namespace

class CMarkerTestData final : public CReportRows<IMarkerTestData, S, R, kRows> {
 public:
  bool LoadMarkerTestRows(int id, const char* testingProgram, std::vector<R>& rows) override {
    return LoadJoined<S::rowsOfProgram>(rows, id, testingProgram);
  }
  bool LoadReportMarkerTestRows(int id, std::vector<R>& rows) override {
    return LoadJoined<S::rowsOfReport>(rows, id);
  }
  bool LoadProjectMarkerTestRows(const char* projectName, std::vector<R>& rows) override {
    return LoadJoined<S::rowsOfProject>(rows, projectName);
  }
  bool MarkerTestRowExists(int id, const char* testingProgram, const char* cherries) override {
    return Exists(S::rowExists(id, testingProgram, cherries));
  }
  bool SaveMarkerTestRows(const std::vector<R>& rows) override { return SaveRows(rows); }
  bool DeleteMarkerTestRow(int id, const char* testingProgram, const char* cherries) override {
    return Execute(S::deleteRow(id, testingProgram, cherries));
  }
  bool DeleteMarkerTestRows(int id) override { return Execute(S::deleteRows(id)); }
  bool DeleteProjectMarkerTestRows(const char* projectName) override { return DeleteProjectRows(projectName); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CMarkerTestData, IMarkerTestData)
