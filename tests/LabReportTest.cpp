// The laboratory report pairs, one suite run over the four kinds (fluid sample
// analysis, pressure test sampling, layer production test, cement bond
// evaluation): headers numbered by the database and found by natural key, rows
// joined to their header's well, deletes in their order; then what one kind adds.
#include <algorithm>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "petrodb/production/ICementationQuaEval.h"
#include "petrodb/production/IMarkerTest.h"
#include "petrodb/production/IMarkerTestData.h"
#include "petrodb/production/IQuaEvalData.h"
#include "petrodb/production/ISampleAnalysis.h"
#include "petrodb/production/ISampleAnalysisData.h"
#include "petrodb/production/IStressTestSampling.h"
#include "petrodb/production/IStressTestSamplingData.h"

namespace petrodb::test {
namespace {

std::string N(int id) { return std::to_string(id); }

// A statement from its " from " on: the select lists restate the row columns.
std::string From(const std::string& text) { return text.substr(text.find(" from ")); }

// Statements up to their condition or column list: "delete from T", "insert into T".
std::vector<std::string> Short(std::vector<std::string> texts) {
  for (auto& t : texts) t = t.substr(0, std::min(t.find(" where"), t.find(" (")));
  return texts;
}

// The names every kind forms the same way from its record, list and row stems:
// ISampleAnalysis with SaveSampleAnalysis, SaveSampleAnalyses, ..., and
// ISampleAnalysisData with SaveSampleAnalysisRows, ...
#define LAB_KIND(One, Many, RowStem, ID, Table, DataTable)            \
  using HI = I##One;                                                  \
  using H = One##Record;                                              \
  using DI = I##RowStem##Data;                                        \
  using Row = RowStem##Row;                                           \
  static constexpr const char* kHeaderInterface = "I" #One;           \
  static constexpr const char* kDataInterface = "I" #RowStem "Data";  \
  static constexpr const char* kTable = Table;                        \
  static constexpr const char* kDataTable = DataTable;                \
  static constexpr const char* kID = #ID;                             \
  static constexpr auto id = &H::ID;                                  \
  static constexpr auto save = &HI::Save##One;                        \
  static constexpr auto saveList = &HI::Save##Many;                   \
  static constexpr auto loadWell = &HI::LoadWell##Many;               \
  static constexpr auto loadAll = &HI::LoadAll##Many;                 \
  static constexpr auto listWells = &HI::List##One##Wells;            \
  static constexpr auto wellOf = &HI::Get##One##Well;                 \
  static constexpr auto remove = &HI::Delete##One;                    \
  static constexpr auto removeByID = &HI::Delete##One##ByID;          \
  static constexpr auto removeWell = &HI::DeleteWell##Many;           \
  static constexpr auto removeAll = &HI::DeleteAll##Many;             \
  static constexpr auto saveRows = &DI::Save##RowStem##Rows;          \
  static constexpr auto deleteRows = &DI::Delete##RowStem##Rows;      \
  static constexpr auto deleteProjectRows = &DI::DeleteProject##RowStem##Rows

// What a kind has unless it says otherwise: an update that cannot run, no messages, and
// statements checked in short form only (the regular texts are checked on the sample
// analysis kind, the odd ones where a kind has them). kKey is the condition of the
// header ("W1", "K1"), kIdKey the one its identifier is looked up by when it differs;
// kUpdate the statement that saves it again with the value "b". In the row statements
// '#' stands for the report's identifier; kRowExists and kDeleteRow are row 3's.
struct Defaults {
  static constexpr bool kUpdateRuns = false;
  static constexpr const char *kTableMissing = nullptr, *kEmptyList = nullptr, *kDataTableMissing = nullptr;
  static constexpr const char *kKey = nullptr, *kIdKey = nullptr;
  static constexpr const char *kLoadRows = nullptr, *kRowExists = nullptr, *kDeleteRow = nullptr;
};

struct SampleCase : Defaults {
  LAB_KIND(SampleAnalysis, SampleAnalyses, SampleAnalysis, AnalysisID, "W_SAMPLE_ANALYSIS", "W_SAMPLE_ANALYSIS_DATA");
  static constexpr bool kUpdateRuns = true;  // the only update without a comma before "where"
  static constexpr const char* kKey = "WellID = 'W1' and SampleNumber = 'K1' and TableDate = '2023-4-5' ";
  static constexpr const char* kUpdate =
      "update W_SAMPLE_ANALYSIS set ToolType = 'b',TableCreator = '张工',Description = '描述b'where WellID = 'W1' and "
      "SampleNumber = 'K1' and TableDate = '2023-4-5'";
  static constexpr const char *kTableMissing = "样品分析表为空！", *kEmptyList = "样品分析为空！";
  static constexpr const char* kDataTableMissing = "样品分析表为空！";
  static constexpr const char* kLoadRows =
      " from W_SAMPLE_ANALYSIS_DATA  a LEFT JOIN W_SAMPLE_ANALYSIS  b ON a.AnalysisID = b.AnalysisID where "
      "a.AnalysisID = # and a.SampleNumber = 'S1'";
  static constexpr const char* kRowExists =
      "select * from W_SAMPLE_ANALYSIS_DATA where AnalysisID = # and SampleNumber = 'S1' and SampleDepth = '1503.250000' ";
  static constexpr const char* kDeleteRow =
      "delete from W_SAMPLE_ANALYSIS_DATA where AnalysisID = # and SampleNumber = 'S1' and SampleDepth = '1503.250000'";

  static H Make(const std::string& well, const std::string& key, const std::string& value) {
    return {well, key, "2023-4-5", 0, value, "张工", "描述" + value, ""};
  }
  static bool Load(HI& o, const H& k, H& out) {
    return o.LoadSampleAnalysis(k.WellID.c_str(), k.SampleNumber.c_str(), k.TableDate.c_str(), out);
  }
  static Row MakeRow(int id, int n) {
    Row r;
    r.AnalysisID = id, r.SampleNumber = "S1", r.SampleDepth = 1500.25 + n, r.PumpPressure = n * 0.5;
    r.MixLiquidName = "泥浆滤液" + N(n), r.iC4 = 0.125, r.MarkResistivityTemp = 61.5;
    return r;
  }
  static bool LoadRows(DI& d, int id, std::vector<Row>& rows) { return d.LoadSampleAnalysisRows(id, "S1", rows); }
  static bool RowExists(DI& d, const Row& r) {
    return d.SampleAnalysisRowExists(r.AnalysisID, r.SampleNumber.c_str(), r.SampleDepth);
  }
  static bool DeleteRow(DI& d, const Row& r) {
    return d.DeleteSampleAnalysisRow(r.AnalysisID, r.SampleNumber.c_str(), r.SampleDepth);
  }
};

struct StressCase : Defaults {
  LAB_KIND(StressTestSampling, StressTestSamplings, StressTestSampling, SamplingID, "W_STRESS_TESTING_SAMPLING",
           "W_STRESS_TESTING_SAMPLING_DATA");
  static constexpr const char* kUpdate =
      "update W_STRESS_TESTING_SAMPLING set DescentTimes = '2',TotalCount = '31', TestCount = '28', SealseatCount = "
      "'3',EffectiveCount = 'b',PumpIsolate = '是',SamplingCount = '4',Description = '描述b',TableCreator = '李工',"
      "where WellID = 'W1'and TestTime = 'K1'and TableDate = '2022-11-30'";
  static H Make(const std::string& well, const std::string& key, const std::string& value) {
    return {well, key, "2022-11-30", 0, "2", "31", "28", "3", value, "是", "4", "描述" + value, "李工", ""};
  }
  static bool Load(HI& o, const H& k, H& out) {
    return o.LoadStressTestSampling(k.WellID.c_str(), k.TestTime.c_str(), k.TableDate.c_str(), out);
  }
  static Row MakeRow(int id, int n) {
    return {id, "N" + N(n), 2100.5 + n, 2050.0 + n, 25.5, 24.75, 23.5, 25.25, "好", 1.05, 88.5, "正常", "中", "点" + N(n), ""};
  }
  static bool LoadRows(DI& d, int id, std::vector<Row>& rows) { return d.LoadReportStressTestSamplingRows(id, rows); }
  static bool RowExists(DI& d, const Row& r) { return d.StressTestSamplingRowExists(r.SamplingID, r.SequenceNum.c_str(), r.MD); }
  static bool DeleteRow(DI& d, const Row& r) { return d.DeleteStressTestSamplingRow(r.SamplingID, r.SequenceNum.c_str(), r.MD); }
};

struct MarkerCase : Defaults {
  LAB_KIND(MarkerTest, MarkerTests, MarkerTest, TestID, "W_MARKER_TESTING", "W_MARKER_TESTING_DATA");
  static constexpr const char* kUpdate =
      "update W_MARKER_TESTING set BeginWellSection = 'S3',EndWellSection = 'S4',Begintime = '8:00',Endtime = '20:00',"
      "CumOilProduction = 'b',CumGasProduction = '0',CumWaterProduction = '1.5',PressureGaugeDepth = '1800',"
      "HydraulicLength = '35',Description = '描述b',TableCreator = '王工',Assessor = '赵工',where WellID = 'W1' and "
      "TestNumber = 'K1' and TableDate = '2021-6-1'";
  // The exists statement lacks a blank before its second "and".
  static constexpr const char* kRowExists =
      "select * from W_MARKER_TESTING_DATA where TestID = # and TestingProgram = '一开'and Cherries = '3'";
  static H Make(const std::string& well, const std::string& key, const std::string& value) {
    return {well, key, "2021-6-1", 0, "S3", "S4", "8:00", "20:00", value, "0", "1.5", "1800", "35", "描述" + value,
            "王工", "赵工", ""};
  }
  static bool Load(HI& o, const H& k, H& out) {
    return o.LoadMarkerTest(k.WellID.c_str(), k.TestNumber.c_str(), k.TableDate.c_str(), out);
  }
  static Row MakeRow(int id, int n) {
    return {id, "一开", "T" + N(n), 8.5, N(n), 18.25 + n, 2.5, 71.5, 20.5, 12.5 * n, 0, 3.25, ""};
  }
  static bool LoadRows(DI& d, int id, std::vector<Row>& rows) { return d.LoadReportMarkerTestRows(id, rows); }
  static bool RowExists(DI& d, const Row& r) { return d.MarkerTestRowExists(r.TestID, r.TestingProgram.c_str(), r.Cherries.c_str()); }
  static bool DeleteRow(DI& d, const Row& r) { return d.DeleteMarkerTestRow(r.TestID, r.TestingProgram.c_str(), r.Cherries.c_str()); }
};

struct CementCase : Defaults {
  LAB_KIND(CementationQuaEval, CementationQuaEvals, QuaEval, EvaluationID, "W_CEMENT_QUALITY_EVALUATION",
           "W_QUALITY_EVALUATION_DATA");
  static constexpr const char* kDataTableMissing = "测压取样数据表为空！";
  static constexpr const char* kKey = "WellID = 'W1' and TableDate = '2020-2-29' and TestWellSection = 'K1' ";
  // The identifier is looked up under a second spelling of the section column.
  static constexpr const char* kIdKey = "WellID = 'W1' and TableDate = '2020-2-29'and Testwellsection = 'K1' ";
  static constexpr const char* kUpdate =
      "update W_CEMENT_QUALITY_EVALUATION set CasingSize = '139.7',TechRemark = 'b', PresEvaluation = '合格',TeeDepth "
      "= '1234.500000',BarDepth = '2345.250000',CementDepth = '1100',TransSect = '否',ShortCase1 = '1',ShortCase2 = "
      "'2',MarkDepth = '1500',Appraiser = '钱工',Assessor = '孙工',where WellID = 'W1' and TableDate = '2020-2-29' and "
      "TestWellSection = 'K1'";
  // Joined the other way round, with an upper-case WHERE.
  static constexpr const char* kLoadRows =
      " from W_QUALITY_EVALUATION_DATA  a LEFT JOIN W_CEMENT_QUALITY_EVALUATION  b ON b.EvaluationID = a.EvaluationID "
      "WHERE a.EvaluationID = #";

  // The natural key is well, table date, section: `key` is the section.
  static H Make(const std::string& well, const std::string& key, const std::string& value) {
    return {well, "2020-2-29", key, 0, "139.7", value, "合格", 1234.5, 2345.25, "1100", "否", "1", "2", "1500",
            "钱工", "孙工", ""};
  }
  static bool Load(HI& o, const H& k, H& out) {
    return o.LoadCementationQuaEval(k.WellID.c_str(), k.TableDate.c_str(), k.TestWellSection.c_str(), out);
  }
  static Row MakeRow(int id, int n) {
    return {id, 1800.0 + n, 1801.0 + n, 1, 12.5, 3.5, 30.25, 0.75, 14.5, "弱", "优", "段" + N(n), ""};
  }
  static bool LoadRows(DI& d, int id, std::vector<Row>& rows) { return d.LoadQuaEvalRows(id, rows); }
  static bool RowExists(DI& d, const Row& r) { return d.QuaEvalRowExists(r.EvaluationID, r.TopDepth, r.BottomDepth); }
  static bool DeleteRow(DI& d, const Row& r) { return d.DeleteQuaEvalRow(r.EvaluationID, r.TopDepth, r.BottomDepth); }
};

template <class C>
class LabReportSuite : public ProjectTest {
 protected:
  using H = typename C::H;
  using Row = typename C::Row;
  void SetUp() override {
    ProjectTest::SetUp();
    headers_ = Make<typename C::HI>(C::kHeaderInterface);
    rows_ = Make<typename C::DI>(C::kDataInterface);
    ASSERT_TRUE(headers_ && rows_);
  }
  // Saves a new header under `project` with `count` rows; answers its identifier.
  int Report(const std::string& well, const std::string& key, int count = 0, const char* project = "P") {
    H h = C::Make(well, key, "v" + key);
    EXPECT_TRUE((headers_.get()->*C::save)(project, h));
    std::vector<Row> rows;
    for (int i = 0; i < count; ++i) rows.push_back(C::MakeRow(h.*C::id, i));
    EXPECT_TRUE(!count || (rows_.get()->*C::saveRows)(rows));
    return h.*C::id;
  }
  std::vector<std::string> Ids() {
    return Query(std::string("select ") + C::kID + " from " + C::kTable + " order by " + C::kID);
  }
  std::size_t RowCount(int id) {
    return Query(std::string("select * from ") + C::kDataTable + " where " + C::kID + " = " + N(id)).size();
  }
  static std::vector<std::string> Texts(const char* text) {
    return text ? std::vector<std::string>{text} : std::vector<std::string>{};
  }
  // A row statement with the identifier in place of its '#'.
  static std::string With(std::string text, int id) { return text.replace(text.find('#'), 1, N(id)); }
  std::unique_ptr<typename C::HI> headers_;
  std::unique_ptr<typename C::DI> rows_;
};

using Kinds = ::testing::Types<SampleCase, StressCase, MarkerCase, CementCase>;
TYPED_TEST_SUITE(LabReportSuite, Kinds);

TYPED_TEST(LabReportSuite, NewHeadersAreNumberedByTheDatabaseAndFoundByKeyWellAndNumber) {
  using C = TypeParam;
  auto& o = *this->headers_;
  typename C::H first = C::Make("W1", "K1", "a");
  ASSERT_TRUE((o.*C::save)("P", first));
  // The probe, the lookup of an existing identifier, the insert, the lookup of the new one.
  const std::string id = std::string("select ") + C::kID + " from " + C::kTable;
  const auto texts = this->sql_.texts();
  EXPECT_EQ(Short(texts), (std::vector<std::string>{C::kTable, id, std::string("insert into ") + C::kTable, id}));
  if (const char* key = C::kIdKey ? C::kIdKey : C::kKey) { EXPECT_EQ(texts.at(1), id + " where " + key); }
  const int second = this->Report("W1", "K2"), third = this->Report("W2", "K1");
  EXPECT_EQ(this->Ids(), (std::vector<std::string>{N(first.*C::id), N(second), N(third)}));

  typename C::H back;
  ASSERT_TRUE(C::Load(o, first, back));
  typename C::H expected = first;
  expected.ProjectName = "P";
  EXPECT_EQ(back, expected);

  std::vector<typename C::H> list(3);
  ASSERT_TRUE((o.*C::loadWell)("W1", list));
  EXPECT_EQ(list.size(), 2u);
  std::vector<std::string> wells{"stale"};
  ASSERT_TRUE((o.*C::listWells)(wells));
  EXPECT_EQ(wells, (std::vector<std::string>{"W1", "W2"}));
  std::string well;
  ASSERT_TRUE((o.*C::wellOf)(third, well));
  EXPECT_EQ(well, "W2");
}

TYPED_TEST(LabReportSuite, SavingAnExistingKeySendsTheUpdateAsWrittenAndKeepsNumberAndRows) {
  using C = TypeParam;
  const int id = this->Report("W1", "K1", 2);
  typename C::H changed = C::Make("W1", "K1", "b");
  this->sql_.clear();
  // Three of the four updates end their list with a comma before "where": no engine runs them.
  EXPECT_EQ((this->headers_.get()->*C::save)("Q", changed), C::kUpdateRuns);
  EXPECT_EQ(this->sql_.texts("ExecuteSQL"), std::vector<std::string>{C::kUpdate});
  EXPECT_TRUE(this->sql_.texts("SaveData").empty());
  EXPECT_EQ(changed.*C::id, C::kUpdateRuns ? id : 0);
  EXPECT_EQ(this->RowCount(id), 2u);

  typename C::H back;
  ASSERT_TRUE(C::Load(*this->headers_, changed, back));
  typename C::H expected = C::kUpdateRuns ? changed : C::Make("W1", "K1", "vK1");
  expected.ProjectName = "P";  // an update leaves the project
  expected.*C::id = id;
  EXPECT_EQ(back, expected);
}

TYPED_TEST(LabReportSuite, SavesRefuseAnEmptyWellAQuotedKeyAndAMissingTable) {
  using C = TypeParam;
  auto& o = *this->headers_;
  typename C::H h = C::Make("", "K1", "a");
  EXPECT_FALSE((o.*C::save)("P", h));
  EXPECT_EQ(this->messages_.texts(), std::vector<std::string>{"井号不能为空！"});
  h = C::Make("W'1", "K1", "a");
  EXPECT_FALSE((o.*C::save)("P", h));
  EXPECT_TRUE(this->sql_.texts().empty());
  EXPECT_TRUE(this->Ids().empty());

  this->messages_.clear();
  std::vector<typename C::H> none;
  EXPECT_FALSE((o.*C::saveList)("P", none));
  EXPECT_EQ(this->messages_.texts(), this->Texts(C::kEmptyList));

  this->messages_.clear();
  this->Exec(std::string("drop table ") + C::kTable);
  h = C::Make("W1", "K1", "a");
  EXPECT_FALSE((o.*C::save)("P", h));
  EXPECT_EQ(this->messages_.texts(), this->Texts(C::kTableMissing));
  EXPECT_EQ(h.*C::id, 0);
}

TYPED_TEST(LabReportSuite, AListIsSavedWholeOrNotAtAll) {
  using C = TypeParam;
  auto& o = *this->headers_;
  std::vector<typename C::H> list{C::Make("W1", "K1", "a"), C::Make("W2", "K1", "b")};
  ASSERT_TRUE((o.*C::saveList)("P", list));
  EXPECT_EQ(this->Ids(), (std::vector<std::string>{N(list[0].*C::id), N(list[1].*C::id)}));

  std::vector<typename C::H> more{C::Make("W3", "K1", "c"), C::Make("W1", "K1", "d")};
  EXPECT_EQ((o.*C::saveList)("P", more), C::kUpdateRuns);
  EXPECT_EQ(this->Ids().size(), C::kUpdateRuns ? 3u : 2u);  // the new W3 goes when the update fails
  EXPECT_EQ(more[0].*C::id, C::kUpdateRuns ? std::stoi(this->Ids().back()) : 0);
  if (C::kUpdateRuns) {  // the list form writes blanks after the commas
    EXPECT_EQ(this->sql_.texts("ExecuteSQL").back(),
              "update W_SAMPLE_ANALYSIS set ToolType = 'd', TableCreator = '张工', Description = '描述d'where WellID = "
              "'W1' and SampleNumber = 'K1' and TableDate = '2023-4-5'");
  }
}

TYPED_TEST(LabReportSuite, RowsAreAppendedLoadedDeletedByKeyAndNotSavedIntoAMissingTable) {
  using C = TypeParam;
  auto& d = *this->rows_;
  const int id = this->Report("W1", "K1", 20);  // enough rows for the server's bulk path
  std::vector<typename C::Row> rows(1);
  this->sql_.clear();
  ASSERT_TRUE(C::LoadRows(d, id, rows));
  if (C::kLoadRows) { EXPECT_EQ(From(this->sql_.texts().at(0)), this->With(C::kLoadRows, id)); }
  ASSERT_EQ(rows.size(), 20u);
  auto expected = C::MakeRow(id, 7);
  expected.WellID = "W1";
  EXPECT_EQ(std::count(rows.begin(), rows.end(), expected), 1);

  ASSERT_TRUE((d.*C::saveRows)({C::MakeRow(id, 20)}));
  EXPECT_EQ(this->RowCount(id), 21u);  // appended, nothing deleted

  const auto third = C::MakeRow(id, 3);
  this->sql_.clear();
  EXPECT_TRUE(C::RowExists(d, third));
  ASSERT_TRUE(C::DeleteRow(d, third));
  EXPECT_FALSE(C::RowExists(d, third));
  if (C::kRowExists) { EXPECT_EQ(this->sql_.texts().at(0), this->With(C::kRowExists, id)); }
  if (C::kDeleteRow) { EXPECT_EQ(this->sql_.texts().at(1), this->With(C::kDeleteRow, id)); }
  EXPECT_EQ(this->RowCount(id), 20u);

  ASSERT_TRUE((d.*C::deleteRows)(id));
  EXPECT_EQ(this->RowCount(id), 0u);

  this->Exec(std::string("drop table ") + C::kDataTable);
  EXPECT_FALSE((d.*C::saveRows)({C::MakeRow(id, 1)}));
  EXPECT_EQ(this->messages_.texts(), this->Texts(C::kDataTableMissing));
}

TYPED_TEST(LabReportSuite, DeletingAReportDeletesItsRowsFirstEvenWhenTheHeaderDeleteFails) {
  using C = TypeParam;
  auto& o = *this->headers_;
  typename C::H first = C::Make("W1", "K1", "a");
  ASSERT_TRUE((o.*C::save)("P", first));
  ASSERT_TRUE((this->rows_.get()->*C::saveRows)({C::MakeRow(first.*C::id, 1)}));
  const int second = this->Report("W1", "K2", 2), third = this->Report("W2", "K3", 2);
  const std::string rowsOf = std::string("delete from ") + C::kDataTable + " where " + C::kID + " = ";

  const std::string header = std::string("delete from ") + C::kTable + " where ";
  this->sql_.clear();
  ASSERT_TRUE((o.*C::remove)(first));
  if (C::kKey) { EXPECT_EQ(this->sql_.texts().at(1), header + C::kKey); }
  EXPECT_EQ(Short(this->sql_.texts()), Short({rowsOf, header}));
  this->sql_.clear();
  ASSERT_TRUE((o.*C::removeByID)(second));
  EXPECT_EQ(this->sql_.texts(), (std::vector<std::string>{rowsOf + N(second), header + C::kID + " = " + N(second)}));
  EXPECT_EQ(this->Ids(), std::vector<std::string>{N(third)});
  EXPECT_EQ(this->RowCount(first.*C::id) + this->RowCount(second), 0u);

  this->Exec(std::string("drop table ") + C::kTable);
  EXPECT_FALSE((o.*C::removeByID)(third));
  EXPECT_EQ(this->RowCount(third), 0u);
}

TYPED_TEST(LabReportSuite, AWellsOrAllHeadersGoWithoutTheirRows) {
  using C = TypeParam;
  auto& o = *this->headers_;
  const int first = this->Report("W1", "K1", 2), second = this->Report("W2", "K1", 1);
  ASSERT_TRUE((o.*C::removeWell)("W1"));
  EXPECT_EQ(this->Ids(), std::vector<std::string>{N(second)});
  ASSERT_TRUE((o.*C::removeAll)());
  EXPECT_TRUE(this->Ids().empty());
  std::vector<typename C::Row> rows;
  ASSERT_TRUE(C::LoadRows(*this->rows_, first, rows));  // the rows stay, without a well
  EXPECT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].WellID, "");
}

TYPED_TEST(LabReportSuite, AProjectsRowsAreDeletedOneIdentifierAtATime) {
  using C = TypeParam;
  auto& d = *this->rows_;
  const int first = this->Report("W1", "K1", 2, "P"), second = this->Report("W2", "K1", 3, "P");
  const int other = this->Report("W3", "K1", 1, "Q");
  this->sql_.clear();
  ASSERT_TRUE((d.*C::deleteProjectRows)("P"));
  auto texts = this->sql_.texts();
  std::sort(texts.begin() + 1, texts.end());
  const std::string rowsOf = std::string("delete from ") + C::kDataTable + " where " + C::kID + " = ";
  EXPECT_EQ(texts, (std::vector<std::string>{std::string("select ") + C::kID + " from " + C::kTable +
                                                 " where ProjectName = 'P'",
                                             rowsOf + N(first) + " ", rowsOf + N(second) + " "}));
  EXPECT_EQ(this->RowCount(first) + this->RowCount(second), 0u);
  EXPECT_EQ(this->RowCount(other), 1u);
}

// What one kind adds: loads per depth, per programme and per project, moving rows.
class LabReportExtras : public ProjectTest {};

TEST_F(LabReportExtras, PressureRowsLoadByDepthAndProjectAndMoveToAnotherReport) {
  auto headers = Make<IStressTestSampling>("IStressTestSampling");
  auto data = Make<IStressTestSamplingData>("IStressTestSamplingData");
  auto a = StressCase::Make("W1", "T1", "x"), b = StressCase::Make("W2", "T2", "y");
  ASSERT_TRUE(headers->SaveStressTestSampling("P", a) && headers->SaveStressTestSampling("Q", b));
  ASSERT_TRUE(data->SaveStressTestSamplingRows({StressCase::MakeRow(a.SamplingID, 0), StressCase::MakeRow(a.SamplingID, 1)}));
  std::vector<StressTestSamplingRow> rows;
  ASSERT_TRUE(data->LoadStressTestSamplingRows(a.SamplingID, 2101.5, rows));
  EXPECT_EQ(rows.at(0).SequenceNum, "N1");
  EXPECT_FALSE(data->LoadProjectStressTestSamplingRows("Q", rows));

  ASSERT_TRUE(data->MoveStressTestSamplingRows(a.SamplingID, b.SamplingID));
  ASSERT_TRUE(data->LoadProjectStressTestSamplingRows("Q", rows));
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].WellID + rows[1].WellID, "W2W2");
}

TEST_F(LabReportExtras, MarkerRowsLoadByProgrammeAndCementRowsByProjectThroughAnInnerJoin) {
  auto testRows = Make<IMarkerTestData>("IMarkerTestData");
  auto t = MarkerCase::Make("W1", "1", "x");
  ASSERT_TRUE(Make<IMarkerTest>("IMarkerTest")->SaveMarkerTest("P", t));
  auto other = MarkerCase::MakeRow(t.TestID, 2);
  other.TestingProgram = "二开";
  ASSERT_TRUE(testRows->SaveMarkerTestRows({MarkerCase::MakeRow(t.TestID, 1), other}));
  std::vector<MarkerTestRow> rows;
  ASSERT_TRUE(testRows->LoadMarkerTestRows(t.TestID, "二开", rows));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].Cherries, "2");
  ASSERT_TRUE(testRows->LoadProjectMarkerTestRows("P", rows));
  EXPECT_EQ(rows.size(), 2u);

  auto e = CementCase::Make("W1", "一段", "x");
  ASSERT_TRUE(Make<ICementationQuaEval>("ICementationQuaEval")->SaveCementationQuaEval("P", e));
  auto evalRows = Make<IQuaEvalData>("IQuaEvalData");
  ASSERT_TRUE(evalRows->SaveQuaEvalRows({CementCase::MakeRow(e.EvaluationID, 1), CementCase::MakeRow(e.EvaluationID + 50, 2)}));
  std::vector<QuaEvalRow> evalBack;
  ASSERT_TRUE(evalRows->LoadProjectQuaEvalRows("P", evalBack));
  ASSERT_EQ(evalBack.size(), 1u);  // the row without a header is left out
  EXPECT_EQ(evalBack[0].WellID, "W1");
}

}  // namespace
}  // namespace petrodb::test
