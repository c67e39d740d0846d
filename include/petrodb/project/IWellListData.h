#pragma once
// Named well lists: one row per list member in b_welllist_data.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct WellListItem {
  std::string WellID;
  int WellNumber = 0;  // the member's number within the list
};

struct WellListRecord {
  std::string WellListName;  // key, written on every member row
  std::vector<WellListItem> Wells;
};

class PETRODB_API IWellListData : public IDataBase {
 public:
  // Each list name once, by name.
  virtual bool GetWellListNames(std::vector<std::string>& names) = 0;
  // Sets the name and appends the stored members (in the database's order) to
  // record.Wells without clearing it.
  virtual bool LoadWellList(const char* name, WellListRecord& record) = 0;
  // Replaces the list's members; a list without wells is thereby removed.
  virtual bool SaveWellList(const WellListRecord& record) = 0;
  virtual bool DeleteWellList(const char* name) = 0;
  virtual bool IsWellListExist(const char* name) = 0;
};
