#pragma once
// The module's entry point: a factory of data objects named by interface.
#include "petrodb/IDataBase.h"

class PETRODB_API IDataFactory {
 public:
  virtual ~IDataFactory() = default;
  // Creates a new, unconnected data object for an interface name such as
  // "IBasicWellData" (exact, case-sensitive). Shows a message and returns null
  // when no class implements the name. The caller owns the object.
  virtual IDataBase* CreateObject(const char* interfaceName) = 0;
  virtual void SetConnectionString(const char* text) = 0;
  virtual void SetProjectName(const char* name) = 0;
  // Valid until the next SetConnectionString or the factory's destruction.
  virtual const char* GetConnectionString() = 0;
  // 3.2808 for feet, 1.0 otherwise.
  virtual double GetDepthFactor(bool feet) = 0;
  // The current project's DepthUnit (0 = metres); read once, cached until one
  // of the two setters runs again.
  virtual int IsDepthInFeet() = 0;
  // "英尺" or "米".
  virtual const char* GetDepthUnitName() = 0;
};

extern "C" {
// Returns a new factory owned by the caller, or null.
PETRODB_API IDataFactory* CreateDataFactoryObject();
// Destroys a factory; null is ignored.
PETRODB_API void DeleteDataFactory(IDataFactory* factory);
}
