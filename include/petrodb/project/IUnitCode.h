#pragma once
// Organisational units (company, field office, team) in b_unit_code. Units form
// a tree: a unit's code begins with the prefix it was created under, and
// ParentCode holds its parent's code.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

// On load: the unit's code, name, parent's code and memo. On save the first
// and third fields mean something else: UnitCode is the prefix under which a
// new code is generated, ParentCode the parent's *name* (empty: no parent).
struct UnitRecord {
  std::string UnitCode;
  std::string UnitName;
  std::string ParentCode;
  std::string Memo;
};

class PETRODB_API IUnitCode : public IDataBase {
 public:
  // Replaces names with the names of the units under the prefix (children of
  // the named parent when parentName is not empty), by name. False when none.
  virtual bool GetUnitNames(const char* codePrefix, const char* parentName, std::vector<std::string>& names) = 0;
  virtual bool LoadUnitCode(const char* unitCode, UnitRecord& record) = 0;
  virtual bool IsUnitCodeExist(const char* unitCode) = 0;
  // Stores a new unit under a generated code (prefix + next number) with its
  // parent's code looked up by name. The code is not returned: read it back
  // with GetUnitNames / LoadUnitCode. An unknown parent name fails silently and
  // writes nothing.
  virtual bool SaveUnitCode(const UnitRecord& record) = 0;
  virtual bool DeleteUnitCode(const char* unitCode) = 0;
};
