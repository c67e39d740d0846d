#pragma once
// Calculation cases (r_project): a hydraulic simulation or an optimisation run
// over one pipeline network, keyed by the case name. The results of a case lie
// in the result tables (ISimuNode, ISimuPipe, ...), keyed by the same name.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct CaseRecord {
  std::string ProjName;     // the case name
  std::string PipenetName;  // the network simulated
  std::string CreateDate;   // as text, stored as given
  std::string Creator;
  std::string Memo;
  std::string TestDate;  // as text, stored as given
};

class PETRODB_API IProject : public IDataBase {
 public:
  // The case of that name. False when there is none or a field cannot be read
  // (the fields read before it are set).
  virtual bool LoadCase(const char* caseName, CaseRecord& record) = 0;
  // True when a case of that name exists.
  virtual bool CaseExists(const char* caseName) = 0;
  // The cases of a network ordered by name. Lists are emptied first; false when
  // none is found, or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadNetworkCases(const char* network, std::vector<CaseRecord>& records) = 0;
  // Every case ordered by name.
  virtual bool LoadAllCases(std::vector<CaseRecord>& records) = 0;
  // The distinct networks that have cases.
  virtual bool ListCaseNetworks(std::vector<std::string>& networks) = 0;
  // Adds a new case. An empty name shows "工况名称不能为空！", a name that exists
  // "工况 <name> 已经存在！", a failed write "保存数据库出错！"; each answers false
  // and writes nothing. A missing table answers false silently.
  virtual bool SaveCase(const CaseRecord& record) = 0;
  // Deletes the case's row; its results stay in the result tables. An empty name
  // shows "工况名称不能为空！" and is false; otherwise the delete's result (true
  // also when there was no such case).
  virtual bool DeleteCase(const char* caseName) = 0;
};
