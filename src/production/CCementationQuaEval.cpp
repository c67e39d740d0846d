#include "petrodb/production/ICementationQuaEval.h"
#include "production/ReportPair.h"

using namespace petrodb;
using namespace petrodb::laboratory;

namespace {

using R = CementationQuaEvalRecord;

struct Statements {
  // Looked up under a second spelling of TestWellSection (column names ignore case on both engines).
  static constexpr Pattern<"select EvaluationID from W_CEMENT_QUALITY_EVALUATION where WellID = '%s' and TableDate = "
                           "'%s'and Testwellsection = '%s' ">
      identifier{};
  static constexpr Pattern<"select * from W_CEMENT_QUALITY_EVALUATION where WellID = '%s' and TableDate = '%s' and "
                           "TestWellSection = '%s' ">
      load{};
  static constexpr Pattern<"select * from W_CEMENT_QUALITY_EVALUATION where WellID = '%s'"> ofWell{};
  static constexpr Pattern<"select * from W_CEMENT_QUALITY_EVALUATION"> all{};
  static constexpr Pattern<"select DISTINCT WellID from W_CEMENT_QUALITY_EVALUATION order by WellID"> wells{};
  static constexpr Pattern<"select DISTINCT WellID from W_CEMENT_QUALITY_EVALUATION where EvaluationID = %d"> wellOf{};
  // The comma before "where" makes it fail on every engine; kept as written.
  static constexpr Pattern<"update W_CEMENT_QUALITY_EVALUATION set CasingSize = '%s',TechRemark = '%s', PresEvaluation "
                           "= '%s',TeeDepth = '%f',BarDepth = '%f',CementDepth = '%s',TransSect = '%s',ShortCase1 = "
                           "'%s',ShortCase2 = '%s',MarkDepth = '%s',Appraiser = '%s',Assessor = '%s',where WellID = "
                           "'%s' and TableDate = '%s' and TestWellSection = '%s'">
      updateText{};
  static constexpr Pattern<"delete from W_QUALITY_EVALUATION_DATA where EvaluationID = %d"> deleteRows{};
  static constexpr Pattern<"delete from W_CEMENT_QUALITY_EVALUATION where WellID = '%s' and TableDate = '%s' and "
                           "TestWellSection = '%s' ">
      deleteKey{};
  static constexpr Pattern<"delete from W_CEMENT_QUALITY_EVALUATION where EvaluationID = %d"> deleteID{};
  static constexpr Pattern<"delete from W_CEMENT_QUALITY_EVALUATION where WellID = '%s'"> deleteWell{};
  static constexpr Pattern<"delete from W_CEMENT_QUALITY_EVALUATION"> deleteAll{};

  static Statement update(const R& h) {
    return updateText(h.CasingSize, h.TechRemark, h.PresEvaluation, h.TeeDepth, h.BarDepth, h.CementDepth,
                      h.TransSect, h.ShortCase1, h.ShortCase2, h.MarkDepth, h.Appraiser, h.Assessor, h.WellID,
                      h.TableDate, h.TestWellSection);
  }
};

const ColumnTable<R> kColumns{"W_CEMENT_QUALITY_EVALUATION", {
    Col("WellID", &R::WellID),
    Col("TableDate", &R::TableDate),
    Col("TestWellSection", &R::TestWellSection),
    Col("CasingSize", &R::CasingSize),
    Col("TechRemark", &R::TechRemark),
    Col("PresEvaluation", &R::PresEvaluation),
    Col("TeeDepth", &R::TeeDepth),
    Col("BarDepth", &R::BarDepth),
    Col("CementDepth", &R::CementDepth),
    Col("TransSect", &R::TransSect),
    Col("ShortCase1", &R::ShortCase1),
    Col("ShortCase2", &R::ShortCase2),
    Col("MarkDepth", &R::MarkDepth),
    Col("Appraiser", &R::Appraiser),
    Col("Assessor", &R::Assessor),
    Col("ProjectName", &R::ProjectName),
    Col("EvaluationID", &R::EvaluationID).ReadOnly(),
}};

const ReportHeaders<R> kReports{
    .columns = kColumns,
    .id = &R::EvaluationID,
    .idColumn = "EvaluationID",
    .key = {&R::WellID, &R::TableDate, &R::TestWellSection},
};

}  // namespace

class CCementationQuaEval final : public CReportHeader<ICementationQuaEval, Statements, R, kReports> {
  PETRODB_REPORT_HEADER_OPERATIONS(CementationQuaEval, CementationQuaEvals, R)
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CCementationQuaEval, ICementationQuaEval)
