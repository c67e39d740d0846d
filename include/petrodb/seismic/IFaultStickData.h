#pragma once
// Fault sticks digitised on sections (b_fault_stick): one row per set, its
// sticks packed into the double array FaultVarValue as four numbers a point
// (stick number, x, y, z). The table is not scoped by project.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct FaultStick {
  std::vector<double> X, Y, Z;  // same length
  bool operator==(const FaultStick&) const = default;
};

struct FaultStickRecord {
  std::string FaultStickName;
  std::vector<FaultStick> Sticks;
  bool operator==(const FaultStickRecord&) const = default;
};

// Lists are emptied first; list reads answer true when the query ran and
// every row could be read.
class PETRODB_API IFaultStickData : public IDataBase {
 public:
  virtual bool GetFaultStickNames(std::vector<std::string>& names) = 0;
  virtual bool LoadAllFaultSticks(std::vector<FaultStickRecord>& sets) = 0;
  // The first row of that name; false when there is none.
  virtual bool LoadFaultStick(const char* name, FaultStickRecord& set) = 0;
  // Deletes the sets' names through DeleteFaultSticks and writes the sets only
  // when that delete succeeds. Its statement ends in a stray quote that no
  // engine runs, so this answers false and writes nothing.
  virtual bool SaveFaultSticks(const std::vector<FaultStickRecord>& sets) = 0;
  // Appends the set (nothing replaced). Empty name: "断层块名称不能为空！".
  virtual bool SaveFaultStick(const FaultStickRecord& set) = 0;
  // Empty name: "断层块名称不能为空！".
  virtual bool DeleteFaultStick(const char* name) = 0;
  // Empty list: "断层块名称不能为空！". The statement ends in a stray quote: it
  // fails on every engine and deletes nothing.
  virtual bool DeleteFaultSticks(const std::vector<std::string>& names) = 0;
  // Sends a statement that no engine runs; true whenever the table answers.
  virtual bool DeleteAllFaultSticks() = 0;
};
