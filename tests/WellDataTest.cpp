// Well master records and group membership.
#include <functional>
#include <tuple>

#include "TestSupport.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/project/IWellGroupData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

WellRecord Well(const std::string& id, const std::string& name = "") {
  return {id, name, "oil", 4300000.5, 20500000.25, 'Y', 7, 1200.5, 1195.0, 3500.75, "", ""};
}

class WellDataTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    wells_ = Make<IBasicWellData>("IBasicWellData");
    groups_ = Make<IWellGroupData>("IWellGroupData");
    ASSERT_TRUE(wells_ && groups_);
  }
  // Wells W101, W102, ... of project P1, each named "n" + its ID.
  Texts AddNumbered(int n) {
    Texts ids;
    std::vector<WellRecord> records;
    for (int i = 101; i <= 100 + n; ++i) {
      ids.push_back("W" + std::to_string(i));
      records.push_back(Well(ids.back(), "n" + ids.back()));
    }
    EXPECT_TRUE(wells_->AppendWells("P1", records));
    return ids;
  }
  void Group(const char* project, const char* id, int policy, const char* idPolicy, const char* namePolicy) {
    ASSERT_TRUE(groups_->SaveGroup(project, WellGroupRecord{id, std::string("G ") + id, policy, idPolicy, namePolicy},
                                   {}));
  }
  Texts Members(const char* groupID) {
    return Query(std::string("select WellID from w_groupwell where GroupID = '") + groupID + "' order by WellID");
  }
  std::unique_ptr<IBasicWellData> wells_;
  std::unique_ptr<IWellGroupData> groups_;
};

TEST_F(WellDataTest, SaveLoadAndReplaceByProject) {
  const WellRecord w = Well("W1", "Well one");
  ASSERT_TRUE(wells_->SaveWell("P2", w));
  WellRecord back;
  ASSERT_TRUE(wells_->LoadWell(std::string("W1"), back));
  auto tie = [](const WellRecord& r) {
    return std::tie(r.WellID, r.WellName, r.WellType, r.Well_SN, r.Well_EW, r.WellFlag, r.WellSymbol, r.Kb, r.Ekb,
                    r.WellDepth);
  };
  EXPECT_EQ(tie(back), tie(w));
  EXPECT_EQ(Query("select ProjectName from w_well_data"), Texts{"P2"});
  EXPECT_FALSE(wells_->LoadWell("nope", back));

  // Saving again replaces the row.
  ASSERT_TRUE(wells_->SaveWell(std::string("P2"), Well("W1", "renamed")));
  EXPECT_EQ(Query("select WellName from w_well_data"), Texts{"renamed"});
  EXPECT_TRUE(wells_->IsWellIDExist("P2", "W1"));
  EXPECT_FALSE(wells_->IsWellIDExist("P1", "W1"));
  EXPECT_TRUE(wells_->IsWellNameExist(std::string("P2"), std::string("RENAMED")));  // case ignored
  EXPECT_EQ(wells_->GetProjectWellCount("P2"), 1);
  EXPECT_EQ(wells_->GetProjectWellCount("P1"), 0);
  // Saving replaces within the project; replacing deletes the ID in every project.
  ASSERT_TRUE(wells_->SaveWell("P1", Well("W1", "in p1")));
  EXPECT_EQ(Query("select ProjectName from w_well_data order by ProjectName"), (Texts{"P1", "P2"}));
  ASSERT_TRUE(wells_->ReplaceWell("P2", Well("W1", "new")));
  EXPECT_EQ(Query("select ProjectName from w_well_data"), Texts{"P2"});
  EXPECT_FALSE(wells_->ReplaceWell("P1", Well("")));
  EXPECT_EQ(messages_.texts(), Texts{"井号不能为空！"});
  // A quote in a value makes the statement unrunnable rather than changing it.
  std::vector<WellRecord> records;
  EXPECT_FALSE(wells_->LoadProjectWells("P2' or '1'='1", records));
  // A table without the row columns can be neither read nor written.
  Exec("drop table w_well_data");
  EXPECT_FALSE(wells_->LoadProjectWells("P2", records));
  EXPECT_FALSE(wells_->SaveWell("P2", Well("W1")));
}

TEST_F(WellDataTest, MembershipsGoWithTheWellByListOneByOneAndWhole) {
  ASSERT_TRUE(wells_->AppendWells("P1", {Well("a"), Well("b"), Well("c"), Well("W9")}));
  ASSERT_TRUE(wells_->AppendWells("P2", {Well("x")}));
  ASSERT_TRUE(wells_->AddWellsToGroup("G1", {"a", "b", "c", "W9"}));
  ASSERT_TRUE(wells_->AddWellsToGroup("G2", {"a", "x"}));
  EXPECT_TRUE(wells_->IsWellInGroup("G1", "W9"));
  ASSERT_TRUE(wells_->DeleteWell("P1", "W9"));
  EXPECT_FALSE(wells_->IsWellInGroup("G1", "W9"));
  ASSERT_TRUE(wells_->RemoveWellsFromGroup("G1", {"a", "b"}));
  ASSERT_TRUE(wells_->RemoveWellFromGroup("G2", "a"));
  EXPECT_EQ(Members("G1"), Texts{"c"});
  EXPECT_EQ(Members("G2"), Texts{"x"});
  ASSERT_TRUE(wells_->ClearGroup("G1"));
  EXPECT_TRUE(Members("G1").empty());
  EXPECT_EQ(Query("select WellID from w_well_data order by WellID"), (Texts{"a", "b", "c", "x"}));
  // Deleting a project's wells empties every membership, another project's well's too.
  ASSERT_TRUE(wells_->DeleteProjectWells("P1"));
  EXPECT_EQ(Query("select WellID from w_well_data"), Texts{"x"});
  EXPECT_TRUE(Query("select WellID from w_groupwell").empty());
}

TEST_F(WellDataTest, CompactStatementsKeepTheirSpacing) {
  Texts ids, found;
  std::vector<WellRecord> records;
  wells_->ListWellIDs("P1", ids);
  wells_->LoadAllWells("P1", records);
  wells_->WellExists("W1", "P1");
  wells_->FilterExistingWells("P1", {"W1", "W7"}, found);
  EXPECT_TRUE(wells_->RemoveWells("'W8','W9'", "P1"));
  EXPECT_TRUE(wells_->RemoveProjectWells("P9"));
  EXPECT_EQ(sql_.texts(), (Texts{
                              "select WellID from w_well_data where ProjectName='P1'order by WellID",
                              "select * from w_well_data where ProjectName='P1'order by WellID",
                              "select WellID from  w_well_data where WellID='W1' and ProjectName='P1'",
                              "select wellid from w_well_data where  ProjectName = 'P1' and wellid in ('W1','W7')",
                              "delete from  w_well_data where WellID in ('W8','W9') AND ProjectName='P1'",
                              "delete from  w_well_data where ProjectName='P9'",
                          }));
  // An empty ID list gives the statement "in ()", which no engine runs.
  sql_.clear();
  EXPECT_FALSE(wells_->FilterExistingWells("P1", {}, found));
  EXPECT_EQ(sql_.texts(), Texts{"select wellid from w_well_data where  ProjectName = 'P1' and wellid in ()"});
}

// A well without a name is listed by its ID.
TEST_F(WellDataTest, NameListsFallBackToTheID) {
  ASSERT_TRUE(wells_->SaveWell("P1", Well("W2", "")));
  ASSERT_TRUE(wells_->SaveWell("P1", Well("W1", "first")));
  Group("P1", "G1", -1, "", "");
  ASSERT_TRUE(wells_->AddWellsToGroup("G1", {"W1", "W2"}));
  // One list per statement or join; the rest share these.
  const Texts names{"first", "W2"};
  const std::pair<std::function<bool(Texts&)>, Texts> lists[] = {
      {[&](Texts& v) { return wells_->GetGroupWellIDs("P1", "G1", v); }, Texts{"W1", "W2"}},
      {[&](Texts& v) { return wells_->FilterExistingWells("P1", {"W2", "W9"}, v); }, Texts{"W2"}},
      {[&](Texts& v) { return wells_->GetProjectWellNames("P1", v); }, names},
      {[&](Texts& v) { return wells_->GetGroupWellNames("P1", "G G1", v); }, names},
      {[&](Texts& v) { return wells_->GetGroupedWellNames(v); }, names},
  };
  for (std::size_t i = 0; i < std::size(lists); ++i) {
    Texts got{"stale"};
    EXPECT_TRUE(lists[i].first(got)) << i;
    EXPECT_EQ(got, lists[i].second) << i;
  }
  // A failing list is emptied too, not left with the caller's entries.
  Texts got{"stale"};
  EXPECT_FALSE(wells_->GetGroupWellNames("P1", "G 9", got));
  EXPECT_TRUE(got.empty());
  EXPECT_TRUE(wells_->IsWellNameInGroup("P1", "G G1", "first"));
  EXPECT_FALSE(wells_->IsWellNameInGroup("P1", "G G1", "missing"));
}

// A well ID that cannot be spliced into the delete fails the replace before
// the row is written, so no row appears that no statement could reach.
TEST_F(WellDataTest, AQuotedWellIDIsNeverWritten) {
  EXPECT_FALSE(wells_->ReplaceWell("P1", Well("W'1")));
  EXPECT_FALSE(wells_->SaveWell("P1", Well("W'2")));
  EXPECT_NE(LastError().find("a value holding a single quote or a NUL byte is never sent"), std::string::npos)
      << LastError();
  EXPECT_FALSE(wells_->SaveWell("P'1", Well("W3")));
  EXPECT_TRUE(Query("select WellID from w_well_data").empty());
  EXPECT_TRUE(sql_.texts("SaveData").empty());
}

// ID and name lists go to the engine in batches of ten.
TEST_F(WellDataTest, ListsGoInBatchesOfTenAndNamesFallBackToIDs) {
  const auto ids = AddNumbered(11);
  std::vector<WellRecord> records{Well("stale")};  // each load replaces the list
  for (std::size_t n : {10u, 11u}) {
    sql_.clear();
    ASSERT_TRUE(wells_->LoadWellsByIDs(Texts(ids.begin(), ids.begin() + n), records));
    EXPECT_EQ(records.size(), n);
    ASSERT_EQ(sql_.texts().size(), (n + 9) / 10) << n;
    EXPECT_EQ(sql_.texts()[0],
              "select * from w_well_data where WellID in ('W101', 'W102', 'W103', 'W104', 'W105', 'W106', 'W107', "
              "'W108', 'W109', 'W110')");
  }
  EXPECT_EQ(sql_.texts().back(), "select * from w_well_data where WellID in ('W111')");

  // By name: the first batch matches by name, the second only by ID.
  Texts keys;
  for (int i = 0; i < 10; ++i) keys.push_back("n" + ids[i]);
  keys.push_back(ids[10]);
  sql_.clear();
  ASSERT_TRUE(wells_->LoadWellsByNames(keys, records));
  EXPECT_EQ(records.size(), 11u);
  ASSERT_EQ(sql_.texts().size(), 3u);
  EXPECT_EQ(sql_.texts()[1], "select * from w_well_data where WellName in ('W111')");
  EXPECT_EQ(sql_.texts()[2], "select * from w_well_data where WellID in ('W111')");
  // A batch found neither way fails, keeping earlier batches.
  keys[10] = "nowhere";
  EXPECT_FALSE(wells_->LoadWellsByNames(keys, records));
  EXPECT_EQ(records.size(), 10u);
  EXPECT_TRUE(wells_->LoadWellsByNames({}, records));
  EXPECT_TRUE(records.empty());

  WellRecord one;  // one well: by name, else by ID
  ASSERT_TRUE(wells_->LoadWellByName(std::string("W105"), one));
  EXPECT_EQ(one.WellName, "nW105");
}

TEST_F(WellDataTest, GroupWellsLoadThroughMembershipInBatches) {
  auto members = AddNumbered(11);
  ASSERT_TRUE(wells_->AppendWells("P2", {Well("W999")}));
  members.push_back("W999");  // a member from another project is not loaded
  ASSERT_TRUE(wells_->AddWellsToGroup("G1", members));
  sql_.clear();
  std::vector<WellRecord> records;
  ASSERT_TRUE(wells_->LoadGroupWells("P1", "G1", records));
  EXPECT_EQ(records.size(), 11u);
  ASSERT_EQ(sql_.texts().size(), 3u);  // the members, then the wells in batches of ten
  EXPECT_EQ(sql_.texts()[2], "select * from w_well_data where ProjectName = 'P1' and WellID in ('W111', 'W999')");
  EXPECT_EQ(wells_->GetGroupWellCount("P1", "G1"), 11);

  // An empty group: success, nothing loaded, no second statement.
  sql_.clear();
  EXPECT_TRUE(wells_->LoadGroupWells(std::string("P1"), std::string("EMPTY"), records));
  EXPECT_TRUE(records.empty());
  EXPECT_EQ(sql_.texts().size(), 1u);
  EXPECT_FALSE(wells_->HasGroupWells("P1", "EMPTY"));
}

TEST_F(WellDataTest, SaveJoinsGroupsByPolicy) {
  Group("P1", "NEG", -1, "", "");          // never
  Group("P1", "BYID", 0, "W1", "zzz");     // ID contains "W1"
  Group("P1", "BYNAME", 1, "zzz", "Lu");   // name contains "Lu" (case-sensitive)
  Group("P1", "ALLID", 0, "", "");         // empty text: every well
  Group("P1", "ALLNAME", 2, "zzz", "");    // empty text: every well
  Group("P2", "OTHER", 0, "", "");         // another project's group
  ASSERT_TRUE(wells_->SaveWells("P1", {Well("W12", "Lu 3"), Well("X3", "lu 4"), Well("Y1", "abc")}));
  const Texts all{"W12", "X3", "Y1"};
  EXPECT_TRUE(Members("NEG").empty());
  EXPECT_EQ(Members("BYID"), Texts{"W12"});
  EXPECT_EQ(Members("BYNAME"), Texts{"W12"});
  EXPECT_EQ(Members("ALLID"), all);
  EXPECT_EQ(Members("ALLNAME"), all);
  EXPECT_TRUE(Members("OTHER").empty());

  // Saving again replaces the memberships rather than doubling them.
  sql_.clear();
  ASSERT_TRUE(wells_->SaveWell("P1", Well("W12", "Lu 3")));
  EXPECT_EQ(Members("BYID"), Texts{"W12"});
  // The row is saved before the groups are read; one save writes the memberships.
  Texts calls;
  for (const auto& e : sql_.events()) calls.push_back(e.call == "SaveData" ? "(save)" : e.text);
  EXPECT_EQ(calls, (Texts{"delete from w_well_data where ProjectName = 'P1' and WellID = 'W12'",
                          "delete from w_groupwell where WellID = 'W12'", "(save)",
                          "select * from w_wellgroup where ProjectName = 'P1'", "w_groupwell", "(save)"}));

  // Saved into a group, a well joins it once, whatever the group's policy.
  Group("P1", "G7", 0, "A", "");
  ASSERT_TRUE(wells_->SaveWellsWithGroup("P1", "G7", {Well("A"), Well("B")}));
  EXPECT_EQ(Members("G7"), (Texts{"A", "B"}));
  ASSERT_TRUE(wells_->SaveWellWithGroup(std::string("P1"), std::string("G8"), Well("C")));
  EXPECT_TRUE(wells_->IsWellInGroup(std::string("G8"), std::string("C")));
  ASSERT_TRUE(wells_->DeleteGroupWells("P1", "G7"));
  EXPECT_TRUE(Members("G7").empty());
  EXPECT_EQ(Query("select WellID from w_well_data order by WellID"), (Texts{"C", "W12", "X3", "Y1"}));
}

// A save whose steps fail half-way leaves the old wells: the row delete that
// ran before the failing membership delete is undone with it.
TEST_F(WellDataTest, AFailedSaveKeepsTheOldWellsWhole) {
  ASSERT_TRUE(wells_->SaveWells("P1", {Well("A", "old a"), Well("B", "old b")}));
  Exec("drop table w_groupwell");
  EXPECT_FALSE(wells_->SaveWell("P1", Well("A", "new a")));
  EXPECT_FALSE(wells_->SaveWells("P1", {Well("A", "new a"), Well("B", "new b")}));
  EXPECT_FALSE(wells_->DeleteWells("P1", {"A", "B"}));
  EXPECT_EQ(Query("select WellName from w_well_data order by WellID"), (Texts{"old a", "old b"}));
}

}  // namespace
}  // namespace petrodb::test
