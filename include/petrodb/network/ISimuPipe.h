#pragma once
// Simulated figures of a case's pipes (r_simu_pipe), keyed by case and pipe
// name. Shaped as ISimuNode (see there for what the operations share); the
// messages: "工况名称不能为空！", "管子代码不能为空！", a missing table when deleting
// "管子仿真结果表为空！", when saving "管子仿真结果数据表为空！", a failed write "保存数据库出错！".
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct SimuPipeRecord {
  std::string ProjName;  // the case
  std::string PipeName;
  double Detap = 0;
  double PipeQ = 0;
  double Kf = 0;
  double Deltpow = 0;
  std::string Station;
  // Filled only by the joined load, from the network's pipe of the same name.
  int PipeType = 0;
  std::string TypeName;  // "出站干线", ... as the pipe types; empty for other numbers
};

class PETRODB_API ISimuPipe : public IDataBase {
 public:
  // The result of one pipe of the case. False when there is none or a field
  // cannot be read (the fields read before it are set).
  virtual bool LoadPipeResult(const char* caseName, const char* pipe, SimuPipeRecord& record) = 0;
  // The case's results joined to the network pipes of the same name in every
  // network, ordered by pipe type (a name used in several networks comes once
  // per such pipe; a pipe in no network is left out). Emptied first; false when
  // nothing is found or at the first row that cannot be read.
  virtual bool LoadCasePipeResults(const char* caseName, std::vector<SimuPipeRecord>& records) = 0;
  virtual bool PipeResultExists(const char* caseName, const char* pipe) = 0;
  // The delete's result (true also when there was none).
  virtual bool DeletePipeResult(const char* caseName, const char* pipe) = 0;
  // Replaces the results of the pipes the list carries, under `caseName`.
  virtual bool SavePipeResults(const char* caseName, const std::vector<SimuPipeRecord>& records) = 0;
  // Deletes each pipe's result; every delete is sent, false when any failed.
  virtual bool DeletePipeResults(const char* caseName, const std::vector<std::string>& pipes) = 0;
  virtual bool DeleteCasePipeResults(const char* caseName) = 0;
};
