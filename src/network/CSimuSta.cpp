#include "network/ResultTables.h"
#include "petrodb/network/ISimuSta.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

using R = SimuStaRecord;

constexpr Pattern<"select * from r_simu_sta where ProjName = '%s' and StaName = '%s'"> kLoadOne;
constexpr Pattern<"select * from r_simu_sta where ProjName = '%s' order by StaName"> kLoadCase;
constexpr Pattern<"delete from r_simu_sta where ProjName='%s' and StaName = '%s'"> kDeleteOne;
constexpr Pattern<"delete from r_simu_sta where ProjName = '%s'"> kDeleteCase;

const ColumnTable<R> kColumns{"r_simu_sta", {
    Col("ProjName", &R::ProjName),
    Col("StaName", &R::StaName),
    Col("Eff", &R::Eff),
    Col("Dh", &R::Dh),
    Col("SumEff", &R::SumEff),
}};

const ResultTable<R, 1> kStations{
    .columns = kColumns,
    .caseName = &R::ProjName,
    .keys = {&R::StaName},
    .loadOne = ForElement<kLoadOne>,
    .loadCase = ByKey<kLoadCase>,
    .deleteOne = ForElement<kDeleteOne>,
    .deleteCase = ByKey<kDeleteCase>,
    .emptyCase = ErrorMessage("工况名称不能为空！"),
    .emptyKeys = {ErrorMessage("注水站名称不能为空！")},
    .deleteTableMissing = ErrorMessage("注水站仿真结果表为空！"),
    .saveTableMissing = ErrorMessage("注水站仿真结果数据表为空！"),
};

}  // namespace

class CSimuSta final : public CStationResultObject<ISimuSta, R, kStations> {
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSimuSta, ISimuSta)
