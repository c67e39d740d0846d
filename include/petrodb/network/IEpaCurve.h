#pragma once
// Performance curves of network devices (b_curve): one row a curve, its points a
// whole array of doubles stored bit for bit (an empty array is stored as NULL
// and then cannot be loaded).
#include <map>
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct CurveRecord {
  std::string CurveID;
  std::string Device_Model;
  int CurveType = 0;
  std::vector<double> CurveXY;  // the points, as the caller pairs them
};

// Several curves, by identifier.
using CurveMap = std::map<std::string, CurveRecord>;

class PETRODB_API IEpaCurve : public IDataBase {
 public:
  // Identifiers of a device's curves, ordered. Lists and maps are emptied first;
  // false when nothing is found.
  virtual bool ListCurveIdsOfDevice(const char* deviceModel, std::vector<std::string>& ids) = 0;
  // Fills CurveType and CurveXY of `curve` (the other fields are left as they
  // are). False when there is no such curve or a field cannot be read.
  virtual bool LoadCurve(const char* id, CurveRecord& curve) = 0;
  // The listed curves (CurveID, CurveType, CurveXY; Device_Model stays empty),
  // keyed by identifier. An empty list is a statement that cannot run: false.
  // False at the first row that cannot be read (the curves before it stay).
  virtual bool LoadCurves(const std::vector<std::string>& ids, CurveMap& curves) = 0;
  virtual bool LoadCurvesById(const std::vector<std::string>& ids, CurveMap& curves) = 0;
  virtual bool ListCurveIdsOfType(int curveType, std::vector<std::string>& ids) = 0;
  // The curves of a type (CurveID and CurveXY are read; CurveType is the type asked for).
  virtual bool LoadCurvesOfType(int curveType, CurveMap& curves) = 0;
  virtual bool CurveExists(const char* id) = 0;
  // Appends every curve under `deviceModel`, the map's key as its identifier;
  // nothing is deleted first. An empty identifier shows "曲线ID不能为空！" and
  // nothing is written.
  virtual bool SaveCurves(const char* deviceModel, const CurveMap& curves) = 0;
  // As SaveCurves for one curve, its CurveID as identifier.
  virtual bool SaveCurve(const char* deviceModel, const CurveRecord& curve) = 0;
  // Deletes the curve; true also when there was none.
  virtual bool DeleteCurve(const char* id) = 0;
  // Empties the table. Written in the Access form "delete * from": a server
  // refuses it and nothing is deleted there.
  virtual bool DeleteAllCurves() = 0;
};
