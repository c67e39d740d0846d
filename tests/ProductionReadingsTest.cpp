// The network's daily readings: a reading saved on one day replaces that day's
// reading and no other, a loaded record saved again as it is, the members
// selected through n_nodes by network and node type, and the messages. The
// other readings classes share these mechanisms; their tests keep what they add.
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
    // Net1 holds wells J1, J2 (type 2) and a station node named J3 (type 0); Net2 holds J3 as a well.
    Exec("insert into n_nodes (PipenetName, NodeName, NodeType) values ('Net1', 'J1', 2), ('Net1', 'J2', 2), "
         "('Net1', 'J3', 0), ('Net2', 'J3', 2)");
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
  EXPECT_EQ(Stored(), (Strings{"J1 2024-01-05 00:00:00 20", "J1 2024-01-06 00:00:00 11", "J2 2024-01-05 00:00:00 12"}));
  WellTestRecord loaded;
  ASSERT_TRUE(object_->LoadWellTest("J1", On(5).c_str(), loaded));

  // The loaded date is no literal: its delete cannot run, so saving the record
  // as it is adds a second row for the day instead of replacing its own.
  sql_.clear();
  ASSERT_TRUE(object_->SaveWellTest(loaded));
  EXPECT_EQ(sql_.events().at(1).text, "delete from d_well_test where Jh = 'J1'and Scrq = 2024-01-05 00:00:00");
  EXPECT_EQ(sql_.events().at(1).result, 0);
  EXPECT_EQ(Stored().size(), 4u);

  std::vector<WellTestRecord> rows;
  ASSERT_TRUE(object_->LoadWellTestsLikeBetween("J", On(6).c_str(), On(6).c_str(), rows));
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
  Strings found;
  ASSERT_TRUE(object_->ListWellsWithTests({"J3", "J9"}, found));
  EXPECT_EQ(found, Strings{"J3"});
  EXPECT_FALSE(object_->ListWellsWithTests({}, found));  // "in ()"

  ASSERT_TRUE(object_->DeletePipenetWellTests("Net1"));
  EXPECT_EQ(Query("select Jh from d_well_test"), Strings{"J3"});
}

TEST_F(WellTestTest, EmptyKeysAndAMissingTableShowTheirMessages) {
  EXPECT_FALSE(object_->SaveWellTest(Reading("", 5, 1)));
  EXPECT_FALSE(object_->SaveWellTest(WellTestRecord{"J1", "", 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_FALSE(object_->DeletePipenetWellTests(""));
  Exec("drop table d_well_test");
  EXPECT_FALSE(object_->SaveWellTest(Reading("J1", 5, 1)));
  EXPECT_EQ(messages_.texts(),
            (Strings{"注水井号不能为空！", "生产日期不能为空！", "管网名称不能为空！", "注水井日生产数据表为空！"}));
}

// Station readings: a network's stations are its nodes of type 0 (J3 in Net1).
TEST_F(WellTestTest, StationsAreTheNetworksNodesOfTypeZero) {
  auto stations = Make<IStaTest>("IStaTest");
  ASSERT_TRUE(stations->SaveStaTests({{"J3", On(1), 1, 2, 3, 4, 5}, {"J1", On(1), 1, 2, 3, 4, 5}}));
  std::vector<StaTestRecord> rows;
  ASSERT_TRUE(stations->LoadPipenetStaTestsAt("Net1", On(1).c_str(), rows));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].StaName + " " + std::to_string(int(rows[0].Xnsl)), "J3 5");
  ASSERT_TRUE(stations->DeletePipenetStaTests("Net1"));
  EXPECT_EQ(Query("select StaName from d_sta_test"), Strings{"J1"});
}

}  // namespace
}  // namespace petrodb::test
