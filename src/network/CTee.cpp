#include "network/Catalogue.h"
#include "petrodb/network/ITee.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_tee where TeeModel = '%s'"> kLoadTee;
constexpr Pattern<"select * from b_tee order by TeeModel"> kLoadAllTees;
constexpr Pattern<"delete from b_tee where TeeModel = '%s'"> kDeleteTee;
constexpr Pattern<"delete * from b_tee"> kDeleteAllTees;

const ColumnTable<TeeRecord> kTeeColumns{"b_tee", {
    Col("TeeModel", &TeeRecord::TeeModel),
    Col("TeeDia", &TeeRecord::TeeDia),
    Col("TeePress", &TeeRecord::TeePress),
    Col("TeeMaterial", &TeeRecord::TeeMaterial),
    Col("ProdDate", &TeeRecord::ProdDate),
    Col("Mfr", &TeeRecord::Mfr),
    Col("Memo", &TeeRecord::Memo),
}};

const Catalogue<TeeRecord> kTees{
    .columns = kTeeColumns,
    .key = &TeeRecord::TeeModel,
    .loadKey = ByKey<kLoadTee>,
    .loadAll = Whole<kLoadAllTees>,
    .deleteKey = ByKey<kDeleteTee>,
    .deleteAll = Whole<kDeleteAllTees>,
    .emptyKey = ErrorMessage("三通型号不能为空！"),
    .tableMissing = ErrorMessage("三通基本数据表为空！"),
};

}  // namespace

class CTee final : public CCatalogueObject<ITee> {
 public:
  bool LoadTee(const char* model, TeeRecord& record) override { return LoadEntry(kTees, model, record); }
  bool LoadAllTees(std::vector<TeeRecord>& records) override { return LoadEntries(kTees, records); }
  bool TeeExists(const char* model) override { return EntryExists(kTees, model); }
  bool SaveTee(const TeeRecord& record) override { return SaveEntry(kTees, record); }
  bool SaveTees(const std::vector<TeeRecord>& records) override { return SaveEntries(kTees, records); }
  bool DeleteTee(const char* model) override { return DeleteEntry(kTees, model); }
  bool DeleteAllTees() override { return DeleteEntries(kTees); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CTee, ITee)
