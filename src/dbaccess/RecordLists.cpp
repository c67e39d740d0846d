#include "dbaccess/RecordLists.h"

namespace petrodb {

int SelectColumn(CDbManage& db, const std::string& statement, const char* column, std::vector<std::string>& out) {
  return SelectRecords(db, statement, out, [column](CDbManage& row, std::string& value) {
    return row.GetFieldValue(column, value);
  });
}

bool AppendColumn(CDbManage& db, const std::string& statement, const char* column, std::vector<std::string>& out) {
  const int result = SelectColumn(db, statement, column, out);
  return result == kRowsFound || result == kNoRows;
}

}  // namespace petrodb
