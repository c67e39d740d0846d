#pragma once
// Curve aliases (w_curvealias_data): other mnemonics of a dictionary curve.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct CurveAliasEntry {
  std::string CurveName;
  std::string CurveAlias;
};

class PETRODB_API ICurvealiasData : public IDataBase {
 public:
  virtual bool LoadAllAliases(std::vector<CurveAliasEntry>& aliases) = 0;
  virtual bool GetAliasesOfCurve(const char* curveName, std::vector<std::string>& aliases) = 0;
  // Replaces the whole table; an empty list empties it.
  virtual bool SaveAllAliases(const std::vector<CurveAliasEntry>& aliases) = 0;
};
