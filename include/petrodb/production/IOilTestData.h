#pragma once
// Formation oil tests: the tested intervals of a well in w_oiltest_data, one
// row per interval, every row carrying the well's name in WellID. Saving a
// well replaces all its rows.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct OilTestRecord {
  std::string XH;    // number
  std::string CW;    // layer
  std::string JSXH;
  float TopDepth = 0;
  float BottomDepth = 0;
  int LayerNum = 0;
  float Thickness = 0;
  std::string Builder;
  std::string Purpose;
  std::string BeginDate;   // text as written
  std::string FinishDate;  // text as written
  std::string CSLB;        // test category
  std::string Approach;
  std::string Method;
  std::string YYBHFW;
  std::string TYBHFW;
  float JY = 0;
  float LY = 0;
  float JW = 0;
  float LW = 0;
  float UnitOilProduct = 0;
  float UnitGasProduct = 0;
  float UnitWaterProduct = 0;
  float TotalOilProduct = 0;
  float TotalGasProduct = 0;
  float TotalWaterProduct = 0;
  float MQRGJD = 0;
  float ProductTime = 0;
  float ProductDepth = 0;
  std::string Conclusion;
};

// One well's oil tests; WellID is written to every row.
struct WellOilTest {
  std::string WellID;
  std::vector<OilTestRecord> records;
};

class PETRODB_API IOilTestData : public IDataBase {
 public:
  // The project's wells with at least one test, ordered by name. Emptied
  // first; false when there is none or a name cannot be read.
  virtual bool ListOilTestWells(const char* project, std::vector<std::string>& wells) = 0;
  // Sets tests.WellID and fills tests.records (emptied first) with the well's
  // intervals by top depth. True also for a well without tests; false when the
  // query fails or a field cannot be read (the intervals read before it stay).
  virtual bool LoadWellOilTests(const char* well, WellOilTest& tests) = 0;
  // APPENDS the names among the given wells that have tests. False when the
  // table is missing or none has tests (an empty list sends "in ()", which fails).
  virtual bool ListWellsWithOilTests(const std::vector<WellOilTest>& wells, std::vector<std::string>& names) = 0;
  // True when the table answers and the well has a test. An empty name shows
  // "井名称不能为空！".
  virtual bool HasOilTests(const char* well) = 0;
  // Replaces all the well's rows by its records. An empty WellID shows
  // "井名称不能为空！"; a missing table fails silently. On failure nothing is written.
  virtual bool SaveWellOilTests(const WellOilTest& tests) = 0;
  // SaveWellOilTests for many wells in one save; an empty list is false.
  virtual bool SaveOilTests(const std::vector<WellOilTest>& tests) = 0;
  // The deletes: true once the statement was sent (what it did is not looked
  // at), false when the table is missing. An empty well shows "井名称不能为空！";
  // an empty well list is false.
  virtual bool DeleteWellOilTests(const char* well) = 0;
  virtual bool DeleteWellsOilTests(const std::vector<std::string>& wells) = 0;
  // Deletes EVERY oil test of the file, of every project, as soon as any well
  // of the project has a test: the condition does not tie the deleted row to
  // the project. Nothing is deleted when none of the project's wells has a test.
  // An empty project shows "工区名称不能为空！".
  virtual bool DeleteProjectOilTests(const char* project) = 0;
};
