#include "network/ResultTables.h"
#include "petrodb/network/ISimuEff.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

using R = SimuEffRecord;

constexpr Pattern<"select * from r_simu_eff where ProjName = '%s'"> kLoad;
constexpr Pattern<"delete from r_simu_eff where ProjName = '%s'"> kDelete;

const ColumnTable<R> kColumns{"r_simu_eff", {
    Col("ProjName", &R::ProjName),
    Col("AvPumpEff", &R::AvPumpEff),
    Col("AvStaEff", &R::AvStaEff),
    Col("SysEff", &R::SysEff),
    Col("PipenetEff", &R::PipenetEff),
    Col("AvMotorEff", &R::AvMotorEff),
    Col("StaDayQ", &R::StaDayQ),
    Col("WellDayQ", &R::WellDayQ),
    Col("SysDayKw", &R::SysDayKw),
    Col("StaDayKw", &R::StaDayKw),
    Col("WellDayKw", &R::WellDayKw),
}};

constexpr Message kTableMissing = ErrorMessage("效率仿真结果表为空！");  // saving and deleting alike

const ResultTable<R, 0> kEfficiency{
    .columns = kColumns,
    .caseName = &R::ProjName,
    .loadOne = ForElement<kLoad>,
    .deleteOne = ForElement<kDelete>,
    .deleteCase = ByKey<kDelete>,
    .emptyCase = ErrorMessage("效率仿真名称不能为空！"),
    .deleteTableMissing = kTableMissing,
    .saveTableMissing = kTableMissing,
};

}  // namespace

class CSimuEff final : public CResultObject<ISimuEff> {
 public:
  bool LoadSimuEff(const char* caseName, R& record) override { return LoadResult(kEfficiency, caseName, {}, record); }
  bool SimuEffExists(const char* caseName) override { return ResultExists(kEfficiency, caseName, {}); }
  bool SaveSimuEff(const char* caseName, const R& record) override {
    return SaveResults<R, 0>(kEfficiency, caseName, {&record, 1});
  }
  bool DeleteSimuEff(const char* caseName) override { return DeleteCaseResults(kEfficiency, caseName); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSimuEff, ISimuEff)
