#pragma once
// The petrodb side of each benchmark, the same for every engine, so that the
// only difference between two engines' runs is the engine.
#include <string>
#include <vector>

#include "dbaccess/DataObject.h"
#include "dbaccess/DbManage.h"
#include "petrodb/welllog/IAliasData.h"

namespace petrodb::bench {

// An 11-column row shaped like a well record.
struct Row {
  std::string project, id, name, type;
  double sn = 0, ew = 0, kb = 0, ekb = 0, depth = 0;
  char flag = 0;
  int symbol = 0;
};

inline const ColumnTable<Row> kRowColumns{"bench_rows", {
    Col("ProjectName", &Row::project), Col("WellID", &Row::id), Col("WellName", &Row::name),
    Col("WellType", &Row::type), Col("Well_SN", &Row::sn), Col("Well_EW", &Row::ew), Col("WellFlag", &Row::flag),
    Col("WellSymbol", &Row::symbol), Col("Kb", &Row::kb), Col("Ekb", &Row::ekb), Col("WellDepth", &Row::depth),
}};

struct ArrayRow {
  std::string name;
  std::vector<double> data;
};
inline const ColumnTable<ArrayRow> kArrayColumns{"bench_arrays", {Col("Name", &ArrayRow::name), Col("Data", &ArrayRow::data)}};

inline std::vector<std::string> WellIds(int count) {
  std::vector<std::string> ids;
  for (int i = 0; i < count; ++i) ids.push_back("W" + std::to_string(i));
  return ids;
}

// One operation's session: take from the pool, one select, read a field, return.
inline void ReadOneField(const std::string& connection, std::string& description) {
  CDbManage db(connection.c_str());
  db.GetDataFromDB("select * from b_project_data where ProjectName='P'");
  db.GetFieldValue("Description", description);
}

// BeginSaveData, AddNew per id, SaveData into bench_rows.
inline bool SaveRows(const std::string& connection, const std::vector<std::string>& ids) {
  CDbManage db(connection.c_str());
  db.BeginSaveData("bench_rows");
  Row row{"P", "", "", "oil", 0, 0, 10.5, 9.5, 2000.0, '1', 3};
  for (std::size_t i = 0; i < ids.size(); ++i) {
    row.id = row.name = ids[i];
    row.sn = row.ew = i * 1.5;
    kRowColumns.AddRow(db, row);
  }
  return db.SaveData();
}

// Every row of bench_rows, read by column name.
inline void ReadRows(const std::string& connection, std::vector<Row>& rows) {
  rows.clear();
  CDbManage db(connection.c_str());
  ForEachRow(db, "select * from bench_rows", false, [&](CDbManage& d) {
    Row r;
    kRowColumns.Read(d, r);
    rows.push_back(std::move(r));
    return true;
  });
}

// One array written to bench_arrays and read back.
inline void ArrayRoundTrip(const std::string& connection, const std::vector<double>& values,
                           std::vector<double>& back) {
  {
    CDbManage db(connection.c_str());
    db.ExecuteSQL("delete from bench_arrays");
    db.BeginSaveData("bench_arrays");
    kArrayColumns.AddRow(db, ArrayRow{"a", values});
    db.SaveData();
  }
  CDbManage db(connection.c_str());
  db.GetDataFromDB("select * from bench_arrays", true);
  columns::ReadValue(db, "Data", back);
}

// An operation that replaces a record by key: probe, delete, insert.
inline bool ReplaceAlias(IAliasData& aliases, int round) {
  return aliases.SaveImageAlias(ImageAlias{"sand", 1, round, "sandstone"});
}

}  // namespace petrodb::bench
