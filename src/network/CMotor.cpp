#include "network/Catalogue.h"
#include "petrodb/network/IMotor.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_motor where MotorModel = '%s'"> kLoad;
constexpr Pattern<"select * from b_motor order by MotorModel"> kLoadAll;
constexpr Pattern<"delete from b_motor where MotorModel = '%s'"> kDelete;
constexpr Pattern<"delete * from b_motor"> kDeleteAll;

const ColumnTable<MotorRecord> kColumns{"b_motor", {
    Col("MotorModel", &MotorRecord::MotorModel),
    Col("MPower", &MotorRecord::MPower),
    Col("MEff", &MotorRecord::MEff),
    Col("MV", &MotorRecord::MV),
    Col("MI", &MotorRecord::MI),
    Col("MMaxI", &MotorRecord::MMaxI),
    Col("PowerFac", &MotorRecord::PowerFac),
    Col("RatedRev", &MotorRecord::RatedRev),
    Col("ProdDate", &MotorRecord::ProdDate),
    Col("Mfr", &MotorRecord::Mfr),
    Col("Memo", &MotorRecord::Memo),
}};

const Catalogue<MotorRecord> kCatalogue{
    .columns = kColumns,
    .key = &MotorRecord::MotorModel,
    .loadKey = ByKey<kLoad>,
    .loadAll = Whole<kLoadAll>,
    .deleteKey = ByKey<kDelete>,
    .deleteAll = Whole<kDeleteAll>,
    .emptyKey = ErrorMessage("电机型号不能为空！"),
    .tableMissing = ErrorMessage("电机基本数据表为空！"),
};

}  // namespace

class CMotor final : public CCatalogueObject<IMotor> {
 public:
  bool LoadMotor(const char* model, MotorRecord& record) override { return LoadEntry(kCatalogue, model, record); }
  bool LoadAllMotors(std::vector<MotorRecord>& records) override { return LoadEntries(kCatalogue, records); }
  bool MotorExists(const char* model) override { return EntryExists(kCatalogue, model); }
  bool SaveMotor(const MotorRecord& record) override { return SaveEntry(kCatalogue, record); }
  bool SaveMotors(const std::vector<MotorRecord>& records) override { return SaveEntries(kCatalogue, records); }
  bool DeleteMotor(const char* model) override { return DeleteEntry(kCatalogue, model); }
  bool DeleteAllMotors() override { return DeleteEntries(kCatalogue); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CMotor, IMotor)
