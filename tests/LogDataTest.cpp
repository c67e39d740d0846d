// Log curves: sample arrays, depth-curve links, the orphan cleanup, batching.
#include <algorithm>
#include <cstring>
#include <limits>
#include <tuple>

#include "TestSupport.h"
#include "petrodb/welllog/ILogData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class LogDataTest : public ObjectTest<ILogData, "ILogData"> {
 protected:
  // DEPT indexes every other curve.
  static WellLog Sample(const std::string& well, const Texts& curves) {
    WellLog log;
    log.WellID = well;
    log.NullValue = -999.25;
    log.Curves.push_back({"DEPT", "m", nullptr, {1000.0, 1000.5, 1001.0}});
    for (const auto& name : curves) log.Curves.push_back({name, "api", nullptr, {1.0, 2.0, 3.0}});
    Texts depth(log.Curves.size(), "DEPT");
    log.Link(depth);
    return log;
  }
  static bool SameBits(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
  }
  static void ExpectLinkedInto(const WellLog& log) {
    for (const auto& c : log.Curves) {
      ASSERT_NE(c.DepthCurve, nullptr) << c.CurveName;
      EXPECT_GE(c.DepthCurve, log.Curves.data());
      EXPECT_LT(c.DepthCurve, log.Curves.data() + log.Curves.size());
    }
  }
};

TEST_F(LogDataTest, SamplesComeBackBitForBit) {
  WellLog log = Sample("W1", {"GR"});
  log.Curves[1].Values = {-0.0, std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::quiet_NaN(),
                          std::numeric_limits<double>::infinity(), 0.1 + 0.2, -1e308};
  log.Curves[0].Values = {1, 2, 3, 4, 5, 6};
  ASSERT_TRUE(object_->SaveWellLog(log));
  WellLog back;
  ASSERT_TRUE(object_->LoadCurve("W1", "GR", back));
  ASSERT_EQ(back.Curves.size(), 2u);
  EXPECT_EQ(back.Curves[0].CurveName, "DEPT");
  EXPECT_TRUE(SameBits(back.Curves[1].Values, log.Curves[1].Values));
  EXPECT_EQ(std::tie(back.Curves[1].Measure, back.NullValue), std::make_tuple("api", -999.25));
  EXPECT_EQ(back.Curves[1].DepthCurve, &back.Curves[0]);
  EXPECT_TRUE(messages_.texts().empty());
}

TEST_F(LogDataTest, SaveStatementsAndRefusals) {
  ASSERT_TRUE(object_->SaveWellLog(Sample("W1", {"GR", "SP"})));
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            Texts{"delete from  w_log_data where CurveName in ( 'DEPT','GR','SP' ) AND WellID='W1'"});
  EXPECT_EQ(Query("select DepthCurveName from w_log_data where WellID='W1' order by CurveName"),
            (Texts{"DEPT", "DEPT", "DEPT"}));

  WellLog empty;
  empty.WellID = "W2";
  EXPECT_FALSE(object_->SaveWellLog(empty));
  EXPECT_FALSE(object_->SaveWellLog(Sample("", {"GR"})));

  // A curve without samples stores NULL and loads as an empty array; a
  // mismatched count is neither refused nor reported on save.
  WellLog sparse = Sample("W3", {"GR"});
  sparse.Curves[1].Values.clear();
  ASSERT_TRUE(object_->SaveWellLog(sparse));
  EXPECT_EQ(Query("select CurveValue from w_log_data where WellID='W3' and CurveName='GR'"), Texts{"NULL"});
  WellLog back;
  ASSERT_TRUE(object_->LoadWellLog("W3", back));
  ASSERT_NE(back.Find("GR"), nullptr);
  EXPECT_TRUE(back.Find("GR")->Values.empty());

  // LoadCurve reports the mismatch and still fills the record.
  ASSERT_TRUE(object_->LoadCurve("W3", "GR", back));
  EXPECT_EQ(back.Curves.size(), 2u);
  EXPECT_EQ(messages_.texts(), (Texts{"井名称不能为空！", "测井曲线GR的曲线数据个数与深度数据个数不同，请检查或重新加载。"}));
}

TEST_F(LogDataTest, CopiesAndAssignmentsRelinkIntoTheirOwnList) {
  ASSERT_TRUE(object_->SaveWellLog(Sample("W1", {"GR", "SP", "RT"})));
  WellLog loaded;
  ASSERT_TRUE(object_->LoadWellLog("W1", loaded));
  ASSERT_EQ(loaded.Curves.size(), 4u);

  WellLog copy(loaded);
  EXPECT_EQ(copy.Find("GR")->DepthCurve, copy.Find("DEPT"));
  WellLog assigned = Sample("X", {"A"});
  assigned = loaded;
  ExpectLinkedInto(assigned);
  EXPECT_EQ(assigned.Find("RT")->DepthCurve->CurveName, "DEPT");
  // Destroying the source leaves the copies intact; a growing vector of logs
  // moves them without breaking the links.
  loaded = WellLog();
  std::vector<WellLog> many;
  for (int i = 0; i < 40; ++i) many.push_back(copy);
  for (const auto& log : many) ExpectLinkedInto(log);
  EXPECT_EQ(many.back().Find("SP")->DepthCurve->Values, (std::vector<double>{1000.0, 1000.5, 1001.0}));
}

TEST_F(LogDataTest, LoadsReturnDepthCurvesWithTheirCurvesAndStopAtAnUnreadableRow) {
  ASSERT_TRUE(object_->SaveWellLog(Sample("W1", {"GR", "SP"})));
  ASSERT_TRUE(object_->SaveWellLog(Sample("W2", {"GR"})));

  WellLog two;
  sql_.clear();
  ASSERT_TRUE(object_->LoadCurves("W1", {"SP"}, two));
  EXPECT_EQ(sql_.texts(), (Texts{"select * from w_log_data where WellID='W1' and CurveName in ( 'SP' )",
                                 "select * from w_log_data where WellID='W1' and CurveName in ( 'DEPT' )"}));
  ASSERT_EQ(two.Curves.size(), 2u);
  EXPECT_EQ(two.Find("SP")->DepthCurve, two.Find("DEPT"));

  std::vector<WellLog> wells;
  sql_.clear();
  ASSERT_TRUE(object_->LoadCurveOfWells({"W1", "W2"}, "GR", wells));
  EXPECT_EQ(sql_.texts().at(1),
            "select * from w_log_data where (WellID='W1' and CurveName='DEPT') or (WellID='W2' and "
            "CurveName='DEPT')");
  ASSERT_EQ(wells.size(), 2u);
  for (const auto& log : wells) {
    ASSERT_EQ(log.Curves.size(), 2u);
    EXPECT_EQ(log.Curves[1].DepthCurve, &log.Curves[0]);
  }

  std::vector<WellLog> all;
  ASSERT_TRUE(object_->LoadCurveOfAllWells("SP", all));
  ASSERT_EQ(all.size(), 1u);
  ExpectLinkedInto(all[0]);  // SP came with its depth curve

  // An unreadable measure ends the rows; the curves read before it are linked.
  Exec("update w_log_data set Measure = NULL where WellID = 'W1' and CurveName = 'GR'");
  WellLog partial;
  EXPECT_FALSE(object_->LoadWellLog("W1", partial));
  EXPECT_EQ(partial.Find("GR"), nullptr);
  ASSERT_NE(partial.Find("DEPT"), nullptr);
  ExpectLinkedInto(partial);
}

TEST_F(LogDataTest, DepthCurveGoesWithItsLastUser) {
  ASSERT_TRUE(object_->SaveWellLog(Sample("W1", {"GR", "SP"})));
  sql_.clear();
  ASSERT_TRUE(object_->DeleteCurve("W1", "GR"));
  EXPECT_EQ(sql_.texts(),
            (Texts{
                "w_log_data", "select DepthCurveName from w_log_data where WellID='W1' and CurveName='GR'",
                "delete from  w_log_data where WellID='W1' and CurveName='GR'",
                "select CurveName from w_log_data where WellID='W1' and DepthCurveName='DEPT' and CurveName<>'DEPT'",
                "w_log_data",
                "delete from w_log_data where wellid = 'W1' and depthcurvename not in( select distinct "
                "depthcurvename from w_log_data b where depthcurvename <> curvename and wellid = 'W1' )"}));
  EXPECT_EQ(Query("select CurveName from w_log_data order by CurveName"), (Texts{"DEPT", "SP"}));
  ASSERT_TRUE(object_->DeleteCurve("W1", "SP"));
  EXPECT_TRUE(Query("select CurveName from w_log_data").empty());

  // An orphan left behind by a plain delete is purged by the next whole-well load.
  ASSERT_TRUE(object_->SaveWellLog(Sample("W2", {"GR"})));
  ASSERT_TRUE(object_->DeleteCurves("W2", {"GR"}));
  EXPECT_EQ(Query("select CurveName from w_log_data"), Texts{"DEPT"});
  WellLog log;
  EXPECT_FALSE(object_->LoadWellLog("W2", log));
  EXPECT_TRUE(Query("select CurveName from w_log_data").empty());
}

TEST_F(LogDataTest, CheckCurvesExistSendsBatchesOfTwenty) {
  ASSERT_TRUE(object_->SaveWellLog(Sample("W1", {"C7", "C30"})));
  Texts names;
  for (int i = 0; i < 45; ++i) names.push_back("C" + std::to_string(i));
  names[44] = "C7";  // a duplicate in the last batch
  std::vector<int> flags{9};
  sql_.clear();
  ASSERT_TRUE(object_->CheckCurvesExist("W1", names, flags));
  const auto sent = sql_.texts();
  ASSERT_EQ(sent.size(), 3u);
  const auto count = [](const std::string& s) { return std::count(s.begin(), s.end(), ',') + 1; };
  EXPECT_EQ(std::make_tuple(count(sent[0]), count(sent[1])), std::make_tuple(20, 20));
  EXPECT_EQ(sent[2],
            "select CurveName from w_log_data where WellID='W1' and CurveName in('C40','C41','C42','C43','C7')");
  ASSERT_EQ(flags.size(), 45u);
  for (int i = 0; i < 45; ++i) EXPECT_EQ(flags[i], i == 7 || i == 30 ? 1 : 0) << i;
}

TEST_F(LogDataTest, SaveWellLogsReplacesWholeWellsWhenTheSessionCloses) {
  ASSERT_TRUE(object_->SaveWellLog(Sample("W1", {"OLD"})));
  sql_.clear();
  ASSERT_TRUE(object_->SaveWellLogs(0, {Sample("W1", {"GR"}), Sample("W2", {"SP"})}));
  EXPECT_TRUE(sql_.texts("SaveData").size() <= 1u);
  EXPECT_EQ(sql_.texts("ExecuteSQL"), Texts{"delete from  w_log_data where WellID in ('W1','W2')"});
  EXPECT_EQ(Query("select WellID || '/' || CurveName from w_log_data order by WellID, CurveName"),
            (Texts{"W1/DEPT", "W1/GR", "W2/DEPT", "W2/SP"}));
  EXPECT_FALSE(object_->SaveWellLogs(0, {}));
}

TEST_F(LogDataTest, NameListsAppendToWhatTheCallerHolds) {
  ASSERT_TRUE(object_->SaveWellLog(Sample("W1", {"GR"})));
  ASSERT_TRUE(object_->SaveWellLog(Sample("W2", {"SP"})));
  Exec("insert into w_well_data (ProjectName, WellID) values ('P', 'W1')");
  Texts ids{"kept"}, depths{"kept"}, names{"dropped"};
  ASSERT_TRUE(object_->GetLoggedWellIDs("P", ids));
  EXPECT_EQ(ids, (Texts{"kept", "W1"}));
  ASSERT_TRUE(object_->GetDepthCurveNames("W1", depths));
  EXPECT_EQ(depths, (Texts{"kept", "DEPT"}));
  std::vector<WellLog> logs(1);
  ASSERT_TRUE(object_->LoadProjectLogs("P", logs));
  EXPECT_EQ(logs.size(), 2u);
  // The one list the caller's entries do not survive; each name comes once.
  ASSERT_TRUE(object_->GetAllCurveNames(names));
  EXPECT_EQ(names, (Texts{"GR", "SP"}));
}

}  // namespace
}  // namespace petrodb::test
