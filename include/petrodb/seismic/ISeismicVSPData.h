#pragma once
// Time-depth pairs of vertical seismic profiles (b_seismic_well_vsp): any
// number of runs per well, each two arrays of equal length.
#include <map>
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct WellVspRecord {
  std::string WellID;
  std::string VSPID;                // run identifier, "<WellID>_<n>" when the save numbers it
  std::vector<double> TVDSSDepth;   // true vertical depth below sea level of each sample
  std::vector<double> TWTDepth;     // two-way time of each sample

  bool operator==(const WellVspRecord&) const = default;
};

class PETRODB_API ISeismicVSPData : public IDataBase {
 public:
  // The project's wells that have runs. Its statement lacks the closing
  // parenthesis of its subquery, so it never runs: false, `wellIds` empty.
  virtual bool GetVspWells(const char* project, std::vector<std::string>& wellIds) = 0;
  // Every stored run identifier (cleared first); false when there is none.
  virtual bool GetAllVspIds(std::vector<std::string>& vspIds) = 0;
  // The run identifiers of one well (cleared first); false when there is none.
  virtual bool GetWellVspIds(const char* wellID, std::vector<std::string>& vspIds) = 0;
  // The runs of one well (cleared first). False when there is none or a row
  // cannot be read (the runs before it stay).
  virtual bool LoadWellVsp(const char* wellID, std::vector<WellVspRecord>& runs) = 0;
  // The run's well and arrays; VSPID keeps what the caller put there. False
  // when the run is not stored.
  virtual bool LoadVsp(const char* vspID, WellVspRecord& run) = 0;
  // Every run, grouped by well, wells and runs in identifier order (cleared
  // first); false when there is none.
  virtual bool LoadAllVsp(std::map<std::string, std::vector<WellVspRecord>>& byWell) = 0;
  // True when the table exists and the well has a run.
  virtual bool HasWellVsp(const char* wellID) = 0;
  // Appends the run. A VSPID that does not contain "<WellID>_" is replaced
  // (also in `run`) by "<WellID>_<n>", n being one more than the greatest ID the
  // table has numbered (1 when it has none or the query fails). Nothing is
  // deleted first: saving a stored identifier again adds a second row. False
  // when the table is missing or the row cannot be written.
  virtual bool SaveVsp(WellVspRecord& run) = 0;
  // False when the table is missing or the delete fails.
  virtual bool DeleteVsp(const char* wellID, const char* vspID) = 0;
  virtual bool DeleteWellVsp(const char* wellID) = 0;
};
