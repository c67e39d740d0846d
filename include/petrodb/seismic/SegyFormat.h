#pragma once
// Where the values of a SEG-Y file sit: the lengths of its file headers and the
// byte positions of named values in the binary file header and in each trace
// header. Stored as text beside every SEG-Y file a survey names.
#include <map>
#include <string>

#include "petrodb/Export.h"

// A value's place: its 1-based byte position and its width in bytes. A name
// looked up that the layout does not hold gets {-1, 4}.
struct SegyFieldPos {
  int position = -1;
  int width = 4;
  bool operator==(const SegyFieldPos&) const = default;
};

class PETRODB_API SegyFormat {
 public:
  // The standard layout: 3200 + 400 header bytes, flag set, and the positions
  // of the sample interval (3217), sample count (3221), data format (3225), line
  // number (9), CDP (21), trace identification (29), start time (105) and the
  // X/Y coordinates (81/85).
  SegyFormat();

  int textHeaderLength = 3200;
  int binaryHeaderLength = 400;
  bool flag = true;  // carried through unchanged; never interpreted here
  // Ordered by name, byte-wise; the order in which the text form lists them.
  std::map<std::string, SegyFieldPos> binaryFields;
  std::map<std::string, SegyFieldPos> traceFields;

  // The entry of `name`, inserted as {-1, 4} when the layout has none.
  SegyFieldPos& Binary(const std::string& name) { return binaryFields.try_emplace(name).first->second; }
  SegyFieldPos& Trace(const std::string& name) { return traceFields.try_emplace(name).first->second; }

  // The stored text: "3200 400 1 <n binary> <n trace> " then each binary entry
  // and each trace entry as "<name> <position> <width>" followed by two blanks.
  std::string ToText() const;
  // Reads a stored text over this layout: values present in the text replace
  // the ones held, entries the text does not list stay. Any whitespace
  // separates. False when the text ends early or holds something that is not
  // a number where one belongs (what was read before stays).
  bool ReadText(const std::string& text);

  bool operator==(const SegyFormat&) const = default;
};
