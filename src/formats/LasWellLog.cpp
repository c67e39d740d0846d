// A LAS file's curves as a well log (kept apart so the format itself needs no
// data classes).
#include "formats/Las.h"
#include "petrodb/welllog/ILogData.h"

namespace petrodb::las {

void ToWellLog(const File& file, const std::string& wellID, WellLog& log) {
  log.WellID = wellID;
  log.NullValue = file.nullValue;
  log.Curves.clear();
  for (const auto& curve : file.curves)
    log.Curves.push_back(LogCurve{curve.mnemonic, curve.unit, nullptr, curve.values});
  std::vector<std::string> depthNames(log.Curves.size(), file.curves.front().mnemonic);
  log.Link(depthNames);
}

}  // namespace petrodb::las
