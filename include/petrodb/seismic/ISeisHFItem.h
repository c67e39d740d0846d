#pragma once
// Horizons and faults picked on a seismic survey (s_horflt3d, one row per item,
// numbered by the database in HF_ID) and their points (s_point). Every
// operation takes the item kind as a bool, stored as '1' (true) or '0'
// (false); which kind is horizon and which fault is the callers' choice.
// Deletes remove item rows only; their points stay in s_point.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct HFPoint {
  int HF_ID = 0;  // the owning item (loads set it to the item's number)
  int SegmentID = 0;
  int CDP = 0;
  int Inline_No = 0;
  double X = 0, Y = 0, T = 0;  // T: the picked time
  bool operator==(const HFPoint&) const = default;
};

struct HFItemRecord {
  int HF_ID = 0;  // given by the database; loads fill it
  std::string Survey_Name;
  std::string HFItem_Name;
  std::string HF_Type;  // "1" or "0"; loads fill it from the kind
  std::string ProjectName;
  std::vector<HFPoint> Points;
  bool operator==(const HFItemRecord&) const = default;
};

// One item with its points twice: by crossline and by inline.
struct HFItemGrid {
  std::string HFItem_Name;
  int HF_ID = 0;
  std::vector<HFPoint> ByCrossline;  // ordered by CDP, segment, inline
  std::vector<HFPoint> ByInline;     // ordered by inline, segment, CDP
};

// Lists are emptied first; list reads answer true when the query ran and
// every row could be read.
class PETRODB_API ISeisHFItem : public IDataBase {
 public:
  virtual bool GetHFSurveyNames(const char* project, bool kind, std::vector<std::string>& names) = 0;
  // Its statement holds a stray quote after the kind: no engine runs it, so it
  // answers false (and so do LoadSurveyItems and LoadSurveyHF).
  virtual bool GetHFItemNames(const char* project, const char* survey, bool kind,
                              std::vector<std::string>& names) = 0;
  // Empties both lists, then LoadSurveyItems for kind false and kind true.
  virtual bool LoadSurveyHF(const char* project, const char* survey, std::vector<HFItemRecord>& kindFalse,
                            std::vector<HFItemRecord>& kindTrue) = 0;
  // GetHFItemNames, then LoadHFItem for each name.
  virtual bool LoadSurveyItems(const char* project, const char* survey, std::vector<HFItemRecord>& items,
                               bool kind) = 0;
  // The item's number, then its points by segment and time (the point list
  // is emptied first). False when the item is not found.
  virtual bool LoadHFItem(const char* project, const char* survey, const char* item, bool kind,
                          HFItemRecord& record) = 0;
  // SaveHFItem for each, in order; stops at the first failure.
  virtual bool SaveHFItems(const char* project, const std::vector<HFItemRecord>& items, bool kind) = 0;
  // Appends the item row, reads the number the database gave it (the last of
  // the rows with its survey, name, project and kind), then appends its points
  // under that number. Nothing is deleted first.
  virtual bool SaveHFItem(const char* project, const HFItemRecord& item, bool kind) = 0;
  virtual bool DeleteHFItem(const char* project, const char* survey, const char* item, bool kind) = 0;
  virtual bool DeleteHFSurvey(const char* project, const char* survey, bool kind) = 0;
  virtual bool DeleteProjectHF(const char* project, bool kind) = 0;
  // Every item of the survey and kind with its points in both orders.
  virtual bool LoadSurveyGrids(const char* project, const char* survey, bool kind, std::vector<HFItemGrid>& grids) = 0;
};
