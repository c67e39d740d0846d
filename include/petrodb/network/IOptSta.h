#pragma once
// Optimisation constraints and results of a case's injection stations
// (r_opt_sta), keyed by case and station name. Shaped as ISimuNode (see there
// for what the operations share), except that an empty station name is not
// refused. The messages: an empty case "注水站优化约束条件及名称不能为空！", a missing
// table when deleting "注水站优化约束条件及结果表为空！", when saving
// "注水站优化约束条件及结果数据表为空！", a failed write "保存数据库出错！".
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct OptStaRecord {
  std::string ProjName;  // the case
  std::string StaName;
  double MaxQ = 0;  // constraints given to the optimiser
  double MinQ = 0;
  double InitQ = 0;
  int PumpNum = 0;
  int KbNum = 0;
  double OptQ = 0;  // its results
  double OptGy = 0;
  int OptKbNum = 0;
  double Eff = 0;
  double Dh = 0;
  double SumEff = 0;
  double StaQ = 0;
  double StaP = 0;
  double StaE = 0;
  double StaPower = 0;
};

class PETRODB_API IOptSta : public IDataBase {
 public:
  // False when there is none or a field cannot be read (those before it are set).
  virtual bool LoadStationResult(const char* caseName, const char* station, OptStaRecord& record) = 0;
  // Ordered by station; emptied first; false when none is found or at the first
  // row that cannot be read (the rows before it stay).
  virtual bool LoadCaseStationResults(const char* caseName, std::vector<OptStaRecord>& records) = 0;
  virtual bool StationResultExists(const char* caseName, const char* station) = 0;
  // The delete's result (true also when there was none).
  virtual bool DeleteStationResult(const char* caseName, const char* station) = 0;
  // Replaces the rows of the stations the list carries, under `caseName`.
  virtual bool SaveStationResults(const char* caseName, const std::vector<OptStaRecord>& records) = 0;
  // Every delete is sent; false when any failed.
  virtual bool DeleteStationResults(const char* caseName, const std::vector<std::string>& stations) = 0;
  virtual bool DeleteCaseStationResults(const char* caseName) = 0;
};
