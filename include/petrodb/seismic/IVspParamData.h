#pragma once
// Runs of VSP processing algorithms (vsp_param): one row per run with its
// parameter text and its input and output files.
#include <set>
#include <string>
#include <vector>

#include "petrodb/DateTime.h"
#include "petrodb/IDataBase.h"

struct VspParamRecord {
  int Vsp_ProjID = 0;
  std::string Output_file;
  std::string Input_file;
  std::string Algo_name;
  std::string Params;  // the run's parameters, stored unchanged
  DateTime Save_time;

  bool operator==(const VspParamRecord&) const = default;
};

// An output file with the sort order of the algorithm that wrote it.
struct VspOutputOrder {
  std::string Output_file;
  std::string Sort_order;

  bool operator==(const VspOutputOrder&) const = default;
};

// Lists and loads clear their output first and answer true when a row was
// found and every row read. Saves append; a missing table makes saves answer
// false silently. Empty names show their message and touch nothing.
class PETRODB_API IVspParamData : public IDataBase {
 public:
  virtual bool GetOutputFiles(int projectID, std::vector<std::string>& outputs) = 0;
  virtual bool LoadProjectParams(int projectID, std::vector<VspParamRecord>& params) = 0;
  // Fills Input_file, Algo_name, Params and Save_time.
  virtual bool LoadParamByOutput(int projectID, const char* outputFile, VspParamRecord& param) = 0;
  virtual bool SaveParams(const std::vector<VspParamRecord>& params) = 0;
  // An empty output file shows "算法文件名称不能为空！".
  virtual bool SaveParam(const VspParamRecord& param) = 0;
  virtual bool DeleteProjectParams(int projectID) = 0;
  // An empty name shows "算法名称不能为空！".
  virtual bool DeleteAlgoParams(int projectID, const char* algoName) = 0;
  // Renames an output file among the runs of a processing path's algorithms:
  // when the new name is already an output of the path, those runs are deleted
  // first. The rename is an Access multi-table update: it runs on local project
  // files and fails on a server. An empty old or new name shows
  // "算法文件名称不能为空！". One transaction: false leaves nothing changed.
  virtual bool RenameOutputInPath(int projectID, const char* path, const char* oldOutput, const char* newOutput) = 0;
  // The outputs of a path's runs; with a non-empty `outputFile`, only that file
  // when it is an output of the path (a membership test).
  virtual bool GetPathOutputs(int projectID, const char* path, const char* outputFile,
                              std::vector<std::string>& outputs) = 0;
  virtual bool IsOutputExist(int projectID, const char* outputFile) = 0;
  // The parameters of the algorithm's most recent run.
  virtual bool GetLatestAlgoParams(int projectID, const char* algoName, std::string& params) = 0;
  virtual bool GetOutputParams(int projectID, const char* outputFile, std::string& params) = 0;
  virtual bool GetAlgoOutputs(int projectID, const char* algoName, std::vector<std::string>& outputs) = 0;
  // Output_file and Save_time of the algorithm's runs, latest first.
  virtual bool GetAlgoOutputsByTime(int projectID, const char* algoName, std::vector<VspParamRecord>& runs) = 0;
  // The run saved at that second. The time is an Access date literal: on a
  // server the statement cannot run and this answers false.
  virtual bool LoadParamBySaveTime(int projectID, const DateTime& saveTime, VspParamRecord& param) = 0;
  // The outputs of the runs of a path of a project type: one entry per run, or
  // each name once (the two statements differ only in a trailing blank).
  virtual bool GetTypePathOutputs(int projectID, const char* projType, const char* path,
                                  std::vector<std::string>& outputs) = 0;
  virtual bool GetTypePathOutputs(int projectID, const char* projType, const char* path,
                                  std::set<std::string>& outputs) = 0;
  // The outputs of the project type's algorithms whose sort order is the
  // greatest of the whole catalogue (every type), with and without that order.
  virtual bool GetFinalOutputs(int projectID, const char* projType, std::vector<VspOutputOrder>& outputs) = 0;
  virtual bool GetFinalOutputs(int projectID, const char* projType, std::vector<std::string>& outputs) = 0;
  // Moves files of a project from one directory to another. For each name f in
  // `fileNames`, with old = oldDirectory + separator + f and new = newDirectory +
  // separator + f (the platform's separator):
  //   1. lines (vsp_hodograph) of the project whose Segy_file is old get new;
  //   2. each run whose Input_file is old gets Input_file new and Params with
  //      every occurrence of old replaced by new (the run is matched by its old
  //      Params too);
  //   3. runs of the algorithms of processing path `algoPath` whose Output_file
  //      is old get new.
  // One transaction: true when every statement ran; false leaves nothing
  // changed. Values holding a quote fail the whole move.
  virtual bool RelocateProjectFiles(int projectID, const char* algoPath, const char* oldDirectory,
                                    const char* newDirectory, const std::vector<std::string>& fileNames) = 0;
};
