#pragma once
// Named data sets of VSP processing projects (vsp_general_data): velocity
// models, geophone layouts and other arrays, by type code.
#include <map>
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct VspGeneralRecord {
  int Vsp_ProjID = 0;
  std::string general_name;
  int general_type = 0;  // 0 velocity model, 1 geophone layout, others the caller's
  std::vector<double> general_data;

  bool operator==(const VspGeneralRecord&) const = default;
};

// Lists and loads clear their output first and answer true when a row was
// found and every row read. Saves append (nothing is deleted first); a missing
// table makes saves and deletes answer false silently.
class PETRODB_API IVspGeneralData : public IDataBase {
 public:
  virtual bool GetGeneralNames(int projectID, int type, std::vector<std::string>& names) = 0;
  // Name → array (a name stored twice keeps the last row's array).
  virtual bool LoadGeneralSets(int projectID, int type, std::map<std::string, std::vector<double>>& sets) = 0;
  virtual bool LoadGeneralSet(int projectID, int type, const char* name, std::vector<double>& data) = 0;
  // A record with an empty name shows "VSP常用数据名称不能为空！" and nothing is written.
  virtual bool SaveGeneralSets(const std::vector<VspGeneralRecord>& records) = 0;
  virtual bool SaveGeneralSet(const VspGeneralRecord& record) = 0;
  // Its statement has a stray quote after the type: it never runs, false.
  virtual bool DeleteGeneralType(int projectID, int type) = 0;
  virtual bool DeleteGeneralSet(int projectID, int type, const char* name) = 0;
  virtual bool IsGeneralSetExist(int projectID, int type, const char* name) = 0;
};

// The operations of IVspGeneralData for one fixed type code: each call builds
// a general object on the same connection and forwards with the code. Saves
// write the code whatever the records hold, and check names with the front's
// own message.
class PETRODB_API IVspCodedGeneralData : public IDataBase {
 public:
  virtual bool GetGeneralNames(int projectID, std::vector<std::string>& names) = 0;
  virtual bool LoadGeneralSets(int projectID, std::map<std::string, std::vector<double>>& sets) = 0;
  virtual bool LoadGeneralSet(int projectID, const char* name, std::vector<double>& data) = 0;
  virtual bool SaveGeneralSets(const std::vector<VspGeneralRecord>& records) = 0;
  virtual bool SaveGeneralSet(const VspGeneralRecord& record) = 0;
  virtual bool DeleteGeneralType(int projectID) = 0;
  virtual bool DeleteGeneralSet(int projectID, const char* name) = 0;
  virtual bool IsGeneralSetExist(int projectID, const char* name) = 0;
};
