#include "petrodb/production/IMarkerTest.h"
#include "production/ReportPair.h"

using namespace petrodb;
using namespace petrodb::laboratory;

namespace {

using R = MarkerTestRecord;

struct Statements {
  static constexpr Pattern<"select TestID from W_MARKER_TESTING where WellID = '%s' and TestNumber = '%s' and "
                           "TableDate = '%s' ">
      identifier{};
  static constexpr Pattern<"select * from W_MARKER_TESTING where WellID = '%s' and TestNumber = '%s' and TableDate = "
                           "'%s' ">
      load{};
  static constexpr Pattern<"select * from W_MARKER_TESTING where WellID = '%s'"> ofWell{};
  static constexpr Pattern<"select * from W_MARKER_TESTING"> all{};
  static constexpr Pattern<"select DISTINCT WellID from W_MARKER_TESTING order by WellID"> wells{};
  static constexpr Pattern<"select DISTINCT WellID from W_MARKER_TESTING where TestID = %d"> wellOf{};
  // The comma before "where" makes it fail on every engine; kept as written.
  static constexpr Pattern<"update W_MARKER_TESTING set BeginWellSection = '%s',EndWellSection = '%s',Begintime = "
                           "'%s',Endtime = '%s',CumOilProduction = '%s',CumGasProduction = '%s',CumWaterProduction = "
                           "'%s',PressureGaugeDepth = '%s',HydraulicLength = '%s',Description = '%s',TableCreator = "
                           "'%s',Assessor = '%s',where WellID = '%s' and TestNumber = '%s' and TableDate = '%s'">
      updateText{};
  static constexpr Pattern<"delete from W_MARKER_TESTING_DATA where TestID = %d"> deleteRows{};
  static constexpr Pattern<"delete from W_MARKER_TESTING where WellID = '%s' and TestNumber = '%s' and TableDate = "
                           "'%s' ">
      deleteKey{};
  static constexpr Pattern<"delete from W_MARKER_TESTING where TestID = %d"> deleteID{};
  static constexpr Pattern<"delete from W_MARKER_TESTING where WellID = '%s'"> deleteWell{};
  static constexpr Pattern<"delete from W_MARKER_TESTING"> deleteAll{};

  static Statement update(const R& h) {
    return updateText(h.BeginWellSection, h.EndWellSection, h.Begintime, h.Endtime, h.CumOilProduction,
                      h.CumGasProduction, h.CumWaterProduction, h.PressureGaugeDepth, h.HydraulicLength,
                      h.Description, h.TableCreator, h.Assessor, h.WellID, h.TestNumber, h.TableDate);
  }
};

const ColumnTable<R> kColumns{"W_MARKER_TESTING", {
    Col("WellID", &R::WellID),
    Col("TestNumber", &R::TestNumber),
    Col("TableDate", &R::TableDate),
    Col("BeginWellSection", &R::BeginWellSection),
    Col("EndWellSection", &R::EndWellSection),
    Col("Begintime", &R::Begintime),
    Col("Endtime", &R::Endtime),
    Col("CumOilProduction", &R::CumOilProduction),
    Col("CumGasProduction", &R::CumGasProduction),
    Col("CumWaterProduction", &R::CumWaterProduction),
    Col("PressureGaugeDepth", &R::PressureGaugeDepth),
    Col("HydraulicLength", &R::HydraulicLength),
    Col("Description", &R::Description),
    Col("TableCreator", &R::TableCreator),
    Col("Assessor", &R::Assessor),
    Col("ProjectName", &R::ProjectName),
    Col("TestID", &R::TestID).ReadOnly(),
}};

const ReportHeaders<R> kReports{
    .columns = kColumns,
    .id = &R::TestID,
    .idColumn = "TestID",
    .key = {&R::WellID, &R::TestNumber, &R::TableDate},
};

}  // namespace

class CMarkerTest final : public CReportHeader<IMarkerTest, Statements, R, kReports> {
  PETRODB_REPORT_HEADER_OPERATIONS(MarkerTest, MarkerTests, R)
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CMarkerTest, IMarkerTest)
