#pragma once
#include <string>

#include "petrodb/IDataFactory.h"

class CDataFactory final : public IDataFactory {
 public:
  IDataBase* CreateObject(const char* interfaceName) override;
  void SetConnectionString(const char* text) override;
  void SetProjectName(const char* name) override;
  const char* GetConnectionString() override;
  double GetDepthFactor(bool feet) override;
  int IsDepthInFeet() override;
  const char* GetDepthUnitName() override;

 private:
  std::string projectName;
  std::string connectionString;
  int depthUnitCache = -1;  // -1: not computed since the last setter
};
