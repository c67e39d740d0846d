#include <cstdio>
#include <set>

#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IVspParamData.h"

using namespace petrodb;

namespace {

constexpr const char* kTable = "vsp_param";

constexpr Pattern<"select Distinct Output_file from vsp_param where Vsp_ProjID=%d "> kOutputs;
constexpr Pattern<"select *  from vsp_param where Vsp_ProjID=%d"> kLoadProject;
constexpr Pattern<"select  Input_file, Algo_name ,Params, Save_time from vsp_param where Output_file = '%s' and  "
                  "Vsp_ProjID = %d">
    kLoadByOutput;
constexpr Pattern<"delete from vsp_param where Vsp_ProjID=%d "> kDeleteProject;
constexpr Pattern<"delete from vsp_param where Algo_name = '%s' and  Vsp_ProjID = %d"> kDeleteAlgorithm;
constexpr Pattern<"select Output_file from vsp_param A, vsp_algo_path B where A.Vsp_ProjID = %d  and B.Algo_path "
                  "='%s' and A.Output_file = '%s' and A.Algo_name = B.Algo_name">
    kOutputInPath;
constexpr Pattern<"select  Output_file from vsp_param A, vsp_algo_path B where A.Vsp_ProjID = %d and  B.Algo_path "
                  "='%s' and A.Algo_name = B.Algo_name ">
    kPathOutputs;
constexpr Pattern<"delete from vsp_param where Vsp_ProjID = %d  and Output_file = '%s' and Algo_name in ( select "
                  "Algo_Name from vsp_algo_path where Algo_path = '%s' )">
    kDeleteOutputInPath;
// An Access multi-table update: bridged on project files, refused by servers.
constexpr Pattern<"update vsp_param A, vsp_algo_path B set Output_file = '%s' where A.Vsp_ProjID = %d  and "
                  "B.Algo_path ='%s' and A.Output_file = '%s' and A.Algo_name = B.Algo_name">
    kRenameInPath;
constexpr Pattern<"select  Vsp_ProjID from vsp_param where Output_file = '%s' and  Vsp_ProjID = %d"> kOutputExists;
constexpr Pattern<"select  Params from vsp_param where Algo_name = '%s' and  Vsp_ProjID = %d order by Save_time "
                  "desc ">
    kLatestParams;
constexpr Pattern<"select  Params from vsp_param where Output_file = '%s' and  Vsp_ProjID = %d "> kOutputParams;
constexpr Pattern<"select  Output_file from vsp_param where algo_name = '%s' and  Vsp_ProjID = %d"> kAlgoOutputs;
constexpr Pattern<"select  Output_file,Save_time from vsp_param where algo_name = '%s' and Vsp_ProjID = %d order by "
                  "Save_time desc ">
    kAlgoOutputsByTime;
// An Access date literal: servers cannot run it.
constexpr Pattern<"select  * from vsp_param where Save_time = #%s# and Vsp_ProjID = %d"> kLoadBySaveTime;
constexpr Pattern<"select  Output_file from vsp_param A, vsp_algo_path B where A.Vsp_ProjID = %d and B.Proj_type = "
                  "'%s' and B.Algo_path ='%s' and A.Algo_name = B.Algo_name ">
    kTypePathOutputs;
constexpr Pattern<"select  Output_file from vsp_param A, vsp_algo_path B where A.Vsp_ProjID = %d and B.Proj_type = "
                  "'%s' and B.Algo_path ='%s' and A.Algo_name = B.Algo_name">
    kTypePathOutputsOnce;
// The greatest sort order is the whole catalogue's, not the project type's.
constexpr Pattern<"select Output_file, Sort_order from vsp_param A, vsp_algo_path B where A.Vsp_ProjID = %d and "
                  "B.Proj_type = '%s' and A.Algo_name = B.Algo_name and B.Sort_order = (select max( Sort_order ) "
                  "from vsp_algo_path )">
    kFinalOutputs;
constexpr Pattern<"select Output_file from vsp_param A, vsp_algo_path B where A.Vsp_ProjID = %d and B.Proj_type = "
                  "'%s' and A.Algo_name = B.Algo_name and B.Sort_order = (select max( Sort_order ) from "
                  "vsp_algo_path  )">
    kFinalOutputNames;
// Directory and file name joined by the platform's separator.
#ifdef _WIN32
constexpr Pattern<"update vsp_hodograph set Segy_File = '%s\\%s' where Vsp_ProjID = %d  and Segy_File = '%s\\%s'">
    kRelocateLines;
constexpr char kSeparator = '\\';
#else
constexpr Pattern<"update vsp_hodograph set Segy_File = '%s/%s' where Vsp_ProjID = %d  and Segy_File = '%s/%s'">
    kRelocateLines;
constexpr char kSeparator = '/';
#endif
constexpr Pattern<"select Params from vsp_param where  Vsp_ProjID = %d  and Input_file = '%s' "> kInputParams;
constexpr Pattern<"update vsp_param set Params= '%s', Input_file = '%s'  where  Vsp_ProjID = %d  and Input_file = "
                  "'%s' and  Params='%s'">
    kRelocateInput;
constexpr Pattern<"update vsp_param set Output_file = '%s' where Vsp_ProjID = %d  and Output_file = '%s' and "
                  "Algo_name in ( select Algo_Name from vsp_algo_path where Algo_path = '%s' )">
    kRelocateOutputs;

const Message kEmptyFile = AppMessage("算法文件名称不能为空！");
const Message kEmptyAlgorithm = AppMessage("算法名称不能为空！");

const ColumnTable<VspParamRecord> kParamColumns{kTable, {
    Col("Vsp_ProjID", &VspParamRecord::Vsp_ProjID),
    Col("Output_file", &VspParamRecord::Output_file),
    Col("Input_file", &VspParamRecord::Input_file),
    Col("Algo_name", &VspParamRecord::Algo_name),
    Col("Params", &VspParamRecord::Params),
    Col("Save_time", &VspParamRecord::Save_time),
}};
const ColumnTable<VspParamRecord> kRunColumns{kTable, {
    Col("Input_file", &VspParamRecord::Input_file),
    Col("Algo_name", &VspParamRecord::Algo_name),
    Col("Params", &VspParamRecord::Params),
    Col("Save_time", &VspParamRecord::Save_time),
}};
const ColumnTable<VspParamRecord> kOutputTimeColumns{kTable, {
    Col("Output_file", &VspParamRecord::Output_file),
    Col("Save_time", &VspParamRecord::Save_time),
}};

const ReplaceSteps kSave{kTable};

// The module's form of a time: "%d-%d-%d %d:%d:%d", unpadded.
std::string TimeText(const DateTime& t) {
  char text[80];
  std::snprintf(text, sizeof text, "%d-%d-%d %d:%d:%d", t.year, t.month, t.day, t.hour, t.minute, t.second);
  return text;
}

std::string ReplaceAll(std::string text, const std::string& from, const std::string& to) {
  if (from.empty()) return text;
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

}  // namespace

class CVspParamData final : public CDataObject<IVspParamData> {
 public:
  bool GetOutputFiles(int projectID, std::vector<std::string>& outputs) override {
    return Outputs(kOutputs(projectID), outputs);
  }
  bool LoadProjectParams(int projectID, std::vector<VspParamRecord>& params) override {
    return LoadAll(kLoadProject(projectID), kParamColumns, params, Fill::Clear).found();
  }
  bool LoadParamByOutput(int projectID, const char* outputFile, VspParamRecord& param) override {
    return LoadOne(kLoadByOutput(outputFile, projectID), kRunColumns, param);
  }

  bool SaveParams(const std::vector<VspParamRecord>& params) override {
    return Save(kSave, [&](CDbManage& db) { kParamColumns.AddRows(db, params); });
  }
  bool SaveParam(const VspParamRecord& param) override {
    return KeyGiven(param.Output_file, kEmptyFile) &&
           Save(kSave, [&](CDbManage& db) { kParamColumns.AddRow(db, param); });
  }

  bool DeleteProjectParams(int projectID) override { return ExecuteOnTable(kTable, kDeleteProject(projectID)); }
  bool DeleteAlgoParams(int projectID, const char* algoName) override {
    return KeyGiven(algoName, kEmptyAlgorithm) && ExecuteOnTable(kTable, kDeleteAlgorithm(algoName, projectID));
  }

  // Renaming a file to itself (the database ignores case) changes nothing: its
  // runs would otherwise be deleted as holders of the new name.
  bool RenameOutputInPath(int projectID, const char* path, const char* oldOutput, const char* newOutput) override {
    if (!KeyGiven(oldOutput, kEmptyFile) || !KeyGiven(newOutput, kEmptyFile)) return false;
    if (sql::EqualsIgnoreCase(oldOutput, newOutput)) return true;
    return Atomically([&] {
      if (Exists(kOutputInPath(projectID, path, newOutput)) &&
          !Execute(kDeleteOutputInPath(projectID, newOutput, path)))
        return false;
      return Execute(kRenameInPath(newOutput, projectID, path, oldOutput));
    });
  }

  bool GetPathOutputs(int projectID, const char* path, const char* outputFile,
                      std::vector<std::string>& outputs) override {
    if (outputFile && *outputFile) return Outputs(kOutputInPath(projectID, path, outputFile), outputs);
    return Outputs(kPathOutputs(projectID, path), outputs);
  }

  bool IsOutputExist(int projectID, const char* outputFile) override {
    return Exists(kOutputExists(outputFile, projectID));
  }
  bool GetLatestAlgoParams(int projectID, const char* algoName, std::string& params) override {
    return LoadField(kLatestParams(algoName, projectID), "Params", params);
  }
  bool GetOutputParams(int projectID, const char* outputFile, std::string& params) override {
    return LoadField(kOutputParams(outputFile, projectID), "Params", params);
  }
  bool GetAlgoOutputs(int projectID, const char* algoName, std::vector<std::string>& outputs) override {
    return Outputs(kAlgoOutputs(algoName, projectID), outputs);
  }
  bool GetAlgoOutputsByTime(int projectID, const char* algoName, std::vector<VspParamRecord>& runs) override {
    return LoadAll(kAlgoOutputsByTime(algoName, projectID), kOutputTimeColumns, runs, Fill::Clear).found();
  }
  bool LoadParamBySaveTime(int projectID, const DateTime& saveTime, VspParamRecord& param) override {
    return LoadOne(kLoadBySaveTime(TimeText(saveTime), projectID), kParamColumns, param);
  }

  bool GetTypePathOutputs(int projectID, const char* projType, const char* path,
                          std::vector<std::string>& outputs) override {
    return Outputs(kTypePathOutputs(projectID, projType, path), outputs);
  }
  bool GetTypePathOutputs(int projectID, const char* projType, const char* path,
                          std::set<std::string>& outputs) override {
    std::vector<std::string> list;
    const bool found = Outputs(kTypePathOutputsOnce(projectID, projType, path), list);
    outputs = std::set<std::string>(list.begin(), list.end());
    return found;
  }

  bool GetFinalOutputs(int projectID, const char* projType, std::vector<VspOutputOrder>& outputs) override {
    return LoadRows(kFinalOutputs(projectID, projType), outputs, Fill::Clear, [](CDbManage& db, VspOutputOrder& o) {
             return db.GetFieldValue("Output_file", o.Output_file) && db.GetFieldValue("Sort_order", o.Sort_order);
           }).found();
  }
  bool GetFinalOutputs(int projectID, const char* projType, std::vector<std::string>& outputs) override {
    return Outputs(kFinalOutputNames(projectID, projType), outputs);
  }

  bool RelocateProjectFiles(int projectID, const char* algoPath, const char* oldDirectory, const char* newDirectory,
                            const std::vector<std::string>& fileNames) override {
    return Atomically([&] {
      for (const auto& name : fileNames) {
        const std::string from = std::string(oldDirectory) + kSeparator + name;
        const std::string to = std::string(newDirectory) + kSeparator + name;
        if (!Execute(kRelocateLines(newDirectory, name, projectID, oldDirectory, name))) return false;
        std::vector<std::string> params;
        if (!ListColumn(kInputParams(projectID, from), "Params", params, Fill::Clear).ran()) return false;
        for (const auto& p : params)
          if (!Execute(kRelocateInput(ReplaceAll(p, from, to), to, projectID, from, p))) return false;
        if (!Execute(kRelocateOutputs(to, projectID, from, algoPath))) return false;
      }
      return true;
    });
  }
  PETRODB_DATA_CLASS

 private:
  bool Outputs(const Statement& s, std::vector<std::string>& outputs) const {
    return ListColumn(s, "Output_file", outputs, Fill::Clear).found();
  }
};

PETRODB_REGISTER_CLASS(CVspParamData, IVspParamData)
