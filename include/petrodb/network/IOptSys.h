#pragma once
// Optimised performance of a case's whole injection system (r_opt_sys), one row
// per case. An empty case shows "注水系统性能参数优化名称不能为空！"; a missing table,
// when saving or deleting, "注水系统性能参数优化结果表为空！"; a failed write
// "保存数据库出错！"; each is false.
#include <string>

#include "petrodb/IDataBase.h"

struct OptSysRecord {
  std::string ProjName;  // the case
  std::string ResultType;
  double SysQ = 0;
  double SysKw = 0;
  double AvPumpEff = 0;
  double AvPipenetEff = 0;
  double SysEff = 0;
  double UnitKw = 0;
  int OpenedPumps = 0;
};

class PETRODB_API IOptSys : public IDataBase {
 public:
  // False when the case has none or a field cannot be read (those before it are set).
  virtual bool LoadOptSys(const char* caseName, OptSysRecord& record) = 0;
  virtual bool OptSysExists(const char* caseName) = 0;
  // Replaces the case's row with the record, stored under `caseName`.
  virtual bool SaveOptSys(const char* caseName, const OptSysRecord& record) = 0;
  // The delete's result (true also when there was none).
  virtual bool DeleteOptSys(const char* caseName) = 0;
};
