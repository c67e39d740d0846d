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

bool DeleteNamedRows(const std::string& connection, const char* table, const char* name, const char* emptyName,
                     const std::string& statement) {
  if (!name || !*name) {
    AfxMessageBox(emptyName);
    return false;
  }
  CDbManage db(connection.c_str());
  if (TableMissing(db, table)) return false;
  db.ExecuteSQL(statement.c_str());
  return true;
}

}  // namespace petrodb
