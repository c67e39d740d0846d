#pragma once
// Well-bore structure (w_wellbore_structural): one row per named hole section
// of a well. The table is not tied to a project.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct BoreSection {
  std::string WELLID;
  std::string BORENAME;  // unique within a well
  double BITSIZE = 0;
  double TOPDEPTH = 0;
  double BOTDEPTH = 0;

  bool operator==(const BoreSection&) const = default;
};

class PETRODB_API IWellBoreStructural : public IDataBase {
 public:
  // The well's sections; each record takes the well ID as given.
  virtual bool LoadWellBoreSections(const char* wellID, std::vector<BoreSection>& sections) = 0;
  // Every well that has sections, ordered by ID.
  virtual bool GetBoreWellIDs(std::vector<std::string>& wellIDs) = 0;
  // The sections of every well, well after well; true even when there are none.
  virtual bool LoadAllBoreSections(std::vector<BoreSection>& sections) = 0;
  virtual bool IsWellBoreExist(const char* wellID) = 0;
  // Replaces the listed sections (by well and name); a well's other sections stay.
  virtual bool SaveBoreSections(const std::vector<BoreSection>& sections) = 0;
  // Appends to `found` those of `wellIDs` that have sections.
  virtual bool GetWellsWithBore(const std::vector<std::string>& wellIDs, std::vector<std::string>& found) = 0;
  // Replaces one section (by well and name).
  virtual bool SaveBoreSection(const BoreSection& section) = 0;
  virtual bool DeleteWellBore(const char* wellID) = 0;
  virtual bool DeleteAllBoreSections() = 0;
};
