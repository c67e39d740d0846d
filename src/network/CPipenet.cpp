#include "network/NetworkCommon.h"
#include "petrodb/network/IPipenet.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from n_pipenet where PipenetName = '%s'"> kLoadPipenet;
constexpr Pattern<"select PipenetName from n_pipenet order by PipenetName"> kListNames;
constexpr Pattern<"select PipenetName from n_pipenet where PipenetType='%s' order by PipenetName"> kListNamesByType;
constexpr Pattern<"select PipenetName from n_pipenet where UnitName ='%s' and PipenetType='%s' order by PipenetName">
    kListNamesByUnitAndType;
constexpr Pattern<"select distinct UnitName from n_pipenet order by UnitName"> kListUnits;
constexpr Pattern<"select * from n_pipenet order by PipenetName"> kLoadAll;
constexpr Pattern<"select * from n_pipenet  where UnitName ='%s' order by PipenetName"> kLoadByUnit;
constexpr Pattern<"select * from n_pipenet  where PipenetType ='%s' order by PipenetName"> kLoadByType;
constexpr Pattern<"delete from n_pipenet where PipenetName = '%s'"> kDeletePipenet;

constexpr const char* kTable = "n_pipenet";

// CreateDate is the database's (a default of the time the row is written).
// PipenetType is the one field whose read result does not matter.
const ColumnTable<PipenetRecord> kPipenetColumns{kTable, {
    Col("PipenetName", &PipenetRecord::PipenetName),
    Col("UnitName", &PipenetRecord::UnitName),
    Col("CreateDate", &PipenetRecord::CreateDate).ReadOnly(),
    Col("Creator", &PipenetRecord::Creator),
    Col("Memo", &PipenetRecord::Memo),
    Col("LeftMargin", &PipenetRecord::LeftMargin),
    Col("TopMargin", &PipenetRecord::TopMargin),
    Col("Ratio", &PipenetRecord::Ratio),
    Col("Xmin", &PipenetRecord::Xmin),
    Col("Xmax", &PipenetRecord::Xmax),
    Col("Ymin", &PipenetRecord::Ymin),
    Col("Ymax", &PipenetRecord::Ymax),
    Col("SubNum", &PipenetRecord::SubNum),
    Col("StationbreachNum", &PipenetRecord::StationbreachNum),
    Col("PipenetType", &PipenetRecord::PipenetType).Optional(),
}};

constexpr Message kEmptyName = AppMessage("管网名称不能为空。");
// The probe of a network save shows nothing.
const ReplaceSteps kSave{kTable};

}  // namespace

class CPipenet final : public CDataObject<IPipenet> {
 public:
  bool LoadPipenet(const char* name, PipenetRecord& record) override {
    return LoadOne(kLoadPipenet(name), kPipenetColumns, record);
  }
  bool ListPipenetNames(std::vector<std::string>& names) override { return Names(kListNames(), names); }
  bool ListPipenetNamesByType(const char* type, std::vector<std::string>& names) override {
    return Names(kListNamesByType(type), names);
  }
  bool ListPipenetNamesByUnitAndType(const char* unit, const char* type, std::vector<std::string>& names) override {
    return Names(kListNamesByUnitAndType(unit, type), names);
  }
  bool ListUnitNames(std::vector<std::string>& units) override {
    return ListColumn(kListUnits(), "UnitName", units, Fill::Clear).found();
  }
  bool LoadAllPipenets(std::vector<PipenetRecord>& records) override { return Records(kLoadAll(), records); }
  bool LoadPipenetsByUnit(const char* unit, std::vector<PipenetRecord>& records) override {
    return Records(kLoadByUnit(unit), records);
  }
  bool LoadPipenetsByType(const char* type, std::vector<PipenetRecord>& records) override {
    return Records(kLoadByType(type), records);
  }
  bool PipenetExists(const char* name) override { return ExistsInTable(kTable, kLoadPipenet(name)); }

  // The old header goes through DeletePipenet, which probes the table again.
  bool SavePipenet(const PipenetRecord& record) override {
    if (!KeyGiven(record.PipenetName, kEmptyName)) return false;
    return ReplaceAfter(
        kSave, [&](CDbManage&) { return DeletePipenet(record.PipenetName.c_str()); },
        [&](CDbManage& db) { kPipenetColumns.AddRow(db, record); });
  }

  bool DeletePipenet(const char* name) override {
    if (!name || !*name) return false;
    return ExecuteOnTable(kTable, kDeletePipenet(name));
  }
  PETRODB_DATA_CLASS

 private:
  bool Names(const Statement& statement, std::vector<std::string>& names) const {
    return ListColumn(statement, "PipenetName", names, Fill::Clear).found();
  }
  bool Records(const Statement& statement, std::vector<PipenetRecord>& records) const {
    return LoadAll(statement, kPipenetColumns, records, Fill::Clear).found();
  }
};

PETRODB_REGISTER_CLASS(CPipenet, IPipenet)
