#pragma once
// IAcentricPump.h1
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct AcentricPumpRecord {
  std::string PumpModel;
  double RatedPower = 0;
  double LeafDia = 0;    // impeller diameter
  std::string ProdDate;  // production date, as text
  std::string Mfr;       // manufacturer
  std::string Memo;
};

class PETRODB_API IAcentricPump : public IDataBase {
 public:
  // The model's row. False when there is none or a field cannot be read (the
  // fields read before it are set).
  virtual bool LoadAcentricPump(const char* model, AcentricPumpRecord& record) = 0;
  // Every row ordered by model. The list is emptied first; false when there is none, or at the
  // first row that cannot be read (the rows before it stay).
  virtual bool LoadAllAcentricPumps(std::vector<AcentricPumpRecord>& records) = 0;
  // Models, ordered. Emptied first; false when there is none.
  virtual bool ListAcentricPumpModels(std::vector<std::string>& models) = 0;
  virtual bool AcentricPumpExists(const char* model) = 0;
  // Replaces the rows of the model: the key must be given (else "泵型号不能为空！"), the
  // table must answer its probe (else "离心泵基本数据表为空！"), and the delete of the model must
  // succeed; a failed write shows "保存数据库出错！". On failure nothing is written.
  virtual bool SaveAcentricPump(const AcentricPumpRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveAcentricPumps(const std::vector<AcentricPumpRecord>& records) = 0;
  // Deletes the model's row; true also when there was none.
  virtual bool DeleteAcentricPump(const char* model) = 0;
  // Empties the catalogue. Written in the Access form "delete * from": a
  // server refuses it and nothing is deleted there.
  virtual bool DeleteAllAcentricPumps() = 0;
};
