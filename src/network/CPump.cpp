#include "network/Catalogue.h"
#include "petrodb/network/IPump.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_pump where PumpModel = '%s'"> kLoad;
constexpr Pattern<"delete from b_pump where PumpModel = '%s'"> kDelete;

const ColumnTable<PumpRecord> kColumns{"b_pump", {
    Col("PumpModel", &PumpRecord::PumpModel),
    Col("PumpType", &PumpRecord::PumpType),
    Col("ActiveDate", &PumpRecord::ActiveDate),
    Col("ProdDate", &PumpRecord::ProdDate),
    Col("Mfr", &PumpRecord::Mfr),
    Col("Memo", &PumpRecord::Memo),
    Col("LeafDia", &PumpRecord::LeafDia),
    Col("RatedRev", &PumpRecord::RatedRev),
    Col("Levels", &PumpRecord::Levels),
}};

const Catalogue<PumpRecord> kCatalogue{
    .columns = kColumns,
    .key = &PumpRecord::PumpModel,
    .loadKey = ByKey<kLoad>,
    .deleteKey = ByKey<kDelete>,
    .emptyKey = ErrorMessage("泵型号不能为空！"),
    .tableMissing = ErrorMessage("泵基本数据表为空！"),
};

}  // namespace

class CPump final : public CCatalogueObject<IPump> {
 public:
  bool LoadPump(const char* model, PumpRecord& record) override { return LoadEntry(kCatalogue, model, record); }
  bool PumpExists(const char* model) override { return EntryExists(kCatalogue, model); }
  bool SavePump(const PumpRecord& record) override { return SaveEntry(kCatalogue, record); }
  bool DeletePump(const char* model) override { return DeleteEntry(kCatalogue, model); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CPump, IPump)
