#pragma once
// The calibration of a case's pipes against measured pressures
// (r_pipe_check_results, case column Proj_name), keyed by case and pipe name:
// each figure before and after checking. Shaped as ISimuNode (see there), with
// its own messages: an empty case "工况名称不能为空", an empty case or pipe where
// both are taken "工况名称或管子名称不能为空", a failed write "保存数据库出错！". A
// missing table answers false without a message.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct PipeCheckRecord {
  std::string Proj_name;  // the case
  std::string Pipe_Name;
  double Length_before_check = 0;
  double Leanth_after_check = 0;  // the length after checking (the column is spelled so)
  double InnerDia_before_check = 0;
  double InnerDia_after_check = 0;
  double CH_before_check = 0;
  double CH_after_check = 0;
  double Headloss_before_check = 0;
  double Headloss_after_check = 0;
  double Pressure_before_check = 0;
  double Pressure_after_check = 0;
  double Measured_pressure = 0;
  double Error_before_check = 0;
  double Error_after_check = 0;
  double Corrosion_thick = 0;
};

class PETRODB_API IPipeCheckResults : public IDataBase {
 public:
  // False when there is none or a field cannot be read (those before it are set).
  virtual bool LoadPipeCheckResult(const char* caseName, const char* pipe, PipeCheckRecord& record) = 0;
  // Ordered by pipe; emptied first; false when none is found or at the first
  // row that cannot be read (the rows before it stay).
  virtual bool LoadCasePipeCheckResults(const char* caseName, std::vector<PipeCheckRecord>& records) = 0;
  virtual bool PipeCheckResultExists(const char* caseName, const char* pipe) = 0;
  // The delete's result (true also when there was none).
  virtual bool DeletePipeCheckResult(const char* caseName, const char* pipe) = 0;
  // Replaces the rows of the pipes the list carries, under `caseName`.
  virtual bool SavePipeCheckResults(const char* caseName, const std::vector<PipeCheckRecord>& records) = 0;
  // Every delete is sent; false when any failed.
  virtual bool DeletePipeCheckResults(const char* caseName, const std::vector<std::string>& pipes) = 0;
  virtual bool DeleteCasePipeCheckResults(const char* caseName) = 0;
};
