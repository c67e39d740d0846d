#include "network/ResultTables.h"
#include "petrodb/network/IOptSta.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

using R = OptStaRecord;

constexpr Pattern<"select * from r_opt_sta where ProjName = '%s' and StaName = '%s'"> kLoadOne;
constexpr Pattern<"select * from r_opt_sta where ProjName = '%s' order by StaName"> kLoadCase;
constexpr Pattern<"delete from r_opt_sta where ProjName='%s' and StaName = '%s'"> kDeleteOne;
constexpr Pattern<"delete from r_opt_sta where ProjName = '%s'"> kDeleteCase;

const ColumnTable<R> kColumns{"r_opt_sta", {
    Col("ProjName", &R::ProjName),
    Col("StaName", &R::StaName),
    Col("MaxQ", &R::MaxQ),
    Col("MinQ", &R::MinQ),
    Col("InitQ", &R::InitQ),
    Col("PumpNum", &R::PumpNum),
    Col("KbNum", &R::KbNum),
    Col("OptQ", &R::OptQ),
    Col("OptGy", &R::OptGy),
    Col("OptKbNum", &R::OptKbNum),
    Col("Eff", &R::Eff),
    Col("Dh", &R::Dh),
    Col("SumEff", &R::SumEff),
    Col("StaQ", &R::StaQ),
    Col("StaP", &R::StaP),
    Col("StaE", &R::StaE),
    Col("StaPower", &R::StaPower),
}};

const ResultTable<R, 1> kStations{
    .columns = kColumns,
    .caseName = &R::ProjName,
    .keys = {&R::StaName},
    .loadOne = ForElement<kLoadOne>,
    .loadCase = ByKey<kLoadCase>,
    .deleteOne = ForElement<kDeleteOne>,
    .deleteCase = ByKey<kDeleteCase>,
    .emptyCase = ErrorMessage("注水站优化约束条件及名称不能为空！"),  // a station name is not checked
    .deleteTableMissing = ErrorMessage("注水站优化约束条件及结果表为空！"),
    .saveTableMissing = ErrorMessage("注水站优化约束条件及结果数据表为空！"),
};

}  // namespace

class COptSta final : public CStationResultObject<IOptSta, R, kStations> {
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(COptSta, IOptSta)
