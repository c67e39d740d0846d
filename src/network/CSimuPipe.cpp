#include "network/ResultTables.h"
#include "petrodb/network/ISimuPipe.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

using R = SimuPipeRecord;

constexpr Pattern<"select * from r_simu_pipe where ProjName = '%s' and PipeName = '%s'"> kLoadOne;
constexpr Pattern<"select a.*,b.PipeType from r_simu_pipe AS a  ,n_pipes AS b where a.ProjName = '%s' and "
                  "a.PipeName = b.PipeName order by b.PipeType "> kLoadCase;
constexpr Pattern<"delete from r_simu_pipe where ProjName = '%s' and PipeName = '%s'"> kDeleteOne;
constexpr Pattern<"delete from r_simu_pipe where ProjName = '%s'"> kDeleteCase;

const ColumnTable<R> kColumns{"r_simu_pipe", {
    Col("ProjName", &R::ProjName),
    Col("PipeName", &R::PipeName),
    Col("Detap", &R::Detap),
    Col("PipeQ", &R::PipeQ),
    Col("Kf", &R::Kf),
    Col("Deltpow", &R::Deltpow),
    Col("Station", &R::Station),
}};
const ColumnTable<R> kPipeType{"n_pipes", {TypeColumn("PipeType", &R::PipeType, &R::TypeName, kPipeTypeNames)}};

const ResultTable<R, 1> kPipes{
    .columns = kColumns,
    .caseName = &R::ProjName,
    .keys = {&R::PipeName},
    .loadOne = ForElement<kLoadOne>,
    .loadCase = ByKey<kLoadCase>,
    .joined = &kPipeType,
    .deleteOne = ForElement<kDeleteOne>,
    .deleteCase = ByKey<kDeleteCase>,
    .emptyCase = ErrorMessage("工况名称不能为空！"),
    .emptyKeys = {ErrorMessage("管子代码不能为空！")},
    .deleteTableMissing = ErrorMessage("管子仿真结果表为空！"),
    .saveTableMissing = ErrorMessage("管子仿真结果数据表为空！"),
};

}  // namespace

class CSimuPipe final : public CResultObject<ISimuPipe> {
 public:
  bool LoadPipeResult(const char* caseName, const char* pipe, R& record) override {
    return LoadResult(kPipes, caseName, {pipe}, record);
  }
  bool LoadCasePipeResults(const char* caseName, std::vector<R>& records) override {
    return LoadCaseResults(kPipes, caseName, records);
  }
  bool PipeResultExists(const char* caseName, const char* pipe) override {
    return ResultExists(kPipes, caseName, {pipe});
  }
  bool DeletePipeResult(const char* caseName, const char* pipe) override {
    return DeleteResult(kPipes, caseName, {pipe});
  }
  bool SavePipeResults(const char* caseName, const std::vector<R>& records) override {
    return SaveResults<R, 1>(kPipes, caseName, records);
  }
  bool DeletePipeResults(const char* caseName, const std::vector<std::string>& pipes) override {
    return DeleteResults(kPipes, caseName, pipes);
  }
  bool DeleteCasePipeResults(const char* caseName) override { return DeleteCaseResults(kPipes, caseName); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSimuPipe, ISimuPipe)
