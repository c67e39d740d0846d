#pragma once
// Performance points of pump models (b_pump_param): several rows a model, loaded
// and replaced together. The diameter is text in this table.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct PumpParamRecord {
  std::string PumpModel;
  std::string Dia;
  double RatedP = 0;  // rated pressure
  double RatedQ = 0;  // rated flow
};

class PETRODB_API IPumpParam : public IDataBase {
 public:
  // The model's points in table order, the list emptied first. False when there
  // is none, or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadPumpParams(const char* model, std::vector<PumpParamRecord>& points) = 0;
  virtual bool PumpParamsExist(const char* model) = 0;
  // Replaces the rows of the model: the key must be given (else "泵型号不能为空！"), the
  // table must answer its probe (else "泵特性数据表为空！"), and the delete of the model must
  // succeed; a failed write shows "保存数据库出错！". On failure nothing is written.
  // Each point is written under `model`.
  virtual bool SavePumpParams(const char* model, const std::vector<PumpParamRecord>& points) = 0;
  // Deletes the model's points; true also when there were none.
  virtual bool DeletePumpParams(const char* model) = 0;
};
