#include "dbaccess/DataObject.h"
#include "petrodb/production/IOilTestData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select * from w_oiltest_data where WellID='%s' order by TopDepth"> kWellRows;
constexpr Pattern<"select * from  w_oiltest_data where WellID='%s'"> kHasRows;
constexpr Pattern<
    "select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and exists( select "
    "w_oiltest_data.wellid from w_oiltest_data where w_well_data.wellid = w_oiltest_data.wellid )  order by "
    "w_well_data.wellid ">
    kTestedWells;
constexpr Pattern<"select WellID from  w_oiltest_data where WellID in (%s)"> kWellsWithRows;
constexpr Pattern<"delete from  w_oiltest_data where WellID='%s'"> kDeleteWell;
constexpr Pattern<"delete from  w_oiltest_data where WellID in (%s)"> kDeleteWells;
// The sub-query does not refer to the row being deleted: when any well of the
// project has a test, every row of the table goes, other projects' included.
constexpr Pattern<
    "delete from w_oiltest_data where exists( select * from w_oiltest_data, w_well_data where w_well_data.wellid = "
    "w_oiltest_data.wellid and  w_well_data.ProjectName = '%s' )">
    kDeleteProject;

constexpr const char* kTable = "w_oiltest_data";

// The columns after WellID, in the order of the row; the owner's name is
// written to WellID before them.
const ColumnTable<OilTestRecord> kColumns{kTable, {
    Col("XH", &OilTestRecord::XH),
    Col("CW", &OilTestRecord::CW),
    Col("JSXH", &OilTestRecord::JSXH),
    Col("TopDepth", &OilTestRecord::TopDepth),
    Col("BottomDepth", &OilTestRecord::BottomDepth),
    Col("LayerNum", &OilTestRecord::LayerNum),
    Col("Thickness", &OilTestRecord::Thickness),
    Col("Builder", &OilTestRecord::Builder),
    Col("Purpose", &OilTestRecord::Purpose),
    Col("BeginDate", &OilTestRecord::BeginDate),
    Col("FinishDate", &OilTestRecord::FinishDate),
    Col("CSLB", &OilTestRecord::CSLB),
    Col("Approach", &OilTestRecord::Approach),
    Col("Method", &OilTestRecord::Method),
    Col("YYBHFW", &OilTestRecord::YYBHFW),
    Col("TYBHFW", &OilTestRecord::TYBHFW),
    Col("JY", &OilTestRecord::JY),
    Col("LY", &OilTestRecord::LY),
    Col("JW", &OilTestRecord::JW),
    Col("LW", &OilTestRecord::LW),
    Col("UnitOilProduct", &OilTestRecord::UnitOilProduct),
    Col("UnitGasProduct", &OilTestRecord::UnitGasProduct),
    Col("UnitWaterProduct", &OilTestRecord::UnitWaterProduct),
    Col("TotalOilProduct", &OilTestRecord::TotalOilProduct),
    Col("TotalGasProduct", &OilTestRecord::TotalGasProduct),
    Col("TotalWaterProduct", &OilTestRecord::TotalWaterProduct),
    Col("MQRGJD", &OilTestRecord::MQRGJD),
    Col("ProductTime", &OilTestRecord::ProductTime),
    Col("ProductDepth", &OilTestRecord::ProductDepth),
    Col("Conclusion", &OilTestRecord::Conclusion),
}};

constexpr Message kEmptyWell = AppMessage("井名称不能为空！");
constexpr Message kEmptyProject = AppMessage("工区名称不能为空！");

const ReplaceSteps kSave{kTable};

void AddWellRows(CDbManage& db, const WellOilTest& well) {
  for (const auto& r : well.records) kColumns.AddKeyedRow(db, "WellID", well.WellID, r);
}

}  // namespace

class COilTestData final : public CDataObject<IOilTestData> {
 public:
  bool ListOilTestWells(const char* project, std::vector<std::string>& wells) override {
    return ListColumn(kTestedWells(project), "WellID", wells, Fill::Clear).found();
  }

  bool LoadWellOilTests(const char* well, WellOilTest& tests) override {
    tests.WellID = well;
    return LoadAll(kWellRows(well), kColumns, tests.records, Fill::Clear).ran();
  }

  bool ListWellsWithOilTests(const std::vector<WellOilTest>& wells, std::vector<std::string>& names) override {
    if (!TableAnswers(kTable)) return false;
    std::vector<std::string> ids;
    for (const auto& w : wells) ids.push_back(w.WellID);
    return ListColumn(kWellsWithRows(sql::QuoteEach(ids)), "WellID", names, Fill::Append).found();
  }

  bool HasOilTests(const char* well) override {
    return KeyGiven(well, kEmptyWell) && ExistsInTable(kTable, kHasRows(well));
  }

  bool SaveWellOilTests(const WellOilTest& tests) override {
    if (!KeyGiven(tests.WellID, kEmptyWell)) return false;
    const Statement remove = kDeleteWell(tests.WellID);
    return ReplaceAfter(kSave, DeletesThatMustRun({&remove, 1}), [&](CDbManage& db) { AddWellRows(db, tests); });
  }

  bool SaveOilTests(const std::vector<WellOilTest>& tests) override {
    if (tests.empty()) return false;
    std::vector<Statement> deletes;
    for (const auto& well : tests) deletes.push_back(kDeleteWell(well.WellID));
    return ReplaceAfter(kSave, DeletesThatMustRun(deletes), [&](CDbManage& db) {
      for (const auto& well : tests) AddWellRows(db, well);
    });
  }

  bool DeleteWellOilTests(const char* well) override {
    return KeyGiven(well, kEmptyWell) && ExecuteIfTable(kTable, kDeleteWell(well));
  }

  bool DeleteWellsOilTests(const std::vector<std::string>& wells) override {
    return !wells.empty() && ExecuteIfTable(kTable, kDeleteWells(sql::QuoteEach(wells)));
  }

  bool DeleteProjectOilTests(const char* project) override {
    return KeyGiven(project, kEmptyProject) && ExecuteIfTable(kTable, kDeleteProject(project));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(COilTestData, IOilTestData)
