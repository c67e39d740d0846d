#include "network/Catalogue.h"
#include "petrodb/network/IValve.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_valve where ValveModel = '%s'"> kLoadValve;
constexpr Pattern<"select * from b_valve order by ValveModel"> kLoadAllValves;
constexpr Pattern<"select ValveModel from b_valve order by ValveModel"> kListModels;
constexpr Pattern<"delete from b_valve where ValveModel = '%s'"> kDeleteValve;
constexpr Pattern<"delete * from b_valve"> kDeleteAllValves;

// Loading one valve names the diameter column "VDiar"; every other operation "VDia".
ColumnTable<ValveRecord> ValveColumns(const char* diameter) {
  return {"b_valve", {
      Col("ValveModel", &ValveRecord::ValveModel),
      Col(diameter, &ValveRecord::VDia),
      Col("VPress", &ValveRecord::VPress),
      Col("VMaterial", &ValveRecord::VMaterial),
      Col("ProdDate", &ValveRecord::ProdDate),
      Col("Mfr", &ValveRecord::Mfr),
      Col("Memo", &ValveRecord::Memo),
  }};
}
const ColumnTable<ValveRecord> kValveColumns = ValveColumns("VDia");
const ColumnTable<ValveRecord> kLoadOneColumns = ValveColumns("VDiar");

const Catalogue<ValveRecord> kValves{
    .columns = kValveColumns,
    .key = &ValveRecord::ValveModel,
    .loadKey = ByKey<kLoadValve>,
    .loadAll = Whole<kLoadAllValves>,
    .listKeys = Whole<kListModels>,
    .deleteKey = ByKey<kDeleteValve>,
    .deleteAll = Whole<kDeleteAllValves>,
    .emptyKey = ErrorMessage("阀门型号不能为空！"),
    .tableMissing = ErrorMessage("阀门基本数据表为空！"),
};

}  // namespace

class CValve final : public CCatalogueObject<IValve> {
 public:
  bool LoadValve(const char* model, ValveRecord& record) override {
    return LoadOne(kLoadValve(model), kLoadOneColumns, record);
  }
  bool LoadAllValves(std::vector<ValveRecord>& records) override { return LoadEntries(kValves, records); }
  bool ListValveModels(std::vector<std::string>& models) override { return ListKeys(kValves, models); }
  bool ValveExists(const char* model) override { return EntryExists(kValves, model); }
  bool SaveValve(const ValveRecord& record) override { return SaveEntry(kValves, record); }
  bool SaveValves(const std::vector<ValveRecord>& records) override { return SaveEntries(kValves, records); }
  bool DeleteValve(const char* model) override { return DeleteEntry(kValves, model); }
  bool DeleteAllValves() override { return DeleteEntries(kValves); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CValve, IValve)
