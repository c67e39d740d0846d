#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IVspAlgoPathData.h"

using namespace petrodb;

namespace {

constexpr const char* kTable = "vsp_algo_path";

constexpr Pattern<"select  distinct Algo_path, Sort_order from vsp_algo_path where Proj_type ='%s' order by "
                  "Sort_order">
    kPaths;
constexpr Pattern<"select Algo_name from vsp_algo_path where Proj_type ='%s' and Algo_path ='%s' order by Algo_name">
    kPathAlgorithms;
constexpr Pattern<"select *  from vsp_algo_path where Proj_type ='%s' order by Algo_path,Algo_name"> kCatalogue;
// Selects two columns but reads three others (see LoadPathAlgorithms).
constexpr Pattern<"select Algo_name, Proj_type from vsp_algo_path where Proj_type ='%s' and Algo_path ='%s'">
    kPathRecords;
constexpr Pattern<"delete from vsp_algo_path where  Proj_type ='%s'"> kDeleteType;
constexpr Pattern<"delete from vsp_algo_path where  Proj_type ='%s' and Algo_path = '%s' and Algo_name = '%s'">
    kDeleteAlgorithm;
constexpr Pattern<"delete from vsp_algo_path where  Proj_type ='%s' and Algo_path = '%s'"> kDeletePath;
constexpr Pattern<"select  Algo_path from vsp_algo_path where Proj_type ='%s' and Algo_name ='%s'"> kAlgorithmPath;
constexpr Pattern<"select Algo_path, Default_output from vsp_algo_path where Proj_type ='%s'"> kDefaultOutputs;
constexpr Pattern<"select distinct Algo_path, Sort_order from vsp_algo_path  where  Proj_type = '%s' order by "
                  "Sort_order">
    kPathsOrdered;

const Message kEmptyPathOrName = AppMessage("算法路径或算法名称不能为空！");
const Message kEmptyPath = AppMessage("算法路径不能为空！");

const ColumnTable<VspAlgoPathRecord> kAlgoColumns{kTable, {
    Col("Algo_path", &VspAlgoPathRecord::Algo_path),
    Col("Algo_name", &VspAlgoPathRecord::Algo_name),
    Col("Proj_type", &VspAlgoPathRecord::Proj_type),
    Col("Sort_order", &VspAlgoPathRecord::Sort_order),
    Col("Default_output", &VspAlgoPathRecord::Default_output),
}};
const ColumnTable<VspAlgoPathRecord> kPathAlgorithmColumns{kTable, {
    Col("Algo_name", &VspAlgoPathRecord::Algo_name),
    Col("Sort_order", &VspAlgoPathRecord::Sort_order),
    Col("Default_output", &VspAlgoPathRecord::Default_output),
}};
const ColumnTable<VspAlgoPathRecord> kDefaultOutputColumns{kTable, {
    Col("Algo_path", &VspAlgoPathRecord::Algo_path),
    Col("Default_output", &VspAlgoPathRecord::Default_output),
}};

const ReplaceSteps kSave{kTable};

}  // namespace

class CVspAlgoPathData final : public CDataObject<IVspAlgoPathData> {
 public:
  bool GetAlgoPaths(const char* projType, std::vector<std::string>& paths) override {
    return ListColumn(kPaths(projType), "Algo_path", paths, Fill::Clear).found();
  }
  bool GetPathAlgorithms(const char* projType, const char* path, std::vector<std::string>& names) override {
    return ListColumn(kPathAlgorithms(projType, path), "Algo_name", names, Fill::Clear).found();
  }
  bool LoadAlgoCatalogue(const char* projType, std::vector<VspAlgoPathRecord>& records) override {
    return LoadAll(kCatalogue(projType), kAlgoColumns, records, Fill::Clear).found();
  }
  bool LoadPathAlgorithms(const char* projType, const char* path, std::vector<VspAlgoPathRecord>& records) override {
    return LoadAll(kPathRecords(projType, path), kPathAlgorithmColumns, records, Fill::Clear).found();
  }

  bool SaveAlgoCatalogue(const std::vector<VspAlgoPathRecord>& records) override {
    return Save(kSave, [&](CDbManage& db) { kAlgoColumns.AddRows(db, records); });
  }
  bool SaveAlgoPath(const VspAlgoPathRecord& record) override {
    return Save(kSave, [&](CDbManage& db) { kAlgoColumns.AddRow(db, record); });
  }

  bool DeleteProjectTypeAlgos(const char* projType) override {
    return ExecuteOnTable(kTable, kDeleteType(projType));
  }
  bool DeleteAlgorithm(const char* projType, const char* path, const char* algoName) override {
    return KeyGiven(path, kEmptyPathOrName) && KeyGiven(algoName, kEmptyPathOrName) &&
           ExecuteOnTable(kTable, kDeleteAlgorithm(projType, path, algoName));
  }
  bool DeleteAlgoPath(const char* projType, const char* path) override {
    return KeyGiven(path, kEmptyPath) && ExecuteOnTable(kTable, kDeletePath(projType, path));
  }

  bool GetAlgorithmPath(const char* projType, const char* algoName, std::string& path) override {
    return LoadField(kAlgorithmPath(projType, algoName), "Algo_path", path);
  }
  bool GetPathDefaultOutputs(const char* projType, std::vector<VspAlgoPathRecord>& records) override {
    return LoadAll(kDefaultOutputs(projType), kDefaultOutputColumns, records, Fill::Clear).found();
  }
  bool GetAlgoPathsOrdered(const char* projType, std::vector<std::string>& paths) override {
    return ListColumn(kPathsOrdered(projType), "Algo_path", paths, Fill::Clear).found();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CVspAlgoPathData, IVspAlgoPathData)
