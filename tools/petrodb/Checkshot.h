#pragma once
// Checkshots (depth against two-way time in milliseconds) saved as VSP runs.
#include <string>
#include <vector>

#include "petrodb/IDataFactory.h"

namespace petrodb::cli {

struct Checkshot {
  bool measuredDepth = false;  // depths are measured depths (else TVDSS)
  std::vector<double> depths;
  std::vector<double> times;  // two-way time, ms
};

// Saves the checkshot as a new VSP run of the well (numbered by the library).
// Measured depths are converted to TVDSS along the well's deviation survey
// (a vertical well below its kelly bushing when it has none). Prints what was
// saved; false (with the reason printed) when the well is unknown, the
// checkshot has no sample or a non-finite value, or the save fails.
bool SaveCheckshot(IDataFactory& factory, const std::string& file, const std::string& wellID, const Checkshot& shot);

}  // namespace petrodb::cli
