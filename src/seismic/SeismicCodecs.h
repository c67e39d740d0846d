#pragma once
// The text and array forms the seismic tables store, each written once,
// locale-independent, and the grouping of ordered rows into records.
#include <optional>
#include <string>
#include <vector>

#include "petrodb/seismic/IFaultStickData.h"

namespace petrodb::seismic {

// Line groups: "%g,%g;" for every pair, the last one too. Reading takes each
// piece up to a ';', splits it at its first ',' (a piece without one gives 0
// as its second value) and stops when no ';' is left.
std::string EncodePairs(const std::vector<double>& first, const std::vector<double>& second);
void DecodePairs(const std::string& text, std::vector<double>& first, std::vector<double>& second);

// Profile points: "%f," for X[i] and for Y[i], the final ',' trimmed. Reading
// splits at ',' and takes the items in pairs; an unpaired last item is dropped.
std::string EncodeProfilePoints(const std::vector<double>& x, const std::vector<double>& y);
void DecodeProfilePoints(const std::string& text, std::vector<double>& x, std::vector<double>& y);

// Names joined by ',' with no trailing separator; reading splits at ','
// (an empty text gives no names).
std::string JoinNames(const std::vector<std::string>& names);
void SplitNames(const std::string& text, std::vector<std::string>& names);

// Fault sticks: four doubles a point (stick number, x, y, z). `counter` runs
// across the records of one save: it is incremented before each stick, so a
// call's first stick is 1.
std::vector<double> EncodeSticks(const std::vector<FaultStick>& sticks, int& counter);
// Groups of four (a shorter rest is ignored); a new stick begins whenever the
// stick number (as an integer) differs from the previous group's.
std::vector<FaultStick> DecodeSticks(const std::vector<double>& values);

// Tells when the key of ordered rows changes: the first key counts as a change.
template <class Key>
class KeyChanges {
 public:
  bool Next(const Key& key) {
    const bool changed = !last_ || *last_ != key;
    if (changed) last_ = key;
    return changed;
  }

 private:
  std::optional<Key> last_;
};

}  // namespace petrodb::seismic
