#pragma once
// Economic flow-rate and velocity ranges by pipe inner diameter
// (b_economicflowvel). Lists are emptied first. Nothing is shown on failure
// except a failed write ("保存数据库出错！" under "错误信息").
//
// The single-diameter lookup and delete name the diameter by an integer: the
// low 32 bits of the double's IEEE 754 bit pattern, read as a signed number (0
// for 62.0 or 62.5, -1717986918 for 0.1). They therefore match a stored
// diameter equal to that integer, not the diameter given; a diameter whose low
// bits are zero is asked for as 0. The delete of a list of diameters writes
// each diameter as it is ("62.500000") and matches it.
#include <vector>

#include "petrodb/IDataBase.h"

struct EconomicFlowVelRecord {
  double InnerDia = 0;  // inner diameter
  double LowQ = 0;      // economic flow rate, low and high
  double HighQ = 0;
  double LowV = 0;      // economic velocity, low and high
  double HighV = 0;
};

class PETRODB_API IEconomicFlowVel : public IDataBase {
 public:
  // Every row ordered by diameter. False when there is none, or at the first
  // row that cannot be read (the rows before it stay).
  virtual bool LoadAllEconomicFlowVels(std::vector<EconomicFlowVelRecord>& records) = 0;
  // True when a row's diameter equals the integer that names `innerDia` (above).
  virtual bool EconomicFlowVelExists(double innerDia) = 0;
  // Replaces the row of the record's diameter: the delete of
  // DeleteEconomicFlowVel (so only a row stored under the naming integer goes),
  // which must succeed, then an insert. A missing table fails silently; a failed
  // write shows "保存数据库出错！". On failure nothing is written.
  virtual bool SaveEconomicFlowVel(const EconomicFlowVelRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveEconomicFlowVels(const std::vector<EconomicFlowVelRecord>& records) = 0;
  // Deletes the rows whose diameter equals the naming integer; true also when
  // there was none.
  virtual bool DeleteEconomicFlowVel(double innerDia) = 0;
  // Deletes the rows of the given diameters, each written with six decimals; an
  // empty list is a statement that cannot run ("in ()") and fails.
  virtual bool DeleteEconomicFlowVels(const std::vector<double>& innerDias) = 0;
  virtual bool DeleteAllEconomicFlowVels() = 0;
};
