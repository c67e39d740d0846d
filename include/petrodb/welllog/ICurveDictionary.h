#pragma once
// The curve dictionary (w_curve_dictionary): one display template per curve
// name. Global to the database.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct CurveTemplate {
  std::string CurveName;  // key
  std::string DisplayName;
  std::string CurveUnit;
  double LeftValue = 0.0;
  double RightValue = 0.0;
  int CurveType = 0;
  int Color = 0;
  double CurveWidth = 0.0;
  int CoorType = 0;  // scale type
};

class PETRODB_API ICurveDictionary : public IDataBase {
 public:
  virtual bool GetCurveNames(std::vector<std::string>& names) = 0;
  virtual bool GetDisplayNames(std::vector<std::string>& names) = 0;
  virtual bool LoadTemplate(const char* curveName, CurveTemplate& entry) = 0;
  // The template of the curve that has `name` as an alias, or whose own name it is.
  virtual bool LoadTemplateByAlias(const char* name, CurveTemplate& entry) = 0;
  virtual bool LoadAllTemplates(std::vector<CurveTemplate>& entries) = 0;
  virtual bool IsTemplateExist(const char* curveName) = 0;
  virtual bool SaveTemplate(const CurveTemplate& entry) = 0;
  virtual bool SaveTemplates(int ignored, const std::vector<CurveTemplate>& entries) = 0;
  virtual bool DeleteTemplate(const char* curveName) = 0;
  virtual bool DeleteTemplates(std::vector<std::string> names) = 0;
  // Empties the dictionary; the project name is only checked for being given.
  virtual bool DeleteAllTemplates(const char* projectName) = 0;
};
