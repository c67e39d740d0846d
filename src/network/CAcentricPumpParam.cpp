#include "network/Catalogue.h"
#include "petrodb/network/IAcentricPumpParam.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_acentric_pump_param where PumpModel = '%s'"> kLoad;
constexpr Pattern<"select * from b_acentric_pump_param "> kLoadAll;
constexpr Pattern<"delete from b_acentric_pump_param where PumpModel = '%s'"> kDelete;
constexpr Pattern<"delete from b_acentric_pump_param"> kDeleteAll;

const ColumnTable<AcentricPumpParamRecord> kColumns{"b_acentric_pump_param", {
    Col("PumpModel", &AcentricPumpParamRecord::PumpModel),
    Col("Flow", &AcentricPumpParamRecord::Flow),
    Col("Power", &AcentricPumpParamRecord::Power),
    Col("Eff", &AcentricPumpParamRecord::Eff),
}};

const Catalogue<AcentricPumpParamRecord> kCatalogue{
    .columns = kColumns,
    .key = &AcentricPumpParamRecord::PumpModel,
    .loadKey = ByKey<kLoad>,
    .loadAll = Whole<kLoadAll>,
    .deleteKey = ByKey<kDelete>,
    .deleteAll = Whole<kDeleteAll>,
    .emptyKey = ErrorMessage("泵型号不能为空！"),
    .tableMissing = ErrorMessage("泵特性数据表为空！"),
};

}  // namespace

class CAcentricPumpParam final : public CCatalogueObject<IAcentricPumpParam> {
 public:
  bool LoadAcentricPumpParams(const char* model, std::vector<AcentricPumpParamRecord>& points) override {
    return LoadEntryRows(kCatalogue, model, points);
  }
  bool LoadAllAcentricPumpParams(std::vector<AcentricPumpParamRecord>& points) override { return LoadEntries(kCatalogue, points); }
  bool AcentricPumpParamsExist(const char* model) override { return EntryExists(kCatalogue, model); }
  bool SaveAcentricPumpParams(const char* model, const std::vector<AcentricPumpParamRecord>& points) override {
    return SaveEntryRows(kCatalogue, model, points);
  }
  bool SaveAcentricPumpParamList(const std::vector<AcentricPumpParamRecord>& points) override { return SaveEntries(kCatalogue, points); }
  bool DeleteAcentricPumpParams(const char* model) override { return DeleteEntry(kCatalogue, model); }
  bool DeleteAllAcentricPumpParams() override { return DeleteEntries(kCatalogue); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CAcentricPumpParam, IAcentricPumpParam)
