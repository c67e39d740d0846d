#pragma once
// Structure-map point sets of a project, one row per marker (s_structure_data):
// X, Y and depth arrays, and a bounding box computed on save.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct StructureRecord {
  std::string ProjectName;
  std::string MarkerName;
  std::vector<double> Xcoor, Ycoor, Depth;
  // Written by the saves (computed from the points), not read back by loads.
  // The box starts at minima 1e30 and maxima -99999.0: a map without points is
  // stored so, and points all below -99999.0 leave the maxima there.
  double MinXcoor = 0, MaxXcoor = 0, MinYcoor = 0, MaxYcoor = 0;
  bool operator==(const StructureRecord&) const = default;
};

// Lists are emptied first; list reads answer true when the query ran and
// every row could be read.
class PETRODB_API IStructureData : public IDataBase {
 public:
  virtual bool GetMarkerNames(const char* project, std::vector<std::string>& names) = 0;
  // False when there is no such map.
  virtual bool LoadStructure(const char* project, const char* marker, StructureRecord& map) = 0;
  virtual bool LoadProjectStructures(const char* project, std::vector<StructureRecord>& maps) = 0;
  // False when the table is missing or the marker has no map.
  virtual bool IsStructureExist(const char* project, const char* marker) = 0;
  // Replaces the marker's map, written under `project`. Empty marker:
  // "层名称不能为空！"; false without a message when the table is missing.
  virtual bool SaveStructure(const char* project, const StructureRecord& map) = 0;
  virtual bool GetExistingMarkers(const char* project, const std::vector<std::string>& names,
                                  std::vector<std::string>& existing) = 0;
  // Appends every map in one batch; nothing is deleted first.
  virtual bool SaveStructures(const char* project, const std::vector<StructureRecord>& maps) = 0;
  // Empty marker: "层名称不能为空！".
  virtual bool DeleteStructure(const char* project, const char* marker) = 0;
  virtual bool DeleteStructures(const char* project, const std::vector<std::string>& names) = 0;
  virtual bool DeleteProjectStructures(const char* project) = 0;
};
