#pragma once
// Pump models (b_pump): rated data of each pump model.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct PumpRecord {
  std::string PumpModel;
  std::string PumpType;
  std::string ActiveDate;
  std::string ProdDate;  // production date, as text
  std::string Mfr;       // manufacturer
  std::string Memo;
  double LeafDia = 0;    // impeller diameter
  double RatedRev = 0;   // rated speed
  int Levels = 0;        // stages
};

class PETRODB_API IPump : public IDataBase {
 public:
  // The model's row. False when there is none or a field cannot be read (the
  // fields read before it are set).
  virtual bool LoadPump(const char* model, PumpRecord& record) = 0;
  virtual bool PumpExists(const char* model) = 0;
  // Replaces the rows of the model: the key must be given (else "泵型号不能为空！"), the
  // table must answer its probe (else "泵基本数据表为空！"), and the delete of the model must
  // succeed; a failed write shows "保存数据库出错！". On failure nothing is written.
  virtual bool SavePump(const PumpRecord& record) = 0;
  // Deletes the model's row; true also when there was none.
  virtual bool DeletePump(const char* model) = 0;
};
