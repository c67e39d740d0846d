#pragma once
// The header lines of imported LAS files (table w_las_item): curve order,
// units and descriptions, and the ~W and ~P items, kept per well and depth
// curve so that an export writes the file as it came. The host's own store,
// not an interface of the catalogue.
#include <memory>
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct WellLog;

namespace petrodb {

struct LasItemRecord {
  std::string WellID;
  std::string DepthCurveName;
  std::string ItemSection;  // "C" curve, "W" well item, "P" parameter, "I" index copy
  int ItemOrder = 0;
  std::string Mnemonic;
  std::string Unit;
  std::string ItemValue;
  std::string Description;
};

class ILasFileStore : public IDataBase {
 public:
  // Whether the project has the table (projects made before it have not).
  virtual bool HasTable() = 0;
  // The rows kept for the well's file under this depth curve, by section and
  // order; false when there are none or the table is missing.
  virtual bool LoadItems(const char* wellID, const char* depthCurveName, std::vector<LasItemRecord>& items) = 0;
  // As one transaction: saves the curves (ILogData::SaveWellLog) and replaces
  // the rows kept under (the log's well, depthCurveName) by `items` (only the
  // curves when the table is missing). False leaves the project as it was.
  virtual bool SaveImport(const WellLog& log, const std::string& depthCurveName,
                          const std::vector<LasItemRecord>& items) = 0;
};

// A store on the connection.
std::unique_ptr<ILasFileStore> MakeLasFileStore(const std::string& connection);

}  // namespace petrodb
