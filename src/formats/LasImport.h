#pragma once
// How a LAS file goes into a well that may already hold curves, so that every
// stored curve keeps a depth curve with as many samples as it has:
// - each curve gets a name a LAS file and a database key can hold
//   (StorableName; "CURVEn" when nothing is left), duplicates get "_2", ...;
// - a curve of the same name as a stored one replaces it;
// - the file's index becomes a depth curve of its own name when the well has
//   none of that name, when the well's one holds exactly the same depths
//   (then the curves share it), or when every curve it indexes is replaced by
//   the file; otherwise it takes a free name ("DEPT_2"). A curve named like a
//   depth curve that other stored curves still use is renamed the same way;
// - when the well keeps curves of another NULL, the file's NULL samples take
//   the well's NULL (one NULL per well);
// - a file that holds only its index also stores a copy of it as a curve
//   ("DEPT_INDEX"), since a depth curve that no curve uses is dropped.
// Every change of name or value is said in a note.
#include <functional>
#include <string>
#include <vector>

#include "formats/Las.h"
#include "petrodb/welllog/ILogData.h"
#include "welllog/LasFileStore.h"

namespace petrodb::las {

// A row the well already has: the curve and the depth curve that indexes it.
struct StoredCurve {
  std::string name;
  std::string depthName;
};

struct ImportPlan {
  WellLog log;                     // the curves to save, the index first
  bool sharedIndex = false;        // the well's depth curve of that name holds the same depths
  std::string indexCopy;           // the copy of an index-only log, or ""
  std::vector<std::string> notes;  // renames, replacements, NULL changes
};

// `sameDepths(name)` answers whether the stored depth curve `name` holds
// exactly the file's index values; `storedNull` is the NullValue of the well's
// rows (null when it has none).
ImportPlan PlanImport(const File& file, const std::string& wellID, const std::vector<StoredCurve>& stored,
                      const std::function<bool(const std::string&)>& sameDepths, const double* storedNull);

// The header rows to keep for the plan's index: the file's curves, ~W and ~P
// items, merged into `kept` (the rows kept before under that index) when the
// index is shared.
std::vector<LasItemRecord> HeaderRows(const File& file, const ImportPlan& plan,
                                      const std::vector<LasItemRecord>& kept);

}  // namespace petrodb::las
