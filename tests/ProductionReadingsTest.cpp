// The network's daily readings: a reading saved on one day replaces that day's
// reading and no other, a loaded record saved again as it is, the members
// selected through n_nodes by network and node type, the exact texts and the
// messages under the error caption.
#include <string>
#include <vector>

#include "TestSupport.h"
#include "petrodb/production/IStaTest.h"
#include "petrodb/production/IWellTest.h"

namespace petrodb::test {
namespace {

using Strings = std::vector<std::string>;

class WellTestTest : public ObjectTest<IWellTest, "IWellTest"> {
 protected:
  void SetUp() override {
    ObjectTest::SetUp();
    // Net1 holds wells J1, J2 (type 2) and a station node also named J3 (type 0); Net2 holds J3 as a well.
    for (const char* node : {"'Net1', 'J1', 2", "'Net1', 'J2', 2", "'Net1', 'J3', 0", "'Net2', 'J3', 2"})
      Exec(std::string("insert into n_nodes (PipenetName, NodeName, NodeType) values (") + node + ")");
  }
  // The day's literal in the project's dialect.
  std::string On(int day) const {
    return jet() ? "#2024-1-" + std::to_string(day) + "#" : "'2024-01-0" + std::to_string(day) + "'";
  }
  WellTestRecord Reading(const std::string& jh, int day, double rzsl) const {
    return {jh, On(day), 24, 100, rzsl, 9.5, 8.5, 2.5, 1};
  }
  Strings Stored() {
    return Query("select Jh || ' ' || Scrq || ' ' || cast(Rzsl as integer) from d_well_test order by Jh, Scrq");
  }
};

TEST_F(WellTestTest, AReadingReplacesItsDayOnly) {
  ASSERT_TRUE(object_->SaveWellTests({Reading("J1", 5, 10), Reading("J1", 6, 11), Reading("J2", 5, 12)}));
  sql_.clear();
  ASSERT_TRUE(object_->SaveWellTest(Reading("J1", 5, 20)));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), Strings{"delete from d_well_test where Jh = 'J1'and Scrq = " + On(5)});
  EXPECT_EQ(Stored(), (Strings{"J1 2024-01-05 00:00:00 20", "J1 2024-01-06 00:00:00 11",
                                                "J2 2024-01-05 00:00:00 12"}));
  WellTestRecord loaded;
  ASSERT_TRUE(object_->LoadWellTest("J1", On(5).c_str(), loaded));
  EXPECT_EQ(loaded.Scrq + " " + std::to_string(int(loaded.Rzsl)), "2024-01-05 00:00:00 20");
  EXPECT_TRUE(object_->WellTestExists("J1", On(6).c_str()));
  EXPECT_FALSE(object_->WellTestExists("J1", On(7).c_str()));

  // The loaded date is no literal: its delete cannot run, so saving the record
  // as it is adds a second row for the day instead of replacing its own.
  sql_.clear();
  ASSERT_TRUE(object_->SaveWellTest(loaded));
  EXPECT_EQ(sql_.events().at(1).text, "delete from d_well_test where Jh = 'J1'and Scrq = 2024-01-05 00:00:00");
  EXPECT_EQ(sql_.events().at(1).result, 0);
  EXPECT_EQ(Stored().size(), 4u);

  std::vector<WellTestRecord> rows{WellTestRecord{}};
  ASSERT_TRUE(object_->LoadWellTestsLikeBetween("J", On(6).c_str(), On(6).c_str(), rows));
  EXPECT_EQ(sql_.texts().back(),
            "select * from d_well_test where Jh like 'J%' and Scrq between " + On(6) + "and " + On(6) + " order by scrq");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].Rzsl, 11);
  // The list form replaces exactly the pairs it carries; the plain list appends.
  ASSERT_TRUE(object_->SaveWellTests({Reading("J1", 5, 30)}));
  EXPECT_EQ(Stored().size(), 3u);
  ASSERT_TRUE(object_->SaveWellTestList({Reading("J2", 5, 12)}));
  EXPECT_EQ(Stored().size(), 4u);
}

TEST_F(WellTestTest, NetworkReadsAndDeletesTouchOnlyItsInjectionWells) {
  ASSERT_TRUE(object_->SaveWellTestList({Reading("J1", 5, 1), Reading("J2", 5, 2), Reading("J3", 5, 3),
                                         Reading("J2", 6, 4)}));
  std::vector<WellTestRecord> rows;
  ASSERT_TRUE(object_->LoadPipenetWellTestsAt("Net1", On(5).c_str(), rows));
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1].Jh, "J2");
  ASSERT_TRUE(object_->LoadPipenetWellTests("Net1", rows));
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].Scrq, "2024-01-06 00:00:00");  // latest first
  Strings dates;
  ASSERT_TRUE(object_->ListPipenetTestDates("Net2", dates));
  EXPECT_EQ(dates, Strings{"2024-01-05 00:00:00"});
  Strings wells;
  ASSERT_TRUE(object_->ListWellsWithTests({"J3", "J9"}, wells));
  EXPECT_EQ(wells, Strings{"J3"});

  sql_.clear();
  ASSERT_TRUE(object_->DeletePipenetWellTests("Net1"));
  EXPECT_EQ(sql_.texts(), Strings{"delete from d_well_test where Jh in ( select NodeName from n_nodes "
                                                   "where PipenetName = 'Net1' and NodeType = 2 )"});
  EXPECT_EQ(Query("select Jh from d_well_test"), Strings{"J3"});
  ASSERT_TRUE(object_->DeleteWellTestsOfWells({"J3"}));
  EXPECT_FALSE(object_->LoadAllWellTests(rows));
  EXPECT_TRUE(rows.empty());
  EXPECT_FALSE(object_->ListWellsWithTests({}, wells));  // "in ()"
}

TEST_F(WellTestTest, EmptyKeysAndAMissingTableShowTheirMessages) {
  EXPECT_FALSE(object_->SaveWellTest(Reading("", 5, 1)));
  EXPECT_FALSE(object_->SaveWellTest(WellTestRecord{"J1", "", 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_FALSE(object_->DeletePipenetWellTests(""));
  Exec("drop table d_well_test");
  EXPECT_FALSE(object_->SaveWellTest(Reading("J1", 5, 1)));
  EXPECT_FALSE(object_->WellTestExists("J1", On(5).c_str()));
  EXPECT_EQ(messages_.texts(), (Strings{"注水井号不能为空！", "生产日期不能为空！", "管网名称不能为空！",
                                                         "注水井日生产数据表为空！"}));
  for (const auto& m : messages_.messages()) EXPECT_EQ(m.caption, "错误信息");
}

class StaTestTest : public ObjectTest<IStaTest, "IStaTest"> {};

TEST_F(StaTestTest, StationsAreTheNetworksNodesOfTypeZero) {
  Exec("insert into n_nodes (PipenetName, NodeName, NodeType) values ('Net1', 'S1', 0)");
  Exec("insert into n_nodes (PipenetName, NodeName, NodeType) values ('Net1', 'S2', 2)");
  const std::string day = jet() ? "#2024-2-1#" : "'2024-02-01'";
  ASSERT_TRUE(object_->SaveStaTests({{"S1", day, 1, 2, 3, 4, 5}, {"S2", day, 1, 2, 3, 4, 5}}));
  std::vector<StaTestRecord> rows;
  sql_.clear();
  ASSERT_TRUE(object_->LoadPipenetStaTestsAt("Net1", day.c_str(), rows));
  EXPECT_EQ(sql_.texts(), Strings{"select * from d_sta_test where Scrq = " + day +
                                                   " and StaName in ( select NodeName from n_nodes where PipenetName "
                                                   "= 'Net1' and NodeType = 0 ) order by StaName"});
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].Xnsl, 5);
  Strings stations;
  ASSERT_TRUE(object_->ListTestedStations(stations));
  EXPECT_EQ(stations.size(), 2u);
  ASSERT_TRUE(object_->DeletePipenetStaTests("Net1"));
  EXPECT_EQ(Query("select StaName from d_sta_test"), Strings{"S2"});
  EXPECT_FALSE(object_->SaveStaTest({"", day, 0, 0, 0, 0, 0}));
  EXPECT_EQ(messages_.texts(), Strings{"注水站名称不能为空！"});
}

}  // namespace
}  // namespace petrodb::test
