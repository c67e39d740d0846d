#include "network/Catalogue.h"
#include "petrodb/network/IPressureGage.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_pressure_gage where PGModel = '%s'"> kLoadGage;
constexpr Pattern<"select * from b_pressure_gage order by PGModel"> kLoadAllGages;
constexpr Pattern<"select PGModel from b_pressure_gage order by PGModel"> kListModels;
constexpr Pattern<"delete from b_pressure_gage where PGModel = '%s'"> kDeleteGage;
constexpr Pattern<"delete * from b_pressure_gage"> kDeleteAllGages;

const ColumnTable<PressureGageRecord> kGageColumns{"b_pressure_gage", {
    Col("PGModel", &PressureGageRecord::PGModel),
    Col("PGP", &PressureGageRecord::PGP),
    Col("PGF", &PressureGageRecord::PGF),
    Col("PGT", &PressureGageRecord::PGT),
    Col("PGV", &PressureGageRecord::PGV),
    Col("ProdDate", &PressureGageRecord::ProdDate),
    Col("Mfr", &PressureGageRecord::Mfr),
    Col("Memo", &PressureGageRecord::Memo),
}};

const Catalogue<PressureGageRecord> kGages{
    .columns = kGageColumns,
    .key = &PressureGageRecord::PGModel,
    .loadKey = ByKey<kLoadGage>,
    .loadAll = Whole<kLoadAllGages>,
    .listKeys = Whole<kListModels>,
    .deleteKey = ByKey<kDeleteGage>,
    .deleteAll = Whole<kDeleteAllGages>,
    .emptyKey = ErrorMessage("压力表型号不能为空！"),
    .tableMissing = ErrorMessage("压力表基本数据表为空！"),
};

}  // namespace

class CPressureGage final : public CCatalogueObject<IPressureGage> {
 public:
  bool LoadPressureGage(const char* model, PressureGageRecord& record) override { return LoadEntry(kGages, model, record); }
  bool LoadAllPressureGages(std::vector<PressureGageRecord>& records) override { return LoadEntries(kGages, records); }
  bool ListPressureGageModels(std::vector<std::string>& models) override { return ListKeys(kGages, models); }
  bool PressureGageExists(const char* model) override { return EntryExists(kGages, model); }
  bool SavePressureGage(const PressureGageRecord& record) override { return SaveEntry(kGages, record); }
  bool SavePressureGages(const std::vector<PressureGageRecord>& records) override { return SaveEntries(kGages, records); }
  bool DeletePressureGage(const char* model) override { return DeleteEntry(kGages, model); }
  bool DeleteAllPressureGages() override { return DeleteEntries(kGages); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CPressureGage, IPressureGage)
