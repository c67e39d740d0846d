#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IVspGeneralData.h"

using namespace petrodb;

namespace {

constexpr const char* kTable = "vsp_general_data";

constexpr Pattern<"select Distinct general_name from vsp_general_data where Vsp_ProjID=%d and general_type = %d ">
    kNames;
constexpr Pattern<"select general_name, general_data  from vsp_general_data where Vsp_ProjID=%d and general_type = "
                  "%d ">
    kLoadType;
constexpr Pattern<"select  general_data from vsp_general_data where general_name = '%s' and  Vsp_ProjID = %d and "
                  "general_type = %d ">
    kLoadOne;
// The stray quote after the type is part of the statement: it cannot run.
constexpr Pattern<"delete from vsp_general_data where general_type = %d' and  Vsp_ProjID = %d"> kDeleteType;
constexpr Pattern<"delete from vsp_general_data where Vsp_ProjID = %d  and general_type = %d and general_name = '%s'">
    kDeleteOne;
constexpr Pattern<"select Vsp_ProjID from vsp_general_data where Vsp_ProjID = %d  and general_type = %d and "
                  "general_name = '%s'">
    kExists;

const Message kEmptyName = AppMessage("VSP常用数据名称不能为空！");

const ColumnTable<VspGeneralRecord> kGeneralColumns{kTable, {
    Col("Vsp_ProjID", &VspGeneralRecord::Vsp_ProjID),
    Col("general_name", &VspGeneralRecord::general_name),
    Col("general_type", &VspGeneralRecord::general_type),
    Col("general_data", &VspGeneralRecord::general_data).EmptyAsZeroLength(),
}};

}  // namespace

class CVspGeneralData final : public CDataObject<IVspGeneralData> {
 public:
  bool GetGeneralNames(int projectID, int type, std::vector<std::string>& names) override {
    return ListColumn(kNames(projectID, type), "general_name", names, Fill::Clear).found();
  }

  bool LoadGeneralSets(int projectID, int type, std::map<std::string, std::vector<double>>& sets) override {
    sets.clear();
    using Set = std::pair<std::string, std::vector<double>>;
    std::vector<Set> rows;
    const Loaded loaded = LoadRows(
        kLoadType(projectID, type), rows, Fill::Clear,
        [](CDbManage& db, Set& set) {
          return columns::ReadValue(db, "general_name", set.first) &&
                 columns::ReadValue(db, "general_data", set.second);
        },
        true);
    for (auto& [name, data] : rows) sets[name] = std::move(data);
    return loaded.found();
  }

  bool LoadGeneralSet(int projectID, int type, const char* name, std::vector<double>& data) override {
    data.clear();
    return LoadOneWith(kLoadOne(name, projectID, type),
                       [](CDbManage& db, std::vector<double>& d) { return columns::ReadValue(db, "general_data", d); },
                       data, true);
  }

  bool SaveGeneralSets(const std::vector<VspGeneralRecord>& records) override {
    for (const auto& r : records)
      if (!KeyGiven(r.general_name, kEmptyName)) return false;
    return Save(ReplaceSteps{kTable}, [&](CDbManage& db) { kGeneralColumns.AddRows(db, records); });
  }

  bool SaveGeneralSet(const VspGeneralRecord& record) override {
    return SaveGeneralSets({record});
  }

  bool DeleteGeneralType(int projectID, int type) override {
    return ExecuteOnTable(kTable, kDeleteType(type, projectID));
  }
  bool DeleteGeneralSet(int projectID, int type, const char* name) override {
    return ExecuteOnTable(kTable, kDeleteOne(projectID, type, name));
  }
  bool IsGeneralSetExist(int projectID, int type, const char* name) override {
    return Exists(kExists(projectID, type, name));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CVspGeneralData, IVspGeneralData)
