#pragma once
// Root of every data object a factory hands out.
#include "petrodb/Export.h"

struct DataClassRecord;

class PETRODB_API IDataBase {
 public:
  // Data objects are owned by the caller and destroyed through this destructor.
  virtual ~IDataBase() = default;
  // Stores a copy of the connection string; every later operation opens its
  // session on it. The argument must not be null.
  virtual void SetConnection(const char* connection) = 0;
};

// One registration record per data class; the factory finds classes by
// interface name through the chain of these records.
struct DataClassRecord {
  const char* className;
  const char* interfaceName;
  IDataBase* (*createFunction)();
  DataClassRecord* next;
};
