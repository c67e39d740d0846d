#include "network/ResultTables.h"
#include "petrodb/network/IPipeCheckResults.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

using R = PipeCheckRecord;

constexpr Pattern<"select * from r_pipe_check_results where Proj_name='%s' and Pipe_Name='%s'"> kLoadOne;
constexpr Pattern<"select * from r_pipe_check_results where Proj_name='%s' order by Pipe_Name"> kLoadCase;
constexpr Pattern<"delete from r_pipe_check_results where Proj_name='%s' and Pipe_name='%s'"> kDeleteOne;
constexpr Pattern<"delete from r_pipe_check_results where Proj_name='%s'"> kDeleteCase;

const ColumnTable<R> kColumns{"r_pipe_check_results", {
    Col("Proj_name", &R::Proj_name),
    Col("Pipe_Name", &R::Pipe_Name),
    Col("Length_before_check", &R::Length_before_check),
    Col("Leanth_after_check", &R::Leanth_after_check),
    Col("InnerDia_before_check", &R::InnerDia_before_check),
    Col("InnerDia_after_check", &R::InnerDia_after_check),
    Col("CH_before_check", &R::CH_before_check),
    Col("CH_after_check", &R::CH_after_check),
    Col("Headloss_before_check", &R::Headloss_before_check),
    Col("Headloss_after_check", &R::Headloss_after_check),
    Col("Pressure_before_check", &R::Pressure_before_check),
    Col("Pressure_after_check", &R::Pressure_after_check),
    Col("Measured_pressure", &R::Measured_pressure),
    Col("Error_before_check", &R::Error_before_check),
    Col("Error_after_check", &R::Error_after_check),
    Col("Corrosion_thick", &R::Corrosion_thick),
}};

// A missing table answers false without a message.
const ResultTable<R, 1> kChecks{
    .columns = kColumns,
    .caseName = &R::Proj_name,
    .keys = {&R::Pipe_Name},
    .loadOne = ForElement<kLoadOne>,
    .loadCase = ByKey<kLoadCase>,
    .deleteOne = ForElement<kDeleteOne>,
    .deleteCase = ByKey<kDeleteCase>,
    .emptyCase = ErrorMessage("工况名称不能为空"),
    .emptyCaseOrKey = ErrorMessage("工况名称或管子名称不能为空"),
};

}  // namespace

class CPipeCheckResults final : public CResultObject<IPipeCheckResults> {
 public:
  bool LoadPipeCheckResult(const char* caseName, const char* pipe, R& record) override {
    return LoadResult(kChecks, caseName, {pipe}, record);
  }
  bool LoadCasePipeCheckResults(const char* caseName, std::vector<R>& records) override {
    return LoadCaseResults(kChecks, caseName, records);
  }
  bool PipeCheckResultExists(const char* caseName, const char* pipe) override {
    return ResultExists(kChecks, caseName, {pipe});
  }
  bool DeletePipeCheckResult(const char* caseName, const char* pipe) override {
    return DeleteResult(kChecks, caseName, {pipe});
  }
  bool SavePipeCheckResults(const char* caseName, const std::vector<R>& records) override {
    return SaveResults<R, 1>(kChecks, caseName, records);
  }
  bool DeletePipeCheckResults(const char* caseName, const std::vector<std::string>& pipes) override {
    return DeleteResults(kChecks, caseName, pipes);
  }
  bool DeleteCasePipeCheckResults(const char* caseName) override { return DeleteCaseResults(kChecks, caseName); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CPipeCheckResults, IPipeCheckResults)
