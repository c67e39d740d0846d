// Well groups and their memberships.
#include "TestSupport.h"
#include "petrodb/project/IWellGroupData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

WellGroupRecord GroupRecord(const std::string& id, const std::string& name, int policy = -1) {
  return WellGroupRecord{id, name, policy, "id-" + id, "name-" + id};
}

class WellGroupTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    groups_ = Make<IWellGroupData>("IWellGroupData");
    ASSERT_TRUE(groups_);
  }
  std::unique_ptr<IWellGroupData> groups_;
};

TEST_F(WellGroupTest, SaveWritesTheRowAndOneMembershipPerWell) {
  sql_.clear();
  ASSERT_TRUE(groups_->SaveGroup("P1", GroupRecord("G1", "north", 0), {"W1", "W2"}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), (Texts{"delete from w_wellgroup where ProjectName = 'P1' and GroupID = 'G1'",
                                             "delete from w_groupwell where GroupID = 'G1'"}));
  EXPECT_EQ(Query("select WellID from w_groupwell order by WellID"), (Texts{"W1", "W2"}));
  // Saving again replaces row and members.
  ASSERT_TRUE(groups_->SaveGroups("P1", {GroupRecord("G1", "north2", 1), GroupRecord("G2", "south")}, {{"W3"}}));
  EXPECT_EQ(Query("select WellID from w_groupwell order by WellID"), Texts{"W3"});
  WellGroupRecord r;
  ASSERT_TRUE(groups_->LoadGroup("G1", r));
  EXPECT_EQ(r.GroupName, "north2");
  EXPECT_EQ(r.GroupPolicy, 1);
  EXPECT_EQ(r.WellIDPolicy, "id-G1");
  EXPECT_EQ(r.WellNamePolicy, "name-G1");
  EXPECT_FALSE(groups_->SaveGroup(std::string("P1"), GroupRecord("", "nameless")));
  EXPECT_TRUE(messages_.texts().empty());
}

TEST_F(WellGroupTest, ListsAndLookups) {
  ASSERT_TRUE(groups_->SaveGroups("P1", {GroupRecord("G2", "b"), GroupRecord("G1", ""), GroupRecord("G3", "c")}, {}));
  ASSERT_TRUE(groups_->SaveGroup("P2", GroupRecord("G9", "other"), {}));
  Texts ids, names;
  sql_.clear();
  ASSERT_TRUE(groups_->GetGroupIDs("P1", ids));
  ASSERT_TRUE(groups_->GetGroupNames("P1", names));
  EXPECT_EQ(sql_.texts(), (Texts{"select GroupID from w_wellgroup where ProjectName = 'P1' order by GroupID",
                                 "select * from w_wellgroup where ProjectName = 'P1' order by GroupID"}));
  EXPECT_EQ(ids, (Texts{"G1", "G2", "G3"}));
  EXPECT_EQ(names, (Texts{"G1", "b", "c"}));  // an empty name gives the ID
  EXPECT_EQ(groups_->GetGroupCount("P1"), 3);
  EXPECT_TRUE(groups_->HasGroups("P2"));
  EXPECT_FALSE(groups_->HasGroups("P3"));
  EXPECT_TRUE(groups_->IsGroupIDExist("P1", "G2"));
  EXPECT_FALSE(groups_->IsGroupIDExist("P2", "G2"));
  EXPECT_TRUE(groups_->IsGroupNameExist(std::string("P2"), std::string("OTHER")));

  std::vector<WellGroupRecord> records;
  ASSERT_TRUE(groups_->LoadGroupsByIDs({"G1", "G9"}, records));  // any project
  EXPECT_EQ(records.size(), 2u);
  records.clear();
  ASSERT_TRUE(groups_->LoadProjectGroups("P1", records));
  EXPECT_EQ(records.size(), 3u);
}

TEST_F(WellGroupTest, NamesFallBackToIDs) {
  ASSERT_TRUE(groups_->SaveGroups("P1", {GroupRecord("G1", "north"), GroupRecord("G2", "south")}, {}));
  std::vector<WellGroupRecord> records;
  sql_.clear();
  ASSERT_TRUE(groups_->LoadGroupsByNames({"G1", "G2"}, records));
  EXPECT_EQ(sql_.texts(), (Texts{"select * from w_wellgroup where GroupName in ('G1', 'G2')",
                                 "select * from w_wellgroup where GroupID in ('G1', 'G2')"}));
  EXPECT_EQ(records.size(), 2u);
  EXPECT_FALSE(groups_->LoadGroupsByNames({"nothing"}, records));
  EXPECT_TRUE(groups_->LoadGroupsByNames({}, records));

  WellGroupRecord r;
  sql_.clear();
  ASSERT_TRUE(groups_->LoadGroupByName("G2", r));
  EXPECT_EQ(r.GroupName, "south");
  EXPECT_EQ(sql_.texts(), (Texts{"select * from w_wellgroup where GroupName = 'G2'",
                                 "select * from w_wellgroup where GroupID = 'G2'"}));
  EXPECT_FALSE(groups_->LoadGroupByName("nothing", r));
}

TEST_F(WellGroupTest, DeletesTakeTheMembersAlong) {
  ASSERT_TRUE(groups_->SaveGroups("P1", {GroupRecord("G1", "a"), GroupRecord("G2", "b"), GroupRecord("G3", "c")},
                                  {{"W1"}, {"W2"}, {"W3"}}));
  ASSERT_TRUE(groups_->SaveGroup("P2", GroupRecord("G9", "other"), {"W9"}));
  EXPECT_TRUE(groups_->DeleteGroup("P1", "G1"));
  EXPECT_FALSE(groups_->DeleteGroup("P1", "G9"));  // not this project's
  EXPECT_TRUE(groups_->DeleteGroupByName("P1", "b"));
  EXPECT_EQ(Query("select GroupID from w_groupwell order by GroupID"), (Texts{"G3", "G9"}));
  EXPECT_TRUE(groups_->DeleteGroupsByNames("P1", {"c"}));
  EXPECT_EQ(Query("select GroupID from w_wellgroup"), Texts{"G9"});

  // Deleting a project's groups empties the memberships of every project.
  ASSERT_TRUE(groups_->SaveGroup("P1", GroupRecord("G1", "a"), {"W1"}));
  sql_.clear();
  ASSERT_TRUE(groups_->DeleteProjectGroups("P1"));
  EXPECT_EQ(sql_.texts(), (Texts{"delete from w_wellgroup where ProjectName = 'P1'", "delete from w_groupwell"}));
  EXPECT_EQ(Query("select GroupID from w_wellgroup"), Texts{"G9"});
  EXPECT_TRUE(Query("select GroupID from w_groupwell").empty());
}

}  // namespace
}  // namespace petrodb::test
