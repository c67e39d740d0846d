#pragma once
// Flow meters: a catalogue keyed by model (FMModel in b_flow_meter). Loads find rows by model;
// a save replaces the row of the same model; lists are emptied first.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct FlowMeterRecord {
  std::string FMModel;
  double FMP = 0;  // ratings, kept as given
  double FMF = 0;
  double FMT = 0;
  double FMV = 0;
  std::string ProdDate;  // production date, as text
  std::string Mfr;       // manufacturer
  std::string Memo;
};

class PETRODB_API IFlowMeter : public IDataBase {
 public:
  // The row of a model. False when there is none or a field cannot be read (the
  // fields read before it are set).
  virtual bool LoadFlowMeter(const char* model, FlowMeterRecord& record) = 0;
  // Every row ordered by model. False when there is none, or at the first row
  // that cannot be read (the rows before it stay).
  virtual bool LoadAllFlowMeters(std::vector<FlowMeterRecord>& records) = 0;
  // Flow meter models, ordered. Emptied first; false when there is none.
  virtual bool ListFlowMeterModels(std::vector<std::string>& models) = 0;
  virtual bool FlowMeterExists(const char* model) = 0;
  // Replaces the row of the same model (the delete of DeleteFlowMeter, then an
  // insert). An empty model shows "流量计型号不能为空！", a missing table "流量计基本数据表为空！", a failed write
  // "保存数据库出错！"; a failed delete fails silently. On failure nothing is written.
  virtual bool SaveFlowMeter(const FlowMeterRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveFlowMeters(const std::vector<FlowMeterRecord>& records) = 0;
  // Deletes the model's row; true also when there was none.
  virtual bool DeleteFlowMeter(const char* model) = 0;
  // Empties the catalogue. Written in the Access form "delete * from": a
  // server refuses it and nothing is deleted there.
  virtual bool DeleteAllFlowMeters() = 0;
};
