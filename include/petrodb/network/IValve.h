#pragma once
// Valves: a catalogue keyed by model (ValveModel in b_valve). Loads find rows by model;
// a save replaces the row of the same model; lists are emptied first.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct ValveRecord {
  std::string ValveModel;
  double VDia = 0;    // diameter
  double VPress = 0;  // pressure rating
  std::string VMaterial;
  std::string ProdDate;  // production date, as text
  std::string Mfr;       // manufacturer
  std::string Memo;
};

class PETRODB_API IValve : public IDataBase {
 public:
  // The row of a model. False when there is none or a field cannot be read (the
  // fields read before it are set). The diameter is read from the column VDiar,
  // which projects made by this library provide beside VDia; on a table without
  // it the load fails after the model.
  virtual bool LoadValve(const char* model, ValveRecord& record) = 0;
  // Every row ordered by model. False when there is none, or at the first row
  // that cannot be read (the rows before it stay).
  virtual bool LoadAllValves(std::vector<ValveRecord>& records) = 0;
  // Valve models, ordered. Emptied first; false when there is none.
  virtual bool ListValveModels(std::vector<std::string>& models) = 0;
  virtual bool ValveExists(const char* model) = 0;
  // Replaces the row of the same model (the delete of DeleteValve, then an
  // insert). An empty model shows "阀门型号不能为空！", a missing table "阀门基本数据表为空！", a failed write
  // "保存数据库出错！"; a failed delete fails silently. On failure nothing is written.
  virtual bool SaveValve(const ValveRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveValves(const std::vector<ValveRecord>& records) = 0;
  // Deletes the model's row; true also when there was none.
  virtual bool DeleteValve(const char* model) = 0;
  // Empties the catalogue. Written in the Access form "delete * from": a
  // server refuses it and nothing is deleted there.
  virtual bool DeleteAllValves() = 0;
};
