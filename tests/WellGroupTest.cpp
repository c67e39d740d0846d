// Well groups and their memberships.
#include <tuple>

#include "TestSupport.h"
#include "petrodb/project/IWellGroupData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

WellGroupRecord GroupRecord(const std::string& id, const std::string& name, int policy = -1) {
  return WellGroupRecord{id, name, policy, "id-" + id, "name-" + id};
}

Texts IDs(const std::vector<WellGroupRecord>& records) {
  Texts ids;
  for (const auto& r : records) ids.push_back(r.GroupID);
  return ids;
}

using WellGroupTest = ObjectTest<IWellGroupData, "IWellGroupData">;

TEST_F(WellGroupTest, SaveWritesTheRowAndOneMembershipPerWell) {
  sql_.clear();
  ASSERT_TRUE(object_->SaveGroup("P1", GroupRecord("G1", "north", 0), {"W1", "W2"}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), (Texts{"delete from w_wellgroup where ProjectName = 'P1' and GroupID = 'G1'",
                                             "delete from w_groupwell where GroupID = 'G1'"}));
  EXPECT_EQ(Query("select WellID from w_groupwell order by WellID"), (Texts{"W1", "W2"}));
  // Saving again replaces row and members.
  ASSERT_TRUE(object_->SaveGroups("P1", {GroupRecord("G1", "north2", 1), GroupRecord("G2", "south")}, {{"W3"}}));
  EXPECT_EQ(Query("select GroupID || '/' || WellID from w_groupwell"), Texts{"G1/W3"});
  WellGroupRecord r;
  ASSERT_TRUE(object_->LoadGroup("G1", r));
  EXPECT_EQ(std::tie(r.GroupName, r.GroupPolicy, r.WellIDPolicy, r.WellNamePolicy),
            std::make_tuple("north2", 1, "id-G1", "name-G1"));
  EXPECT_FALSE(object_->SaveGroup(std::string("P1"), GroupRecord("", "nameless")));
  EXPECT_TRUE(messages_.texts().empty());
  // A group ID or project that cannot be spliced into the deletes fails before anything is written.
  sql_.clear();
  EXPECT_FALSE(object_->SaveGroup("P1", GroupRecord("G'1", "x"), {"W1"}));
  EXPECT_FALSE(object_->SaveGroups("P'1", {GroupRecord("G3", "y")}, {{"W2"}}));
  EXPECT_TRUE(sql_.texts("SaveData").empty());
  EXPECT_EQ(Query("select GroupID from w_wellgroup order by GroupID"), (Texts{"G1", "G2"}));
}

// Every list replaces what the caller's vector held, found or not.
TEST_F(WellGroupTest, ListsAndLookups) {
  ASSERT_TRUE(object_->SaveGroups("P1", {GroupRecord("G2", "b"), GroupRecord("G1", ""), GroupRecord("G3", "c")}, {}));
  ASSERT_TRUE(object_->SaveGroup("P2", GroupRecord("G9", "other"), {}));
  Texts ids{"stale"}, names{"stale"};
  ASSERT_TRUE(object_->GetGroupIDs("P1", ids));
  ASSERT_TRUE(object_->GetGroupNames("P1", names));
  EXPECT_EQ(ids, (Texts{"G1", "G2", "G3"}));
  EXPECT_EQ(names, (Texts{"G1", "b", "c"}));  // an empty name gives the ID
  EXPECT_EQ(object_->GetGroupCount("P1"), 3);
  EXPECT_FALSE(object_->HasGroups("P3"));
  EXPECT_FALSE(object_->IsGroupIDExist("P2", "G2"));
  EXPECT_TRUE(object_->IsGroupNameExist(std::string("P2"), std::string("OTHER")));

  std::vector<WellGroupRecord> records{GroupRecord("stale", "stale")};
  ASSERT_TRUE(object_->LoadGroupsByIDs({"G1", "G9"}, records));  // any project
  EXPECT_EQ(IDs(records), (Texts{"G1", "G9"}));
  EXPECT_TRUE(object_->LoadGroupsByIDs({}, records));
  EXPECT_TRUE(records.empty());
  ASSERT_TRUE(object_->LoadGroupsByNames({"G1", "G3"}, records));  // no name matches: read as IDs
  EXPECT_EQ(IDs(records), (Texts{"G1", "G3"}));
  ASSERT_TRUE(object_->LoadGroupsByNames({"c"}, records));
  EXPECT_EQ(IDs(records), Texts{"G3"});
  EXPECT_FALSE(object_->LoadGroupsByNames({"nothing"}, records));
  EXPECT_TRUE(records.empty());
  WellGroupRecord r;
  sql_.clear();
  ASSERT_TRUE(object_->LoadGroupByName("G3", r));
  EXPECT_EQ(r.GroupName, "c");
  EXPECT_EQ(sql_.texts(), (Texts{"select * from w_wellgroup where GroupName = 'G3'",
                                 "select * from w_wellgroup where GroupID = 'G3'"}));
}

TEST_F(WellGroupTest, DeletesTakeTheMembersAlong) {
  ASSERT_TRUE(object_->SaveGroups(
      "P1", {GroupRecord("G1", "a"), GroupRecord("G2", "b"), GroupRecord("G3", "c"), GroupRecord("G4", "d")},
      {{"W1"}, {"W2"}, {"W3"}, {"W4"}}));
  ASSERT_TRUE(object_->SaveGroup("P2", GroupRecord("G9", "other"), {"W9"}));
  EXPECT_TRUE(object_->DeleteGroup("P1", "G1"));
  EXPECT_FALSE(object_->DeleteGroup("P1", "G9"));  // not this project's
  EXPECT_TRUE(object_->DeleteGroupByName("P1", "b"));
  EXPECT_TRUE(object_->DeleteGroupsByNames("P1", {"c"}));
  EXPECT_EQ(Query("select GroupID from w_groupwell order by GroupID"), (Texts{"G4", "G9"}));
  // Deleting a project's groups empties the memberships of every project.
  ASSERT_TRUE(object_->DeleteProjectGroups("P1"));
  EXPECT_EQ(Query("select GroupID from w_wellgroup"), Texts{"G9"});
  EXPECT_TRUE(Query("select GroupID from w_groupwell").empty());
}

}  // namespace
}  // namespace petrodb::test
