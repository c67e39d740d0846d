#pragma once
// Performance points of plunger pump models (b_rod_pump_param): several rows a
// model, loaded (ordered by diameter) and replaced together.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct RodPumpParamRecord {
  std::string PumpModel;
  double Dia = 0;     // plunger diameter
  double RatedP = 0;  // rated pressure
  double RatedQ = 0;  // rated flow
};

class PETRODB_API IRodPumpParam : public IDataBase {
 public:
  // The model's points, the list emptied first. False when there is none, or at
  // the first row that cannot be read (the rows before it stay).
  virtual bool LoadRodPumpParams(const char* model, std::vector<RodPumpParamRecord>& points) = 0;
  // Every point of every model, in table order.
  virtual bool LoadAllRodPumpParams(std::vector<RodPumpParamRecord>& points) = 0;
  virtual bool RodPumpParamsExist(const char* model) = 0;
  // Replaces the rows of the model: the key must be given (else "泵型号不能为空！"), the
  // table must answer its probe (else "泵特性数据表为空！"), and the delete of the model must
  // succeed; a failed write shows "保存数据库出错！". On failure nothing is written.
  // Each point is written under `model`.
  virtual bool SaveRodPumpParams(const char* model, const std::vector<RodPumpParamRecord>& points) = 0;
  // Appends every point as it is, deleting nothing first.
  virtual bool SaveRodPumpParamList(const std::vector<RodPumpParamRecord>& points) = 0;
  // Deletes the model's points; true also when there were none.
  virtual bool DeleteRodPumpParams(const char* model) = 0;
  // Deletes every point.
  virtual bool DeleteAllRodPumpParams() = 0;
};
