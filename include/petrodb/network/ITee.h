#pragma once
// Tees: a catalogue keyed by model (TeeModel in b_tee). Loads find rows by model;
// a save replaces the row of the same model; lists are emptied first.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct TeeRecord {
  std::string TeeModel;
  double TeeDia = 0;    // diameter
  double TeePress = 0;  // pressure rating
  std::string TeeMaterial;
  std::string ProdDate;  // production date, as text
  std::string Mfr;       // manufacturer
  std::string Memo;
};

class PETRODB_API ITee : public IDataBase {
 public:
  // The row of a model. False when there is none or a field cannot be read (the
  // fields read before it are set).
  virtual bool LoadTee(const char* model, TeeRecord& record) = 0;
  // Every row ordered by model. False when there is none, or at the first row
  // that cannot be read (the rows before it stay).
  virtual bool LoadAllTees(std::vector<TeeRecord>& records) = 0;
  virtual bool TeeExists(const char* model) = 0;
  // Replaces the row of the same model (the delete of DeleteTee, then an
  // insert). An empty model shows "三通型号不能为空！", a missing table "三通基本数据表为空！", a failed write
  // "保存数据库出错！"; a failed delete fails silently. On failure nothing is written.
  virtual bool SaveTee(const TeeRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveTees(const std::vector<TeeRecord>& records) = 0;
  // Deletes the model's row; true also when there was none.
  virtual bool DeleteTee(const char* model) = 0;
  // Empties the catalogue. Written in the Access form "delete * from": a
  // server refuses it and nothing is deleted there.
  virtual bool DeleteAllTees() = 0;
};
