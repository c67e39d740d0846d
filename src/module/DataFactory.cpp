#include "module/DataFactory.h"

#include <new>

#include "dbaccess/Messages.h"
#include "module/Catalogue.h"
#include "petrodb/project/IBasicProjectData.h"

IDataBase* CDataFactory::CreateObject(const char* interfaceName) {
  const DataClassRecord* record = petrodb::FindClassRecord(interfaceName);
  if (!record) {
    petrodb::AfxMessageBox("型录表中没有找到该对象的相应类！");
    return nullptr;
  }
  IDataBase* object = record->createFunction ? record->createFunction() : nullptr;
  if (object) return object;
  petrodb::ErrorMessageBox("创建该对象失败！");
  return nullptr;
}

void CDataFactory::SetConnectionString(const char* text) {
  connectionString = text ? text : "";
  depthUnitCache = -1;
}

void CDataFactory::SetProjectName(const char* name) {
  projectName = name ? name : "";
  depthUnitCache = -1;
}

const char* CDataFactory::GetConnectionString() { return connectionString.c_str(); }

double CDataFactory::GetDepthFactor(bool feet) { return feet ? 3.2808 : 1.0; }

int CDataFactory::IsDepthInFeet() {
  if (depthUnitCache != -1) return depthUnitCache;
  if (projectName.empty()) return depthUnitCache = 0;
  auto* projects = static_cast<IBasicProjectData*>(CreateObject("IBasicProjectData"));
  projects->SetConnection(connectionString.c_str());
  ProjectRecord record;
  depthUnitCache = projects->LoadProject(projectName.c_str(), record) ? record.DepthUnit : 0;
  delete projects;
  return depthUnitCache;
}

const char* CDataFactory::GetDepthUnitName() { return IsDepthInFeet() ? "英尺" : "米"; }
