#include "network/Catalogue.h"
#include "petrodb/network/IRodPump.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_rod_pump where PumpModel = '%s'"> kLoad;
constexpr Pattern<"select * from b_rod_pump"> kLoadAll;
constexpr Pattern<"select PumpModel from b_rod_pump order by PumpModel"> kListModels;
constexpr Pattern<"delete from b_rod_pump where PumpModel = '%s'"> kDelete;
constexpr Pattern<"delete * from b_rod_pump"> kDeleteAll;

const ColumnTable<RodPumpRecord> kColumns{"b_rod_pump", {
    Col("PumpModel", &RodPumpRecord::PumpModel),
    Col("RatedPower", &RodPumpRecord::RatedPower),
    Col("RodNum", &RodPumpRecord::RodNum),
    Col("ProdDate", &RodPumpRecord::ProdDate),
    Col("Mfr", &RodPumpRecord::Mfr),
    Col("Memo", &RodPumpRecord::Memo),
    Col("RodCC", &RodPumpRecord::RodCC),
    Col("RodCS", &RodPumpRecord::RodCS),
    Col("Conversion", &RodPumpRecord::Conversion),
}};

const Catalogue<RodPumpRecord> kCatalogue{
    .columns = kColumns,
    .key = &RodPumpRecord::PumpModel,
    .loadKey = ByKey<kLoad>,
    .loadAll = Whole<kLoadAll>,
    .listKeys = Whole<kListModels>,
    .deleteKey = ByKey<kDelete>,
    .deleteAll = Whole<kDeleteAll>,
    .emptyKey = ErrorMessage("泵型号不能为空！"),
    .tableMissing = ErrorMessage("柱塞泵基本数据表为空！"),
};

}  // namespace

class CRodPump final : public CCatalogueObject<IRodPump> {
 public:
  bool LoadRodPump(const char* model, RodPumpRecord& record) override { return LoadEntry(kCatalogue, model, record); }
  bool LoadAllRodPumps(std::vector<RodPumpRecord>& records) override { return LoadEntries(kCatalogue, records); }
  bool ListRodPumpModels(std::vector<std::string>& models) override { return ListKeys(kCatalogue, models); }
  bool RodPumpExists(const char* model) override { return EntryExists(kCatalogue, model); }
  bool SaveRodPump(const RodPumpRecord& record) override { return SaveEntry(kCatalogue, record); }
  bool SaveRodPumps(const std::vector<RodPumpRecord>& records) override { return SaveEntries(kCatalogue, records); }
  bool DeleteRodPump(const char* model) override { return DeleteEntry(kCatalogue, model); }
  bool DeleteAllRodPumps() override { return DeleteEntries(kCatalogue); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CRodPump, IRodPump)
