#pragma once
// Performance points of centrifugal pump models (b_acentric_pump_param): flow,
// power and efficiency, several rows a model, loaded and replaced together.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct AcentricPumpParamRecord {
  std::string PumpModel;
  double Flow = 0;
  double Power = 0;
  double Eff = 0;  // efficiency
};

class PETRODB_API IAcentricPumpParam : public IDataBase {
 public:
  // The model's points, the list emptied first. False when there is none, or at
  // the first row that cannot be read (the rows before it stay).
  virtual bool LoadAcentricPumpParams(const char* model, std::vector<AcentricPumpParamRecord>& points) = 0;
  // Every point of every model, in table order.
  virtual bool LoadAllAcentricPumpParams(std::vector<AcentricPumpParamRecord>& points) = 0;
  virtual bool AcentricPumpParamsExist(const char* model) = 0;
  // Replaces the rows of the model: the key must be given (else "泵型号不能为空！"), the
  // table must answer its probe (else "泵特性数据表为空！"), and the delete of the model must
  // succeed; a failed write shows "保存数据库出错！". On failure nothing is written.
  // Each point is written under `model`.
  virtual bool SaveAcentricPumpParams(const char* model, const std::vector<AcentricPumpParamRecord>& points) = 0;
  // Appends every point as it is, deleting nothing first.
  virtual bool SaveAcentricPumpParamList(const std::vector<AcentricPumpParamRecord>& points) = 0;
  // Deletes the model's points; true also when there were none.
  virtual bool DeleteAcentricPumpParams(const char* model) = 0;
  // Deletes every point.
  virtual bool DeleteAllAcentricPumpParams() = 0;
};
