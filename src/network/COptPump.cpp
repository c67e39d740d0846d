#include "network/ResultTables.h"
#include "petrodb/network/IOptPump.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

using R = OptPumpRecord;

constexpr Pattern<"select * from r_opt_pump where ProjName = '%s' and StaName = '%s' and PumpCode = '%s'"> kLoadOne;
constexpr Pattern<"select * from r_opt_pump where ProjName = '%s' order by StaName, PumpCode, PumpModel"> kLoadCase;
constexpr Pattern<"delete from r_opt_pump where ProjName = '%s' and StaName = '%s' and PumpCode = '%s'"> kDeleteOne;
constexpr Pattern<"delete from r_opt_pump where ProjName = '%s'"> kDeleteCase;

const ColumnTable<R> kColumns{"r_opt_pump", {
    Col("ProjName", &R::ProjName),
    Col("StaName", &R::StaName),
    Col("PumpCode", &R::PumpCode),
    Col("PumpModel", &R::PumpModel),
    Col("MaxQ", &R::MaxQ),
    Col("MinQ", &R::MinQ),
    Col("InitQ", &R::InitQ),
    Col("CurDia", &R::CurDia),
    Col("OptDia", &R::OptDia),
    Col("IsFreq", &R::IsFreq),
    Col("PumpP", &R::PumpP),
    Col("PumpQ", &R::PumpQ),
    Col("PumpE", &R::PumpE),
    Col("PumpPower", &R::PumpPower),
    Col("PumpDh", &R::PumpDh),
}};

const ResultTable<R, 2> kPumps{
    .columns = kColumns,
    .caseName = &R::ProjName,
    .keys = {&R::StaName, &R::PumpCode},
    .loadOne = ForElement<kLoadOne>,
    .loadCase = ByKey<kLoadCase>,
    .deleteOne = ForElement<kDeleteOne>,
    .deleteCase = ByKey<kDeleteCase>,
    .emptyCase = ErrorMessage("工况名称不能为空！"),
    .emptyKeys = {ErrorMessage("注水站名称不能为空！"), ErrorMessage("泵号不能为空！")},
    .deleteTableMissing = ErrorMessage("注水泵优化约束条件及结果表为空！"),
    .saveTableMissing = ErrorMessage("注水站优化约束条件及结果数据表为空！"),
};

}  // namespace

class COptPump final : public CResultObject<IOptPump> {
 public:
  bool LoadPumpResult(const char* caseName, const char* station, const char* pump, R& record) override {
    return LoadResult(kPumps, caseName, {station, pump}, record);
  }
  bool LoadCasePumpResults(const char* caseName, std::vector<R>& records) override {
    return LoadCaseResults(kPumps, caseName, records);
  }
  bool PumpResultExists(const char* caseName, const char* station, const char* pump) override {
    return ResultExists(kPumps, caseName, {station, pump});
  }
  bool DeletePumpResult(const char* caseName, const char* station, const char* pump) override {
    return DeleteResult(kPumps, caseName, {station, pump});
  }
  bool SavePumpResults(const char* caseName, const std::vector<R>& records) override {
    return SaveResults<R, 2>(kPumps, caseName, records);
  }
  bool DeleteCasePumpResults(const char* caseName) override { return DeleteCaseResults(kPumps, caseName); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(COptPump, IOptPump)
