#pragma once
// The schema revision of a project database, kept in the table Version.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct VersionRecord {
  std::string DBNO;
  std::string ImageType;
};

class PETRODB_API IDataBaseVersion : public IDataBase {
 public:
  // Appends every row; false for an empty table or an unreadable row (the rows
  // before it stay appended).
  virtual bool GetVersions(std::vector<VersionRecord>& list) = 0;
  // Sets ImageType on every row (DBNO is not used). A database without the
  // table is older than the program: a message asks to update it.
  virtual bool SetImageType(const VersionRecord& record) = 0;
};
