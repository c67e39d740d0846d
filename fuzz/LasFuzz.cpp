// The LAS reader: the write-then-read round trip of Targets.h, and what the
// reader promises of every file it takes: all curves as long as the index, an
// index of numbers, and names an import can store.
#include <cmath>

#include "Entry.h"

namespace petrodb::fuzz {

inline std::string LasReaderPromises(std::string_view input) {
  if (std::string failure = LasRoundTrip(input); !failure.empty()) return failure;
  las::File file;
  std::string error;
  std::istringstream in{std::string(input)};
  if (!las::Read(in, file, error)) return error.empty() ? "refused without a reason" : "";
  if (file.curves.empty()) return "read without curves";
  for (const double depth : file.curves.front().values)
    if (std::isnan(depth)) return "an index sample that is not a number";
  for (const auto& curve : file.curves) {
    if (curve.values.size() != file.curves.front().values.size()) return "curves of different lengths";
    const std::string name = las::StorableName(curve.mnemonic);
    if (!name.empty() && !las::MnemonicProblem(name).empty()) return "a stored name a LAS file cannot carry: " + name;
    if (name.find('\'') != std::string::npos) return "a stored name with a quote";
  }
  return {};
}

}  // namespace petrodb::fuzz

PETRODB_FUZZ_ENTRY(LasReaderPromises)
