#pragma once
// Pressure gauges: a catalogue keyed by model (PGModel in b_pressure_gage). Loads find rows by model;
// a save replaces the row of the same model; lists are emptied first.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct PressureGageRecord {
  std::string PGModel;
  double PGP = 0;  // ratings, kept as given
  double PGF = 0;
  double PGT = 0;
  double PGV = 0;
  std::string ProdDate;  // production date, as text
  std::string Mfr;       // manufacturer
  std::string Memo;
};

class PETRODB_API IPressureGage : public IDataBase {
 public:
  // The row of a model. False when there is none or a field cannot be read (the
  // fields read before it are set).
  virtual bool LoadPressureGage(const char* model, PressureGageRecord& record) = 0;
  // Every row ordered by model. False when there is none, or at the first row
  // that cannot be read (the rows before it stay).
  virtual bool LoadAllPressureGages(std::vector<PressureGageRecord>& records) = 0;
  // Gauge models, ordered. Emptied first; false when there is none.
  virtual bool ListPressureGageModels(std::vector<std::string>& models) = 0;
  virtual bool PressureGageExists(const char* model) = 0;
  // Replaces the row of the same model (the delete of DeletePressureGage, then an
  // insert). An empty model shows "压力表型号不能为空！", a missing table "压力表基本数据表为空！", a failed write
  // "保存数据库出错！"; a failed delete fails silently. On failure nothing is written.
  virtual bool SavePressureGage(const PressureGageRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SavePressureGages(const std::vector<PressureGageRecord>& records) = 0;
  // Deletes the model's row; true also when there was none.
  virtual bool DeletePressureGage(const char* model) = 0;
  // Empties the catalogue. Written in the Access form "delete * from": a
  // server refuses it and nothing is deleted there.
  virtual bool DeleteAllPressureGages() = 0;
};
