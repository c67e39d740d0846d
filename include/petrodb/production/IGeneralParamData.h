#pragma once
// General key/value parameters (general_param_data), grouped by a numbered
// type (ParamType) and keyed by ParamKey within it. Lists are emptied first.
// Nothing is shown on failure except a failed write ("保存数据库出错！" under
// "错误信息").
//
// The deletes by type are written in the Access form "delete * from": a server
// refuses them, so on a server they, and the replace of a type that depends on
// them, fail and change nothing.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct GeneralParamRecord {
  int ParamType = 0;
  std::string ParamKey;
  std::string ParamValue;
};

class PETRODB_API IGeneralParamData : public IDataBase {
 public:
  // Every parameter, in the table's order. False when there is none, or at the
  // first row that cannot be read (the rows before it stay).
  virtual bool LoadAllParams(std::vector<GeneralParamRecord>& params) = 0;
  // The parameter of a type and key. False when there is none or a field cannot
  // be read (the fields read before it are set).
  virtual bool LoadParam(int type, const char* key, GeneralParamRecord& param) = 0;
  virtual bool LoadParamsOfType(int type, std::vector<GeneralParamRecord>& params) = 0;
  // The parameters of any of the types ("ParamType = 1 OR ParamType = 3"). An
  // empty list leaves a statement ending in "where ", which cannot run: false.
  virtual bool LoadParamsOfTypes(const std::vector<int>& types, std::vector<GeneralParamRecord>& params) = 0;
  virtual bool ParamExists(int type, const char* key) = 0;
  // Replaces every parameter of the type: the delete of DeleteParamsOfType,
  // which must succeed, then one insert per record, written under `type`
  // whatever the records hold. A missing table fails silently; a failed write
  // shows "保存数据库出错！". On failure nothing is written.
  virtual bool SaveParamsOfType(int type, const std::vector<GeneralParamRecord>& params) = 0;
  // Appends every record as it is, deleting nothing first.
  virtual bool AppendParams(const std::vector<GeneralParamRecord>& params) = 0;
  // Deletes the parameters of a type (Access form, see above).
  virtual bool DeleteParamsOfType(int type) = 0;
  // Deletes the parameters of any of the types (Access form); an empty list
  // cannot run and fails.
  virtual bool DeleteParamsOfTypes(const std::vector<int>& types) = 0;
  virtual bool DeleteAllParams() = 0;
};
