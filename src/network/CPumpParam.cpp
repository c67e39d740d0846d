#include "network/Catalogue.h"
#include "petrodb/network/IPumpParam.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_pump_param where PumpModel = '%s'"> kLoad;
constexpr Pattern<"delete from b_pump_param where PumpModel = '%s'"> kDelete;

const ColumnTable<PumpParamRecord> kColumns{"b_pump_param", {
    Col("PumpModel", &PumpParamRecord::PumpModel),
    Col("Dia", &PumpParamRecord::Dia),
    Col("RatedP", &PumpParamRecord::RatedP),
    Col("RatedQ", &PumpParamRecord::RatedQ),
}};

const Catalogue<PumpParamRecord> kCatalogue{
    .columns = kColumns,
    .key = &PumpParamRecord::PumpModel,
    .loadKey = ByKey<kLoad>,
    .deleteKey = ByKey<kDelete>,
    .emptyKey = ErrorMessage("泵型号不能为空！"),
    .tableMissing = ErrorMessage("泵特性数据表为空！"),
};

}  // namespace

class CPumpParam final : public CCatalogueObject<IPumpParam> {
 public:
  bool LoadPumpParams(const char* model, std::vector<PumpParamRecord>& points) override {
    return LoadEntryRows(kCatalogue, model, points);
  }
  bool PumpParamsExist(const char* model) override { return EntryExists(kCatalogue, model); }
  bool SavePumpParams(const char* model, const std::vector<PumpParamRecord>& points) override {
    return SaveEntryRows(kCatalogue, model, points);
  }
  bool DeletePumpParams(const char* model) override { return DeleteEntry(kCatalogue, model); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CPumpParam, IPumpParam)
