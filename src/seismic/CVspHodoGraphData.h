#pragma once
// The general object of the lines of VSP processing projects (vsp_hodograph),
// with the line-data type as an argument of every operation. It is internal:
// not in the catalogue; the curve and SEG-Y line objects fix a type and
// forward to it.
#include <memory>
#include <string>
#include <vector>

#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IVspLineData.h"

namespace petrodb::seismic {

class CVspHodoGraphData final : public CDataObject<IDataBase> {
 public:
  // A general object on `connection`.
  static std::unique_ptr<CVspHodoGraphData> Open(const std::string& connection);

  bool GetHodographNames(int projectID, const char* lineType, std::vector<std::string>& names) const;
  bool LoadHodographs(int projectID, const char* lineType, std::vector<VspHodographRecord>& lines) const;
  bool LoadHodograph(int projectID, const char* lineType, const char* name, VspHodographRecord& line) const;
  // Rows are written as the records hold them, LineDataType included.
  bool SaveHodographs(const std::vector<VspHodographRecord>& lines) const;
  bool SaveHodograph(const VspHodographRecord& line) const;
  bool DeleteHodographType(int projectID, const char* lineType) const;
  bool DeleteHodograph(int projectID, const char* lineType, const char* name) const;
  bool IsHodographExist(int projectID, const char* lineType, const char* name) const;
};

}  // namespace petrodb::seismic
