#include "petrodb/production/ISampleAnalysis.h"
#include "production/ReportPair.h"

using namespace petrodb;
using namespace petrodb::laboratory;

namespace {

using R = SampleAnalysisRecord;

struct Statements {
  static constexpr Pattern<"select AnalysisID from W_SAMPLE_ANALYSIS where WellID = '%s' and SampleNumber = '%s' and "
                           "TableDate = '%s' ">
      identifier{};
  static constexpr Pattern<"select * from W_SAMPLE_ANALYSIS where WellID = '%s' and SampleNumber = '%s' and "
                           "TableDate = '%s' ">
      load{};
  static constexpr Pattern<"select * from W_SAMPLE_ANALYSIS where WellID = '%s'"> ofWell{};
  static constexpr Pattern<"select * from W_SAMPLE_ANALYSIS"> all{};
  static constexpr Pattern<"select DISTINCT WellID from W_SAMPLE_ANALYSIS order by WellID"> wells{};
  static constexpr Pattern<"select DISTINCT WellID from W_SAMPLE_ANALYSIS where AnalysisID = %d"> wellOf{};
  // No blank before "where", in both forms.
  static constexpr Pattern<"update W_SAMPLE_ANALYSIS set ToolType = '%s',TableCreator = '%s',Description = "
                           "'%s'where WellID = '%s' and SampleNumber = '%s' and TableDate = '%s'">
      updateOne{};
  static constexpr Pattern<"update W_SAMPLE_ANALYSIS set ToolType = '%s', TableCreator = '%s', Description = "
                           "'%s'where WellID = '%s' and SampleNumber = '%s' and TableDate = '%s'">
      updateInLists{};
  static constexpr Pattern<"delete from W_SAMPLE_ANALYSIS_DATA where AnalysisID = %d"> deleteRows{};
  static constexpr Pattern<"delete from W_SAMPLE_ANALYSIS where WellID = '%s' and SampleNumber = '%s' and "
                           "TableDate = '%s' ">
      deleteKey{};
  static constexpr Pattern<"delete from W_SAMPLE_ANALYSIS where AnalysisID = %d"> deleteID{};
  static constexpr Pattern<"delete from W_SAMPLE_ANALYSIS where WellID = '%s'"> deleteWell{};
  static constexpr Pattern<"delete from W_SAMPLE_ANALYSIS"> deleteAll{};

  static Statement update(const R& h) { return With(updateOne, h); }
  static Statement updateInList(const R& h) { return With(updateInLists, h); }
  template <class P>
  static Statement With(const P& pattern, const R& h) {
    return pattern(h.ToolType, h.TableCreator, h.Description, h.WellID, h.SampleNumber, h.TableDate);
  }
};

// Written in this order by an insert.
const ColumnTable<R> kColumns{"W_SAMPLE_ANALYSIS", {
    Col("WellID", &R::WellID),
    Col("SampleNumber", &R::SampleNumber),
    Col("ToolType", &R::ToolType),
    Col("TableCreator", &R::TableCreator),
    Col("TableDate", &R::TableDate),
    Col("Description", &R::Description),
    Col("ProjectName", &R::ProjectName),
    Col("AnalysisID", &R::AnalysisID).ReadOnly(),
}};

const ReportHeaders<R> kReports{
    .columns = kColumns,
    .id = &R::AnalysisID,
    .idColumn = "AnalysisID",
    .key = {&R::WellID, &R::SampleNumber, &R::TableDate},
    .tableMissing = ErrorMessage("样品分析表为空！"),
    .emptyList = ErrorMessage("样品分析为空！"),
};

}  // namespace

class CSampleAnalysis final : public CReportHeader<ISampleAnalysis, Statements, R, kReports> {
  PETRODB_REPORT_HEADER_OPERATIONS(SampleAnalysis, SampleAnalyses, R)
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSampleAnalysis, ISampleAnalysis)
