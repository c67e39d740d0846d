#pragma once
// Line groups stored per well and curve (w_linegroup_data): pairs of values
// kept as the text "a,b;c,d;" in LineGroupData.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct LineGroupRecord {
  std::string WellName;
  std::string CurveName;
  std::string LineGroupName;
  std::vector<double> First;   // first value of each pair
  std::vector<double> Second;  // second value of each pair (same length)
  bool operator==(const LineGroupRecord&) const = default;
};

// Reads append to the caller's lists and answer true when the query ran and
// every row could be read.
class PETRODB_API ILineGroupData : public IDataBase {
 public:
  virtual bool GetCurveNames(const char* well, std::vector<std::string>& curves) = 0;
  virtual bool GetLineGroupNames(const char* well, const char* curve, std::vector<std::string>& groups) = 0;
  // The group's pairs are appended to its vectors; the names are set from the
  // arguments. False when the group is not found.
  virtual bool LoadLineGroup(const char* well, const char* curve, const char* group, LineGroupRecord& record) = 0;
  // Replaces the group of the same well, curve and name; false when the table
  // is missing.
  virtual bool SaveLineGroup(const char* well, const char* curve, const LineGroupRecord& record) = 0;
};
