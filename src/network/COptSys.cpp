#include "network/ResultTables.h"
#include "petrodb/network/IOptSys.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

using R = OptSysRecord;

constexpr Pattern<"select * from r_opt_sys where ProjName = '%s'"> kLoad;
constexpr Pattern<"delete from r_opt_sys where ProjName = '%s'"> kDelete;

const ColumnTable<R> kColumns{"r_opt_sys", {
    Col("ProjName", &R::ProjName),
    Col("ResultType", &R::ResultType),
    Col("SysQ", &R::SysQ),
    Col("SysKw", &R::SysKw),
    Col("AvPumpEff", &R::AvPumpEff),
    Col("AvPipenetEff", &R::AvPipenetEff),
    Col("SysEff", &R::SysEff),
    Col("UnitKw", &R::UnitKw),
    Col("OpenedPumps", &R::OpenedPumps),
}};

constexpr Message kTableMissing = ErrorMessage("注水系统性能参数优化结果表为空！");  // saving and deleting alike

const ResultTable<R, 0> kSystem{
    .columns = kColumns,
    .caseName = &R::ProjName,
    .loadOne = ForElement<kLoad>,
    .deleteOne = ForElement<kDelete>,
    .deleteCase = ByKey<kDelete>,
    .emptyCase = ErrorMessage("注水系统性能参数优化名称不能为空！"),
    .deleteTableMissing = kTableMissing,
    .saveTableMissing = kTableMissing,
};

}  // namespace

class COptSys final : public CResultObject<IOptSys> {
 public:
  bool LoadOptSys(const char* caseName, R& record) override { return LoadResult(kSystem, caseName, {}, record); }
  bool OptSysExists(const char* caseName) override { return ResultExists(kSystem, caseName, {}); }
  bool SaveOptSys(const char* caseName, const R& record) override {
    return SaveResults<R, 0>(kSystem, caseName, {&record, 1});
  }
  bool DeleteOptSys(const char* caseName) override { return DeleteCaseResults(kSystem, caseName); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(COptSys, IOptSys)
