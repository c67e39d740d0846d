#pragma once
// IMotor.h1
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct MotorRecord {
  std::string MotorModel;
  double MPower = 0;    // rated power
  double MEff = 0;      // efficiency
  double MV = 0;        // voltage
  double MI = 0;        // current
  double MMaxI = 0;     // maximum current
  double PowerFac = 0;  // power factor
  double RatedRev = 0;  // rated speed
  std::string ProdDate;  // production date, as text
  std::string Mfr;       // manufacturer
  std::string Memo;
};

class PETRODB_API IMotor : public IDataBase {
 public:
  // The model's row. False when there is none or a field cannot be read (the
  // fields read before it are set).
  virtual bool LoadMotor(const char* model, MotorRecord& record) = 0;
  // Every row ordered by model. The list is emptied first; false when there is none, or at the
  // first row that cannot be read (the rows before it stay).
  virtual bool LoadAllMotors(std::vector<MotorRecord>& records) = 0;
  virtual bool MotorExists(const char* model) = 0;
  // Replaces the rows of the model: the key must be given (else "电机型号不能为空！"), the
  // table must answer its probe (else "电机基本数据表为空！"), and the delete of the model must
  // succeed; a failed write shows "保存数据库出错！". On failure nothing is written.
  virtual bool SaveMotor(const MotorRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveMotors(const std::vector<MotorRecord>& records) = 0;
  // Deletes the model's row; true also when there was none.
  virtual bool DeleteMotor(const char* model) = 0;
  // Empties the catalogue. Written in the Access form "delete * from": a
  // server refuses it and nothing is deleted there.
  virtual bool DeleteAllMotors() = 0;
};
