// Drilling targets: the well and project statements (tabs and blanks as they
// are sent), the two saves, and lists that leave the caller's vector alone
// when nothing is found.
#include <string>
#include <vector>

#include "TestSupport.h"
#include "petrodb/welllog/ITargetData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class TargetDataTest : public ObjectTest<ITargetData, "ITargetData"> {
 protected:
  static DrillingTarget Target(const std::string& well, const std::string& name, double tvd) {
    return {well, name,   "2024-05-01 10:00", tvd + 30,   tvd, tvd - 42.5, 1e7 + tvd, 4e6 - tvd,
            12.5, 271.25, "N38°12'",          "E117°05'", 0.5, 1.5,        2.5,       3.5};
  }
  Texts Stored() { return Query("select UIDWELL || '/' || TARGETNAME from w_target order by UIDWELL, TARGETNAME"); }
  static Texts Names(const std::vector<DrillingTarget>& ts) {
    Texts out;
    for (const auto& t : ts) out.push_back(t.UIDWELL + "/" + t.TARGETNAME);
    return out;
  }
};

TEST_F(TargetDataTest, SavesReplaceTheNamedWellsAndComeBackWholeByDepth) {
  ASSERT_TRUE(object_->SaveWellTargets("W1", {Target("W1", "deep", 2000), Target("W1", "top", 1500)}));
  std::vector<DrillingTarget> back;
  ASSERT_TRUE(object_->LoadWellTargets("W1", back));
  EXPECT_EQ(back, (std::vector<DrillingTarget>{Target("W1", "top", 1500), Target("W1", "deep", 2000)}));
  // The argument selects what is removed; the records keep their own wells.
  ASSERT_TRUE(object_->SaveWellTargets("W1", {Target("W2", "moved", 10)}));
  EXPECT_EQ(Stored(), Texts{"W2/moved"});

  ASSERT_TRUE(object_->SaveTargets({Target("W1", "b", 1), Target("W9", "c", 1), Target("W1", "d", 2)}));
  EXPECT_EQ(Stored(), (Texts{"W1/b", "W1/d", "W2/moved", "W9/c"}));
  // A failed removal ends the save: a quoted key, and an empty list ("in ()").
  EXPECT_FALSE(object_->SaveTargets({Target("W1", "x", 1), Target("W'2", "y", 1)}));
  EXPECT_FALSE(object_->SaveTargets({}));
  EXPECT_EQ(Stored(), (Texts{"W1/b", "W1/d", "W2/moved", "W9/c"}));
  EXPECT_TRUE(messages_.texts().empty());
}

TEST_F(TargetDataTest, ProjectListsLoadsAndDeletes) {
  Exec("insert into w_well_data (ProjectName, WellID) values ('P', 'W1'), ('P', 'W2'), ('P', 'W0'), ('Q', 'W3')");
  ASSERT_TRUE(object_->SaveTargets({Target("W1", "T2", 2100), Target("W1", "T1", 1900), Target("W2", "T1", 1800),
                                    Target("W3", "T1", 1000), Target("W3", "T9", 1100)}));
  sql_.clear();
  Texts ids, names;
  ASSERT_TRUE(object_->GetTargetWellIDs("P", ids));
  ASSERT_TRUE(object_->GetProjectTargetNames("P", names));
  EXPECT_EQ(ids, (Texts{"W1", "W2"}));
  EXPECT_EQ(names, (Texts{"T1", "T2"}));
  std::vector<DrillingTarget> ts;
  ASSERT_TRUE(object_->LoadTargetsByName("P", "T1", ts));
  EXPECT_EQ(Names(ts), (Texts{"W2/T1", "W1/T1"}));
  ASSERT_TRUE(object_->LoadWellTargetsOfProject("P", "W1", {"T2", "T7"}, ts));
  EXPECT_EQ(Names(ts), Texts{"W1/T2"});
  ASSERT_TRUE(object_->LoadProjectTargets("P", ts));
  ASSERT_EQ(ts.size(), 3u);
  EXPECT_EQ(ts[2].TARGETNAME, "T2");
  // Tabs and a missing blank, as sent.
  EXPECT_EQ(sql_.texts().back(),
            "select * from w_target  where exists( select wellid from w_well_data where \t\tw_well_data.ProjectName = "
            "'P'and w_well_data.wellid = w_target.UIDWELL ) order by \t\tTARGETNAME");
  // Nothing found: false, and the caller's lists stay as they were.
  EXPECT_FALSE(object_->GetTargetWellIDs("Z", ids));
  EXPECT_FALSE(object_->LoadTargetsByName("Q", "T2", ts));
  EXPECT_EQ(ids, (Texts{"W1", "W2"}));
  EXPECT_EQ(ts.size(), 3u);
  // Deletes by project and name keep other projects.
  ASSERT_TRUE(object_->DeleteTargetOfProject("P", "T1"));
  EXPECT_EQ(Stored(), (Texts{"W1/T2", "W3/T1", "W3/T9"}));
  ASSERT_TRUE(object_->DeleteProjectTargets("P"));
  EXPECT_EQ(Stored(), (Texts{"W3/T1", "W3/T9"}));
  ASSERT_TRUE(object_->DeleteTargetsOfWells({"W3", "W4"}));
  EXPECT_TRUE(Stored().empty());
}

}  // namespace
}  // namespace petrodb::test
