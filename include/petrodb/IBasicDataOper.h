#pragma once
// Appends rows given as text to any table, converting each cell by the type
// text of its column.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

class PETRODB_API IBasicDataOper : public IDataBase {
 public:
  // Cell j of each row belongs to columnNames[j] with type columnTypes[j]. A
  // type text containing "double" stores the cell's leading number (atof), one
  // containing "int" its leading integer (atoi); in both an empty cell is left
  // unset. Any other type stores the text as it is. Cells of an empty column
  // name are skipped. Rows must not be longer than columnNames. All rows are
  // written in one save: all or nothing. No rows: true without touching the
  // database; a missing table: false.
  virtual bool ImportRows(const char* table, const std::vector<std::string>& columnNames,
                          const std::vector<std::string>& columnTypes,
                          const std::vector<std::vector<std::string>>& rows) = 0;
};
