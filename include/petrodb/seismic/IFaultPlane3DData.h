#pragma once
// Display settings of modelled 3D fault planes (fault_plane3d_data), one row
// per modelling name and fault, stored without interpretation.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct FaultPlaneStyle {
  std::string ModelingName;
  std::string FaultName;
  int KeyPillarType = 0;
  int IsContourShow = 0;
  std::string ContourProp;
  int IsShapePointShow = 0;
  std::string ShapeStyle;
  double ShapeSize = 0;
  std::string ShapeMaterial;
  int IsPillarShow = 0;
  std::string PillarStyle;
  double PillarSize = 0;
  std::string PillarMaterial;
  int IsLineBetweenShow = 0;
  int ShowInStraightLine = 0;
  int SmoothPointsNum = 0;
  std::string LineStyle;
  double LineSize = 0;
  int LineDisplayNum = 0;
  int FaultFillType = 0;
  std::string FaultFillMaterial;
  double Transparency = 0;
  bool operator==(const FaultPlaneStyle&) const = default;
};

class PETRODB_API IFaultPlane3DData : public IDataBase {
 public:
  // False when there is no such row.
  virtual bool LoadFaultPlane(const char* modeling, const char* fault, FaultPlaneStyle& style) = 0;
  // Replaces the row of the same names. Empty modelling or fault name:
  // "建模名称和断层名称不能为空！".
  virtual bool SaveFaultPlane(const FaultPlaneStyle& style) = 0;
  // Same emptiness message as SaveFaultPlane.
  virtual bool IsFaultPlaneExist(const char* modeling, const char* fault) = 0;
  // The listed faults of a model; the list is emptied first.
  virtual bool LoadFaultPlanes(const char* modeling, const std::vector<std::string>& faults,
                               std::vector<FaultPlaneStyle>& styles) = 0;
  // Appends every style in one batch. Each row is preceded by a statement
  // meant to delete its old row that no engine runs ("delect"), so rows of the
  // same names are added beside the old ones.
  virtual bool SaveFaultPlanes(const std::vector<FaultPlaneStyle>& styles) = 0;
  virtual bool GetExistingFaultPlanes(const char* modeling, const std::vector<std::string>& faults,
                                      std::vector<std::string>& existing) = 0;
};
