#include "network/Catalogue.h"
#include "petrodb/network/IRodPumpParam.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_rod_pump_param where PumpModel = '%s' order by Dia"> kLoad;
constexpr Pattern<"select * from b_rod_pump_param"> kLoadAll;
constexpr Pattern<"delete from b_rod_pump_param where PumpModel = '%s'"> kDelete;
constexpr Pattern<"delete from b_rod_pump_param "> kDeleteAll;

const ColumnTable<RodPumpParamRecord> kColumns{"b_rod_pump_param", {
    Col("PumpModel", &RodPumpParamRecord::PumpModel),
    Col("Dia", &RodPumpParamRecord::Dia),
    Col("RatedP", &RodPumpParamRecord::RatedP),
    Col("RatedQ", &RodPumpParamRecord::RatedQ),
}};

const Catalogue<RodPumpParamRecord> kCatalogue{
    .columns = kColumns,
    .key = &RodPumpParamRecord::PumpModel,
    .loadKey = ByKey<kLoad>,
    .loadAll = Whole<kLoadAll>,
    .deleteKey = ByKey<kDelete>,
    .deleteAll = Whole<kDeleteAll>,
    .emptyKey = ErrorMessage("泵型号不能为空！"),
    .tableMissing = ErrorMessage("泵特性数据表为空！"),
};

}  // namespace

class CRodPumpParam final : public CCatalogueObject<IRodPumpParam> {
 public:
  bool LoadRodPumpParams(const char* model, std::vector<RodPumpParamRecord>& points) override {
    return LoadEntryRows(kCatalogue, model, points);
  }
  bool LoadAllRodPumpParams(std::vector<RodPumpParamRecord>& points) override { return LoadEntries(kCatalogue, points); }
  bool RodPumpParamsExist(const char* model) override { return EntryExists(kCatalogue, model); }
  bool SaveRodPumpParams(const char* model, const std::vector<RodPumpParamRecord>& points) override {
    return SaveEntryRows(kCatalogue, model, points);
  }
  bool SaveRodPumpParamList(const std::vector<RodPumpParamRecord>& points) override { return SaveEntries(kCatalogue, points); }
  bool DeleteRodPumpParams(const char* model) override { return DeleteEntry(kCatalogue, model); }
  bool DeleteAllRodPumpParams() override { return DeleteEntries(kCatalogue); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CRodPumpParam, IRodPumpParam)
