#include "dbaccess/DataObject.h"
#include "petrodb/IBasicDataOper.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select * from %s "> kProbe;

// Sets one cell by its column's type text: "double" before "int", anything
// else is text. Empty numeric cells stay unset.
void SetCell(CDbManage& db, const std::string& column, const std::string& type, const std::string& cell) {
  if (type.find("double") != std::string::npos) {
    if (!cell.empty()) db.SetFieldValue(column.c_str(), sql::CAtof(cell));
  } else if (type.find("int") != std::string::npos) {
    if (!cell.empty()) db.SetFieldValue(column.c_str(), sql::CAtoi(cell));
  } else {
    db.SetFieldValue(column.c_str(), cell);
  }
}

}  // namespace

class CBasicDataOper final : public CDataObject<IBasicDataOper> {
 public:
  bool ImportRows(const char* table, const std::vector<std::string>& columnNames,
                  const std::vector<std::string>& columnTypes,
                  const std::vector<std::vector<std::string>>& rows) override {
    if (rows.empty()) return true;
    // The caller's table is probed with a select, not by its bare name, and the
    // columns are known only from the caller's lists.
    CDbManage db(connectionString.c_str());
    if (db.GetDataFromDB(kProbe(table).c_str()) == kFailed) return false;
    db.BeginSaveData(table);
    for (const auto& row : rows) {
      db.AddNew();
      for (std::size_t j = 0; j < row.size() && j < columnNames.size(); ++j)
        if (!columnNames[j].empty()) SetCell(db, columnNames[j], j < columnTypes.size() ? columnTypes[j] : "", row[j]);
    }
    return db.SaveData();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CBasicDataOper, IBasicDataOper)
