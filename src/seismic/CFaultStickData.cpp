#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IFaultStickData.h"
#include "seismic/SeismicCodecs.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select distinct FaultStickName from b_fault_stick"> kNames;
constexpr Pattern<"select * from b_fault_stick"> kLoadAll;
constexpr Pattern<"select * from b_fault_stick where FaultStickName='%s'"> kLoadSet;
constexpr Pattern<"delete from b_fault_stick where FaultStickName='%s'"> kDeleteSet;
// Ends in a stray quote after the list: no engine runs it.
constexpr Pattern<"delete from  b_fault_stick where FaultStickName in (%s) '"> kDeleteSets;
// Not a statement any engine runs either.
constexpr Pattern<"delete from  b_fault_stick where FaultStickName= *'"> kDeleteAll;

constexpr const char* kTable = "b_fault_stick";

// The stored row: the sticks packed into one array.
struct StickRow {
  std::string FaultStickName;
  std::vector<double> FaultVarValue;
};
const ColumnTable<StickRow> kColumns{kTable, {
    Col("FaultStickName", &StickRow::FaultStickName),
    Col("FaultVarValue", &StickRow::FaultVarValue).EmptyAsZeroLength(),
}};

bool ReadSet(const CDbManage& db, FaultStickRecord& set) {
  StickRow row;
  if (!kColumns.Read(db, row)) return false;
  set.FaultStickName = row.FaultStickName;
  set.Sticks = seismic::DecodeSticks(row.FaultVarValue);
  return true;
}

// `counter` numbers the sticks across the sets of one save.
void AddSet(CDbManage& db, const FaultStickRecord& set, int& counter) {
  kColumns.AddRow(db, StickRow{set.FaultStickName, seismic::EncodeSticks(set.Sticks, counter)});
}

constexpr Message kEmptyName = AppMessage("断层块名称不能为空！");

}  // namespace

class CFaultStickData final : public CDataObject<IFaultStickData> {
 public:
  bool GetFaultStickNames(std::vector<std::string>& names) override {
    return ListColumn(kNames(), "FaultStickName", names, Fill::Clear).ran();
  }

  bool LoadAllFaultSticks(std::vector<FaultStickRecord>& sets) override {
    return LoadRows(kLoadAll(), sets, Fill::Clear, ReadSet, true).ran();
  }

  bool LoadFaultStick(const char* name, FaultStickRecord& set) override {
    return LoadOneWith(kLoadSet(name), ReadSet, set, true);
  }

  bool SaveFaultSticks(const std::vector<FaultStickRecord>& sets) override {
    if (!TableAnswers(kTable)) return false;
    std::vector<std::string> names;
    for (const auto& set : sets) names.push_back(set.FaultStickName);
    if (!DeleteFaultSticks(names)) return false;
    int counter = 0;
    return Append(kTable, [&](CDbManage& db) {
      for (const auto& set : sets) AddSet(db, set, counter);
    });
  }

  bool SaveFaultStick(const FaultStickRecord& set) override {
    if (!KeyGiven(set.FaultStickName, kEmptyName)) return false;
    int counter = 0;
    return Save(ReplaceSteps{kTable}, [&](CDbManage& db) { AddSet(db, set, counter); });
  }

  bool DeleteFaultStick(const char* name) override {
    return KeyGiven(name, kEmptyName) && Execute(kDeleteSet(name));
  }

  bool DeleteFaultSticks(const std::vector<std::string>& names) override {
    if (names.empty()) {
      kEmptyName.Show();
      return false;
    }
    return Execute(kDeleteSets(sql::QuoteEach(names)));
  }

  bool DeleteAllFaultSticks() override { return ExecuteIfTable(kTable, kDeleteAll()); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CFaultStickData, IFaultStickData)
