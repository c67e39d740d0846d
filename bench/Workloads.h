#pragma once
// The petrodb side of each benchmark, the same for every engine, so that the
// only difference between two engines' runs is the engine.
#include <string>
#include <vector>

#include "dbaccess/DataObject.h"
#include "dbaccess/DbManage.h"

namespace petrodb::bench {

// An 11-column row shaped like a well record.
struct Row {
  std::string project, id, name, type;
  double sn = 0, ew = 0, kb = 0, ekb = 0, depth = 0;
  char flag = 0;
  int symbol = 0;
};

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
  for (std::size_t i = 0; i < ids.size(); ++i) {
    db.AddNew();
    FieldWriter out(db);
    out("ProjectName", "P")("WellID", ids[i])("WellName", ids[i])("WellType", "oil")("Well_SN", i * 1.5)(
        "Well_EW", i * 1.5)("WellFlag", '1')("WellSymbol", 3)("Kb", 10.5)("Ekb", 9.5)("WellDepth", 2000.0);
  }
  return db.SaveData();
}

// Every row of bench_rows, read by column name.
inline void ReadRows(const std::string& connection, std::vector<Row>& rows) {
  rows.clear();
  CDbManage db(connection.c_str());
  ForEachRow(db, "select * from bench_rows", false, [&](CDbManage& d) {
    Row r;
    FieldReader in(d);
    in("ProjectName", r.project)("WellID", r.id)("WellName", r.name)("WellType", r.type)("Well_SN", r.sn)(
        "Well_EW", r.ew)("WellFlag", r.flag)("WellSymbol", r.symbol)("Kb", r.kb)("Ekb", r.ekb)("WellDepth", r.depth);
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
    db.AddNew();
    FieldWriter out(db);
    out("Name", "a")("Data", values);
    db.SaveData();
  }
  CDbManage db(connection.c_str());
  db.GetDataFromDB("select * from bench_arrays", true);
  FieldReader in(db);
  in("Data", back);
}

}  // namespace petrodb::bench
