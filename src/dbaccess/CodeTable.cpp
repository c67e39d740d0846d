#include "dbaccess/CodeTable.h"

namespace petrodb {

bool CodeRowExists(const std::string& connection, const CodeTable& t, const std::string& statement) {
  CDbManage db(connection.c_str());
  if (TableMissing(db, t.table)) return false;
  return db.GetDataFromDB(statement.c_str()) == kRowsFound;
}

bool DeleteCodeRow(const std::string& connection, const CodeTable& t, const std::string& key,
                   const std::string& statement) {
  if (key.empty()) {
    ErrorMessageBox(t.emptyKey);
    return false;
  }
  CDbManage db(connection.c_str());
  if (TableMissing(db, t.table)) return false;
  return db.ExecuteSQL(statement.c_str());
}

}  // namespace petrodb
