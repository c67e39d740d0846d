#pragma once
// LAS 2.0 well-log files (Canadian Well Logging Society ASCII standard).
//
// The reader is lenient: wrapped and unwrapped data, '#' comment lines, a
// section named by the first letter after '~' alone, blank lines, CR-LF line
// ends, a trailing end-of-file byte (0x1A), and duplicate curve mnemonics
// (the second "GR" becomes "GR_2"), and lines ended by CR-LF, LF or CR alone
// (old Mac files), mixed. NULL is compared numerically and never applies to
// the index (first) curve.
//
// The writer is strict: it refuses (with an error naming the curve or item and
// the field) any text its reader would read back differently, since LAS has no
// way to escape it: a line break, CR or end-of-file byte anywhere; a blank, '.'
// or ':' in a mnemonic, or a mnemonic beginning with '#' (a comment) or '~' (a
// section); a blank in a unit; a ':' in a description; blanks around a value
// or a description. It writes every number with the fewest digits that read
// back as the same double, so a write followed by a read gives the same
// mnemonics, units, descriptions, items and arrays bit for bit (NaN payloads
// aside). What the writer decides itself: STRT, STOP, STEP and NULL (computed;
// items of those names are not copied), WRAP NO, and a NULL always written.
#include <iosfwd>
#include <string>
#include <vector>

struct WellLog;

namespace petrodb::las {

// One header line: "MNEM.UNIT  VALUE : DESCRIPTION".
struct Item {
  std::string mnemonic;
  std::string unit;
  std::string value;
  std::string description;
};

struct Curve {
  std::string mnemonic;
  std::string unit;
  std::string description;
  std::vector<double> values;
};

struct File {
  std::vector<Item> well;        // ~W, in file order (STRT, STOP, STEP, NULL, ...)
  std::vector<Item> parameters;  // ~P
  std::vector<Curve> curves;     // ~C and ~A; the first is the index
  double nullValue = -999.25;
  bool hasNull = false;               // the file gave NULL
  bool wrapped = false;               // the file said WRAP. YES
  std::vector<std::string> warnings;  // what the reader skipped or renamed

  // The ~W item with this mnemonic (case ignored), or null.
  const Item* WellItem(const std::string& mnemonic) const;
  // True when `value` of a non-index curve means "no sample".
  bool IsNull(double value) const { return hasNull && value == nullValue; }
};

// Reads a whole file; false with `error` set when it is not LAS.
bool Read(std::istream& in, File& file, std::string& error);
bool ReadFile(const std::string& path, File& file, std::string& error);

// Writes LAS 2.0, unwrapped. STRT, STOP, STEP and NULL are computed from the
// index and nullValue; the file's other ~W items follow them. False (nothing
// written) when there is no curve, a curve's length differs from the index's,
// two curves share a mnemonic (case ignored), a curve's mnemonic is empty, or
// a text could not be read back as it is (see above).
bool Write(std::ostream& out, const File& file, std::string& error);

// Why `mnemonic` cannot name a curve in a written file, or "" when it can.
std::string MnemonicProblem(const std::string& mnemonic);

// The fewest digits that read back as the same double.
std::string FormatNumber(double value);

// The file's curves as a well log: the index curve is the depth curve of every
// other, Measure is the unit, NullValue is NULL (or -999.25).
void ToWellLog(const File& file, const std::string& wellID, WellLog& log);

}  // namespace petrodb::las
