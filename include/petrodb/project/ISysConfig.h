#pragma once
// System parameters: one row per parameter code in b_sys_config. Values are
// stored as given; nothing here interprets ParamType or Isactive.
#include <string>

#include "petrodb/IDataBase.h"

struct SysConfigRecord {
  std::string ParamCode;  // key
  std::string ParamName;
  std::string ParamType;
  std::string Memo;
  char Isactive = '1';
};

class PETRODB_API ISysConfig : public IDataBase {
 public:
  // False when the row is missing or a column (Isactive included) is unreadable.
  virtual bool LoadSysConfig(const char* paramCode, SysConfigRecord& record) = 0;
  virtual bool IsSysConfigExist(const char* paramCode) = 0;
  // Replaces the parameter's row. An empty code or a missing table is refused
  // with a message.
  virtual bool SaveSysConfig(const SysConfigRecord& record) = 0;
  // An empty code is refused with a message; a missing table gives false.
  virtual bool DeleteSysConfig(const char* paramCode) = 0;
};
