#include "network/Catalogue.h"
#include "petrodb/network/IRodStruct.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from w_rod_struct where Jh = '%s' and Prod_horizon = '%s'"> kLoadHorizon;
constexpr Pattern<"select * from w_rod_struct where Jh = '%s'"> kLoadWell;
constexpr Pattern<"select * from w_rod_struct where Jh like '%s%%'"> kLoadByPrefix;
constexpr Pattern<"select * from w_rod_struct order by jh"> kLoadAll;
constexpr Pattern<"select * from w_rod_struct where Jh in ( select NodeName from n_nodes where PipenetName = '%s' "
                  "and NodeType = %d ) order by Jh">
    kLoadOfNetwork;
constexpr Pattern<"delete from w_rod_struct where Jh = '%s'"> kDeleteWell;
constexpr Pattern<"delete from w_rod_struct where Jh in ( select NodeName from n_nodes where PipenetName = '%s' "
                  "and NodeType = %d )">
    kDeleteOfNetwork;
constexpr Pattern<"delete from w_rod_struct where Jh in (%s)"> kDeleteWells;

// The node type of injection wells.
constexpr int kInjectionWell = 2;

const ColumnTable<RodStructRecord> kColumns{"w_rod_struct", {
    Col("Jh", &RodStructRecord::Jh),
    Col("Prod_horizon", &RodStructRecord::Prod_horizon),
    Col("Inj_type", &RodStructRecord::Inj_type),
    Col("Packer_num", &RodStructRecord::Packer_num),
    Col("Rod_struct", &RodStructRecord::Rod_struct),
    Col("Buckle_type", &RodStructRecord::Buckle_type),
    Col("Tube_level", &RodStructRecord::Tube_level),
    Col("Tube_in_dia", &RodStructRecord::Tube_in_dia),
    Col("Distr_level", &RodStructRecord::Distr_level),
    Col("Distr_len", &RodStructRecord::Distr_len),
    Col("Distr_core_dia", &RodStructRecord::Distr_core_dia),
    Col("Distr_core_len", &RodStructRecord::Distr_core_len),
    Col("Distr_mouth_dia", &RodStructRecord::Distr_mouth_dia),
    Col("Packer_type", &RodStructRecord::Packer_type),
    Col("Packer_len", &RodStructRecord::Packer_len),
    Col("Packer_in_dia", &RodStructRecord::Packer_in_dia),
    Col("Tee_in_dia", &RodStructRecord::Tee_in_dia),
    Col("Sieve_tube_len", &RodStructRecord::Sieve_tube_len),
    Col("Sieve_tube_out_dia", &RodStructRecord::Sieve_tube_out_dia),
    Col("Plug_out_dia", &RodStructRecord::Plug_out_dia),
}};

// A well's rows are one catalogue entry: loaded, replaced and deleted together.
const Catalogue<RodStructRecord> kWells{
    .columns = kColumns,
    .key = &RodStructRecord::Jh,
    .loadKey = ByKey<kLoadWell>,
    .loadAll = Whole<kLoadAll>,
    .deleteKey = ByKey<kDeleteWell>,
    .emptyKey = ErrorMessage("注水井号不能为空！"),
    .tableMissing = ErrorMessage("井筒管柱结构数据表为空！"),
};

constexpr Message kEmptyNetwork = ErrorMessage("管网名称不能为空！");

}  // namespace

class CRodStruct final : public CCatalogueObject<IRodStruct> {
 public:
  bool LoadRodStruct(const char* well, const char* horizon, RodStructRecord& record) override {
    return LoadOne(kLoadHorizon(well, horizon), kColumns, record);
  }
  bool LoadWellRodStructs(const char* well, std::vector<RodStructRecord>& records) override {
    return LoadEntryRows(kWells, well, records);
  }
  bool LoadRodStructsByPrefix(const char* prefix, std::vector<RodStructRecord>& records) override {
    return Rows(kLoadByPrefix(prefix), records);
  }
  bool LoadAllRodStructs(std::vector<RodStructRecord>& records) override { return LoadEntries(kWells, records); }
  bool LoadPipenetRodStructs(const char* network, std::vector<RodStructRecord>& records) override {
    return Rows(kLoadOfNetwork(network, kInjectionWell), records);
  }
  bool WellRodStructsExist(const char* well) override { return EntryExists(kWells, well); }

  bool SaveWellRodStructs(const char* well, const std::vector<RodStructRecord>& records) override {
    return SaveEntryRows(kWells, well, records);
  }
  bool SaveRodStructList(const std::vector<RodStructRecord>& records) override {
    return SaveEntries(kWells, records);
  }

  bool DeleteWellRodStructs(const char* well) override { return DeleteEntry(kWells, well); }
  bool DeletePipenetRodStructs(const char* network) override {
    return KeyGiven(network, kEmptyNetwork) && Execute(kDeleteOfNetwork(network, kInjectionWell));
  }
  bool DeleteRodStructsOfWells(const std::vector<std::string>& wells) override {
    return Execute(kDeleteWells(sql::QuoteEach(wells, ", ")));
  }
  PETRODB_DATA_CLASS

 private:
  bool Rows(const Statement& statement, std::vector<RodStructRecord>& records) const {
    return LoadAll(statement, kColumns, records, Fill::Clear).found();
  }
};

PETRODB_REGISTER_CLASS(CRodStruct, IRodStruct)
