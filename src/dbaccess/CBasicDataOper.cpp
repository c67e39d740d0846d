#include <algorithm>
#include <cstdint>

#include "dbaccess/DataObject.h"
#include "dbaccess/DbManage.h"
#include "petrodb/IBasicDataOper.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select * from %s "> kProbe;
// Many rows are written in batches of this many, inside one transaction, so
// that the host can show how far the import has come.
constexpr std::size_t kBatch = 5000;

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
    // All or nothing: every batch is written in the one transaction.
    petrodb::db::Operation operation(connectionString);
    CDbManage db(connectionString.c_str());
    if (db.GetDataFromDB(kProbe(table).c_str()) == kFailed) return false;
    const std::uint64_t total = rows.size();
    for (std::size_t first = 0; first < rows.size(); first += kBatch) {
      db.BeginSaveData(table);
      const std::size_t end = std::min(rows.size(), first + kBatch);
      for (std::size_t i = first; i < end; ++i) {
        const auto& row = rows[i];
        db.AddNew();
        for (std::size_t j = 0; j < row.size() && j < columnNames.size(); ++j)
          if (!columnNames[j].empty())
            SetCell(db, columnNames[j], j < columnTypes.size() ? columnTypes[j] : "", row[j]);
      }
      if (!db.SaveData()) return false;
      if (total > kBatch) StepWaitingDlg(end, total);
    }
    return operation.Commit();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CBasicDataOper, IBasicDataOper)
