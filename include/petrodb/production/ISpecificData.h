#pragma once
// One column of any table, by well: a generic query for the values of a named
// column in the rows that match one key.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct SpecificValue {
  std::string WellID;
  std::string Value;  // the column's value as text
};

class PETRODB_API ISpecificData : public IDataBase {
 public:
  // Runs "select WellID, <column> from <table> where <keyColumn>=<keyValue>",
  // every argument inserted unchanged: a text key must carry its own quotes
  // ("'W1'"), and the caller answers for what the texts say. Each row gives its
  // WellID and the column's value as text (a number in its shortest form). The
  // list is emptied first; false when nothing is found, when the statement
  // cannot run (a text key without quotes, a missing table or column), or at
  // the first row whose WellID or value cannot be read (a NULL; the rows before
  // it stay).
  virtual bool GetSpecificValues(const char* column, const char* table, const char* keyColumn, const char* keyValue,
                                 std::vector<SpecificValue>& values) = 0;
};
