#include "petrodb/production/IQuaEvalData.h"
#include "production/ReportPair.h"

using namespace petrodb;
using namespace petrodb::laboratory;

namespace {

using R = QuaEvalRow;

struct Statements {
  static constexpr Pattern<"select %sb.WellID from W_QUALITY_EVALUATION_DATA  a LEFT JOIN W_CEMENT_QUALITY_EVALUATION "
                           " b ON b.EvaluationID = a.EvaluationID WHERE a.EvaluationID = %d">
      rowsOfReport{};
  static constexpr Pattern<"select %sb.WellID from W_QUALITY_EVALUATION_DATA  a INNER JOIN "
                           "W_CEMENT_QUALITY_EVALUATION  b ON b.EvaluationID = a.EvaluationID where b.ProjectName = "
                           "'%s'">
      rowsOfProject{};
  static constexpr Pattern<"select * from W_QUALITY_EVALUATION_DATA where EvaluationID = %d and TopDepth = '%f' and "
                           "BottomDepth = '%f' ">
      rowExists{};
  static constexpr Pattern<"delete from W_QUALITY_EVALUATION_DATA where EvaluationID = %d and TopDepth = '%f' and "
                           "BottomDepth = '%f'">
      deleteRow{};
  static constexpr Pattern<"delete from W_QUALITY_EVALUATION_DATA where EvaluationID = %d"> deleteRows{};
  static constexpr Pattern<"select EvaluationID from W_CEMENT_QUALITY_EVALUATION where ProjectName = '%s'">
      projectIDs{};
  static constexpr Pattern<"delete from W_QUALITY_EVALUATION_DATA where EvaluationID = %d "> deleteRowsOf{};
};
using S = Statements;

const ColumnTable<R> kColumns{"W_QUALITY_EVALUATION_DATA", {
    Col("EvaluationID", &R::EvaluationID),
    Col("TopDepth", &R::TopDepth),
    Col("BottomDepth", &R::BottomDepth),
    Col("Thickness", &R::Thickness),
    Col("ATAV", &R::ATAV),
    Col("ATMN", &R::ATMN),
    Col("ATMX", &R::ATMX),
    Col("AMAV", &R::AMAV),
    Col("CementStrength", &R::CementStrength),
    Col("VDL", &R::VDL),
    Col("Cementing", &R::Cementing),
    Col("Description", &R::Description),
}};

// The missing-table message names the pressure sampling table; kept as it stands.
const ReportRows<R> kRows{kColumns, ErrorMessage("测压取样数据表为空！")};

}  // namespace

class CQuaEvalData final : public CReportRows<IQuaEvalData, S, R, kRows> {
 public:
  bool LoadQuaEvalRows(int id, std::vector<R>& rows) override { return LoadJoined<S::rowsOfReport>(rows, id); }
  bool LoadProjectQuaEvalRows(const char* projectName, std::vector<R>& rows) override {
    return LoadJoined<S::rowsOfProject>(rows, projectName);
  }
  bool QuaEvalRowExists(int id, double topDepth, double bottomDepth) override {
    return Exists(S::rowExists(id, topDepth, bottomDepth));
  }
  bool SaveQuaEvalRows(const std::vector<R>& rows) override { return SaveRows(rows); }
  bool DeleteQuaEvalRow(int id, double topDepth, double bottomDepth) override {
    return Execute(S::deleteRow(id, topDepth, bottomDepth));
  }
  bool DeleteQuaEvalRows(int id) override { return Execute(S::deleteRows(id)); }
  bool DeleteProjectQuaEvalRows(const char* projectName) override { return DeleteProjectRows(projectName); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CQuaEvalData, IQuaEvalData)
