#include "network/Catalogue.h"
#include "petrodb/production/IInjIndex.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from w_inj_index where Jh = '%s'"> kLoad;
constexpr Pattern<"select * from w_inj_index where Jh like '%s%%'"> kLoadLike;
constexpr Pattern<"select * from w_inj_index order by jh"> kLoadAll;
// The network's injection wells are its nodes of type 2.
constexpr Pattern<
    "select * from w_inj_index where Jh in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = 2 ) "
    "order by Jh">
    kLoadOfNetwork;
constexpr Pattern<"delete from w_inj_index where Jh = '%s'"> kDelete;
constexpr Pattern<
    "delete from w_inj_index where Jh in ( select NodeName from n_nodes where PipenetName = '%s' and NodeType = 2 )">
    kDeleteOfNetwork;
constexpr Pattern<"delete from w_inj_index where Jh in (%s)"> kDeleteOfWells;

const ColumnTable<InjIndexRecord> kColumns{"w_inj_index", {
    Col("Jh", &InjIndexRecord::Jh),
    Col("Inj_index", &InjIndexRecord::Inj_index),
    Col("Intercept", &InjIndexRecord::Intercept),
}};

const Catalogue<InjIndexRecord> kIndexes{
    .columns = kColumns,
    .key = &InjIndexRecord::Jh,
    .loadKey = ByKey<kLoad>,
    .loadAll = Whole<kLoadAll>,
    .deleteKey = ByKey<kDelete>,
};

}  // namespace

class CInjIndex final : public CCatalogueObject<IInjIndex> {
 public:
  bool LoadInjIndex(const char* well, InjIndexRecord& record) override { return LoadEntry(kIndexes, well, record); }
  bool LoadInjIndexesLike(const char* prefix, std::vector<InjIndexRecord>& records) override {
    return LoadAll(kLoadLike(prefix), kColumns, records, Fill::Clear).found();
  }
  bool LoadAllInjIndexes(std::vector<InjIndexRecord>& records) override { return LoadEntries(kIndexes, records); }
  bool LoadPipenetInjIndexes(const char* network, std::vector<InjIndexRecord>& records) override {
    return LoadAll(kLoadOfNetwork(network), kColumns, records, Fill::Clear).found();
  }
  bool InjIndexExists(const char* well) override { return EntryExists(kIndexes, well); }
  bool SaveInjIndex(const InjIndexRecord& record) override { return SaveEntry(kIndexes, record); }
  bool SaveInjIndexes(const std::vector<InjIndexRecord>& records) override { return SaveEntries(kIndexes, records); }
  bool DeleteInjIndex(const char* well) override { return DeleteEntry(kIndexes, well); }
  bool DeletePipenetInjIndexes(const char* network) override { return Execute(kDeleteOfNetwork(network)); }
  bool DeleteInjIndexesOfWells(const std::vector<std::string>& wells) override {
    return Execute(kDeleteOfWells(sql::QuoteEach(wells)));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CInjIndex, IInjIndex)
