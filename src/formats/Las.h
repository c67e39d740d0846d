#pragma once
// LAS well-log files (Canadian Well Logging Society ASCII standard, 1.2 to 3.0).
//
// The reader takes what the field writes, and refuses, naming the line and
// saying why, what it cannot read without guessing. It never moves a value into
// another curve.
// - Text: UTF-8 (with or without a byte order mark), UTF-16 (with a byte order
//   mark, or recognised by its zero bytes) and, when the bytes are not UTF-8,
//   Latin-1/Windows-1252; lines end in LF, CR-LF or CR alone, mixed; a trailing
//   end-of-file byte (0x1A) is dropped.
// - Sections: named by their first letter ("~A", "~Curves") or by their LAS 3.0
//   names. LAS 3.0 files are read as a 2.0 log: ~Log_Definition gives the
//   curves, ~Log_Parameter the parameters, ~Log_Data the samples, delimited as
//   the DLM item of ~Version says (SPACE, TAB or COMMA). Any other 3.0 data
//   section, or a second log data set, is refused naming the section.
// - Header lines "MNEM.UNIT  VALUE : DESCRIPTION": the unit begins at the first
//   '.', except that a mnemonic may hold dots when a ".." ends it ("I. Res..OHMM"
//   is "I. Res." in OHMM) and may begin with one (".TEMP.DEGC" is ".TEMP");
//   the description begins after the last ':'. Ruler lines (dashes, '=' or '_'
//   only) and a "MNEM.UNIT" title line are skipped with a note. Duplicate curve
//   mnemonics get free names (the second "GR" becomes "GR_2").
// - Data: '#' comment lines, ruler lines and a title line that repeats curve
//   mnemonics are skipped with a note. Tokens that mark a missing value
//   ("(null)", "-", "--", "NaN", "INF", "ERR", "#N/A", "N/A", runs of '*')
//   read as NULL in any curve but the index. Commas as decimal points
//   ("1670,5") are read when no data line holds a '.'; an unwrapped 2.0 file
//   whose lines split on commas into exactly one value per curve is read as
//   comma-delimited.
// - The value-count rule: each line of unwrapped data is one depth step. A
//   line with fewer values than curves gives the missing trailing curves NULL
//   (noted with the count of such lines and the first); a line with more values
//   than curves is refused naming the line. Wrapped data (WRAP. YES, or data
//   whose every depth stands alone on a line and whose lines add up to whole
//   steps) run step by step; a step that overflows its curves is refused, an
//   incomplete last step fills with NULL.
// NULL is compared numerically and never applies to the index (first) curve,
// whose values must all be numbers.
//
// The writer is strict: it refuses (with an error naming the curve or item and
// the field) any text or value its reader would read back differently: a line
// break, CR or end-of-file byte anywhere; a blank, '.' or ':' in a mnemonic, or
// a mnemonic beginning with '#' (a comment) or '~' (a section); a blank in a
// unit; a ':' in a description; blanks around a value or a description; a line
// the reader skips as a ruler or title; an index value that is not finite, and
// an infinite or NaN sample other than NULL itself. It writes every number with
// the fewest digits that read back as the same double, so a write followed by a
// read gives the same mnemonics, units, descriptions, items and arrays bit for
// bit (NaN payloads aside). What the writer decides itself: STRT, STOP, STEP and
// NULL (computed; items of those names are not copied), WRAP NO, and a NULL
// always written.
#include <cstdint>
#include <functional>
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
  bool hasNull = false;               // the file gave NULL (or the reader needed one)
  bool wrapped = false;               // the file said WRAP. YES
  std::vector<std::string> warnings;  // what the reader skipped, renamed or filled

  // The ~W item with this mnemonic (case ignored), or null.
  const Item* WellItem(const std::string& mnemonic) const;
  // True when `value` of a non-index curve means "no sample".
  bool IsNull(double value) const;
};

// Told now and then how many data lines (reading) or depth steps (writing) of
// how many are done.
using Progress = std::function<void(std::uint64_t done, std::uint64_t total)>;

// Reads a whole file; false with `error` set when it is not LAS or cannot be
// read without guessing.
bool Read(std::istream& in, File& file, std::string& error, const Progress& progress = {});
// The errors do not name the file: the caller does, as for those of Read.
bool ReadFile(const std::string& path, File& file, std::string& error, const Progress& progress = {});

// Writes LAS 2.0, unwrapped. STRT, STOP, STEP and NULL are computed from the
// index and nullValue; the file's other ~W items follow them. False (nothing
// written) when there is no curve, a curve's length differs from the index's,
// two curves share a mnemonic (case ignored), a curve's mnemonic is empty, or
// a text or value could not be read back as it is (see above).
bool Write(std::ostream& out, const File& file, std::string& error, const Progress& progress = {});

// Why `mnemonic` cannot name a curve in a written file, or "" when it can.
std::string MnemonicProblem(const std::string& mnemonic);
// Why the writer would refuse a ~W or ~P item (as its error says), or "".
std::string ItemProblem(const Item& item);

// The fewest digits that read back as the same double.
std::string FormatNumber(double value);

// The file's curves as a well log: the index curve is the depth curve of every
// other, Measure is the unit, NullValue is NULL (or -999.25).
void ToWellLog(const File& file, const std::string& wellID, WellLog& log);

// A name a LAS file can carry and a database key can hold: each run of blanks,
// '.', ':', quotes and control characters becomes one '_' (none at either
// end), and a leading '#' or '~' goes; "" when nothing, or only a ruler, is left.
std::string StorableName(const std::string& mnemonic);

}  // namespace petrodb::las
