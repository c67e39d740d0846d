#pragma once
// Named lines of VSP processing projects (vsp_hodograph): curves (line-data
// type "0") and SEG-Y lines ("2"), each served by its own object.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct VspHodographRecord {
  int Vsp_ProjID = 0;
  std::string Hg_name;
  std::vector<double> Hg_data;
  std::string Segy_file;     // path of the SEG-Y file
  std::string LineDataType;  // written by the object from its own code

  bool operator==(const VspHodographRecord&) const = default;
};

// Lists and loads clear their output first and answer true when a row was
// found and every row read. Saves append (nothing is deleted first) and write
// the object's line-data type whatever the records hold. An empty name (saves,
// DeleteHodograph) shows "初置名称不能为空！" and touches nothing; a missing table
// makes saves and deletes answer false silently.
class PETRODB_API IVspLineData : public IDataBase {
 public:
  virtual bool GetHodographNames(int projectID, std::vector<std::string>& names) = 0;
  // Hg_name, Hg_data and Segy_file of each line, by name.
  virtual bool LoadHodographs(int projectID, std::vector<VspHodographRecord>& lines) = 0;
  // Fills Hg_data and Segy_file.
  virtual bool LoadHodograph(int projectID, const char* name, VspHodographRecord& line) = 0;
  virtual bool SaveHodographs(const std::vector<VspHodographRecord>& lines) = 0;
  virtual bool SaveHodograph(const VspHodographRecord& line) = 0;
  virtual bool DeleteHodographType(int projectID) = 0;
  virtual bool DeleteHodograph(int projectID, const char* name) = 0;
  virtual bool IsHodographExist(int projectID, const char* name) = 0;
};
