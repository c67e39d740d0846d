#include "network/Catalogue.h"
#include "petrodb/network/IAcentricPump.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_acentric_pump where PumpModel = '%s'"> kLoad;
constexpr Pattern<"select * from b_acentric_pump order by PumpModel"> kLoadAll;
constexpr Pattern<"select PumpModel from b_acentric_pump order by PumpModel"> kListModels;
constexpr Pattern<"delete from b_acentric_pump where PumpModel = '%s'"> kDelete;
constexpr Pattern<"delete  * from b_acentric_pump"> kDeleteAll;

const ColumnTable<AcentricPumpRecord> kColumns{"b_acentric_pump", {
    Col("PumpModel", &AcentricPumpRecord::PumpModel),
    Col("RatedPower", &AcentricPumpRecord::RatedPower),
    Col("LeafDia", &AcentricPumpRecord::LeafDia),
    Col("ProdDate", &AcentricPumpRecord::ProdDate),
    Col("Mfr", &AcentricPumpRecord::Mfr),
    Col("Memo", &AcentricPumpRecord::Memo),
}};

const Catalogue<AcentricPumpRecord> kCatalogue{
    .columns = kColumns,
    .key = &AcentricPumpRecord::PumpModel,
    .loadKey = ByKey<kLoad>,
    .loadAll = Whole<kLoadAll>,
    .listKeys = Whole<kListModels>,
    .deleteKey = ByKey<kDelete>,
    .deleteAll = Whole<kDeleteAll>,
    .emptyKey = ErrorMessage("泵型号不能为空！"),
    .tableMissing = ErrorMessage("离心泵基本数据表为空！"),
};

}  // namespace

class CAcentricPump final : public CCatalogueObject<IAcentricPump> {
 public:
  bool LoadAcentricPump(const char* model, AcentricPumpRecord& record) override { return LoadEntry(kCatalogue, model, record); }
  bool LoadAllAcentricPumps(std::vector<AcentricPumpRecord>& records) override { return LoadEntries(kCatalogue, records); }
  bool ListAcentricPumpModels(std::vector<std::string>& models) override { return ListKeys(kCatalogue, models); }
  bool AcentricPumpExists(const char* model) override { return EntryExists(kCatalogue, model); }
  bool SaveAcentricPump(const AcentricPumpRecord& record) override { return SaveEntry(kCatalogue, record); }
  bool SaveAcentricPumps(const std::vector<AcentricPumpRecord>& records) override { return SaveEntries(kCatalogue, records); }
  bool DeleteAcentricPump(const char* model) override { return DeleteEntry(kCatalogue, model); }
  bool DeleteAllAcentricPumps() override { return DeleteEntries(kCatalogue); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CAcentricPump, IAcentricPump)
