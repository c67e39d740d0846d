#pragma once
// Section well lists: one row per cross-section in b_sectionwelllist_data,
// holding the section's well combination as one text.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct SectionWellListRecord {
  std::string Setction_Name;     // key
  std::string Section_WellList;  // stored as given
};

class PETRODB_API ISectionWellListData : public IDataBase {
 public:
  virtual bool GetSectionNames(std::vector<std::string>& names) = 0;
  virtual bool LoadSectionWellList(const char* name, SectionWellListRecord& record) = 0;
  virtual bool GetSectionWellLists(std::vector<SectionWellListRecord>& list) = 0;
  // Refuses an empty name or well combination with a message.
  virtual bool SaveSectionWellList(const SectionWellListRecord& record) = 0;
  // Replaces each section in one save, without checks.
  virtual bool SaveSectionWellLists(const std::vector<SectionWellListRecord>& list) = 0;
  virtual bool DeleteSectionWellList(const char* name) = 0;
  virtual bool DeleteAllSectionWellLists() = 0;
};
