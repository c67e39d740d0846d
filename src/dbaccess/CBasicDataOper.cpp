#include "dbaccess/DataObject.h"
#include "petrodb/IBasicDataOper.h"

using petrodb::sql::Format;

class CBasicDataOper final : public petrodb::CDataObject<IBasicDataOper> {
 public:
  bool ImportRows(const char* table, const std::vector<std::string>& columnNames,
                  const std::vector<std::string>& columnTypes,
                  const std::vector<std::vector<std::string>>& rows) override;
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CBasicDataOper, IBasicDataOper)

namespace {

// Sets one cell by its column's type text: "double" before "int", anything
// else is text. Empty numeric cells stay unset.
void SetCell(CDbManage& db, const std::string& column, const std::string& type, const std::string& cell) {
  if (type.find("double") != std::string::npos) {
    if (!cell.empty()) db.SetFieldValue(column.c_str(), petrodb::sql::CAtof(cell));
  } else if (type.find("int") != std::string::npos) {
    if (!cell.empty()) db.SetFieldValue(column.c_str(), petrodb::sql::CAtoi(cell));
  } else {
    db.SetFieldValue(column.c_str(), cell);
  }
}

}  // namespace

bool CBasicDataOper::ImportRows(const char* table, const std::vector<std::string>& columnNames,
                                const std::vector<std::string>& columnTypes,
                                const std::vector<std::vector<std::string>>& rows) {
  CDbManage db(connectionString.c_str());
  if (rows.empty()) return true;
  if (db.GetDataFromDB(Format("select * from %s ", table).c_str()) == kFailed) return false;
  db.BeginSaveData(table);
  for (const auto& row : rows) {
    db.AddNew();
    for (std::size_t j = 0; j < row.size() && j < columnNames.size(); ++j)
      if (!columnNames[j].empty()) SetCell(db, columnNames[j], j < columnTypes.size() ? columnTypes[j] : "", row[j]);
  }
  return db.SaveData();
}
