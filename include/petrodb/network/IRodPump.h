#pragma once
// IRodPump.h1
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct RodPumpRecord {
  std::string PumpModel;
  double RatedPower = 0;
  int RodNum = 0;        // plungers
  std::string ProdDate;  // production date, as text
  std::string Mfr;       // manufacturer
  std::string Memo;
  double RodCC = 0;
  double RodCS = 0;
  double Conversion = 0;
};

class PETRODB_API IRodPump : public IDataBase {
 public:
  // The model's row. False when there is none or a field cannot be read (the
  // fields read before it are set).
  virtual bool LoadRodPump(const char* model, RodPumpRecord& record) = 0;
  // Every row in table order (not sorted). The list is emptied first; false when there is none, or at the
  // first row that cannot be read (the rows before it stay).
  virtual bool LoadAllRodPumps(std::vector<RodPumpRecord>& records) = 0;
  // Models, ordered. Emptied first; false when there is none.
  virtual bool ListRodPumpModels(std::vector<std::string>& models) = 0;
  virtual bool RodPumpExists(const char* model) = 0;
  // Replaces the rows of the model: the key must be given (else "泵型号不能为空！"), the
  // table must answer its probe (else "柱塞泵基本数据表为空！"), and the delete of the model must
  // succeed; a failed write shows "保存数据库出错！". On failure nothing is written.
  virtual bool SaveRodPump(const RodPumpRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveRodPumps(const std::vector<RodPumpRecord>& records) = 0;
  // Deletes the model's row; true also when there was none.
  virtual bool DeleteRodPump(const char* model) = 0;
  // Empties the catalogue. Written in the Access form "delete * from": a
  // server refuses it and nothing is deleted there.
  virtual bool DeleteAllRodPumps() = 0;
};
