// Perforated sections of injection wells: the three saves (one row per well,
// quietly, or a list whose deletes all run first), the network selections,
// and the messages under the error caption.
#include <algorithm>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "petrodb/welllog/IPerforatedSec.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class PerforatedSecTest : public ObjectTest<IPerforatedSec, "IPerforatedSec"> {
 protected:
  static PerforatedSection Row(const std::string& jh, const std::string& horizon, double bottom = 1850.5) {
    return {jh,   horizon, 1900, bottom, 139.7, 124.26, 7.72, 6.5,  1820.25, "S2", "2023-04-01", 12.5,  8,
            1200, 45.5,    3.25, 10.2,   0.8,   1.02,   1.05, 0.35, 0.012,   0.05, 0.02,         18.75, 3};
  }
  Texts Stored() { return Query("select Jh || '/' || Prod_horizon from w_perforated_sec order by Jh, Prod_horizon"); }
  // The first statements sent since the recorder was last cleared.
  Texts FirstSent(std::size_t count) {
    const Texts sent = sql_.texts();
    return Texts(sent.begin(), sent.begin() + std::min(count, sent.size()));
  }
};

TEST_F(PerforatedSecTest, SavingOneRowLeavesTheWellWithThatRowOnly) {
  ASSERT_TRUE(object_->SavePerforatedSections({Row("J1", "a"), Row("J1", "b"), Row("J2", "a")}));
  sql_.clear();
  ASSERT_TRUE(object_->SavePerforatedSection(Row("J1", "new", 1999.75)));
  EXPECT_EQ(FirstSent(3), (Texts{"w_perforated_sec", "w_perforated_sec", "delete from w_perforated_sec where Jh = 'J1'"}));
  EXPECT_EQ(Stored(), (Texts{"J1/new", "J2/a"}));
  ASSERT_TRUE(object_->SavePerforatedSectionQuiet(Row("J2", "quiet")));
  EXPECT_EQ(Stored(), (Texts{"J1/new", "J2/quiet"}));

  std::vector<PerforatedSection> rows(3);
  ASSERT_TRUE(object_->LoadPerforatedSections("J1", rows));
  EXPECT_EQ(rows, std::vector<PerforatedSection>{Row("J1", "new", 1999.75)});
}

TEST_F(PerforatedSecTest, AListSaveRunsEveryDeleteBeforeItsInserts) {
  ASSERT_TRUE(object_->SavePerforatedSections({Row("J1", "old"), Row("J3", "kept")}));
  sql_.clear();
  ASSERT_TRUE(object_->SavePerforatedSections({Row("J1", "b"), Row("J2", "a"), Row("J1", "a")}));
  // Each delete probes the table itself; the list's own probe follows the last delete.
  EXPECT_EQ(FirstSent(7), (Texts{"w_perforated_sec", "delete from w_perforated_sec where Jh = 'J1'", "w_perforated_sec",
                                 "delete from w_perforated_sec where Jh = 'J2'", "w_perforated_sec",
                                 "delete from w_perforated_sec where Jh = 'J1'", "w_perforated_sec"}));
  EXPECT_EQ(Stored(), (Texts{"J1/a", "J1/b", "J2/a", "J3/kept"}));
  // An empty number among them shows its message and the others are saved;
  // a quoted one fails the whole list before anything is removed.
  ASSERT_TRUE(object_->SavePerforatedSections({Row("", "x"), Row("J2", "z")}));
  EXPECT_EQ(messages_.texts(), Texts{"注水井号不能为空！"});
  EXPECT_FALSE(object_->SavePerforatedSections({Row("J1", "q"), Row("J'2", "q")}));
  EXPECT_EQ(Stored(), (Texts{"/x", "J1/a", "J1/b", "J2/z", "J3/kept"}));
}

TEST_F(PerforatedSecTest, ListsByPrefixInOrderAndByNetwork) {
  ASSERT_TRUE(object_->SavePerforatedSections(
      {Row("W-12", "b"), Row("W-12", "a"), Row("W-3", "a"), Row("X-1", "a"), Row("W-7", "a")}));
  Exec(
      "insert into n_nodes (PipenetName, NodeName, NodeType) values ('N1', 'W-12', 2), ('N1', 'W-3', 1), "
      "('N2', 'W-7', 2), ('N1', 'X-1', 2)");
  auto names = [](const std::vector<PerforatedSection>& rows, bool sorted = true) {  // only the full list is ordered
    Texts out;
    for (const auto& r : rows) out.push_back(r.Jh + "/" + r.Prod_horizon);
    if (sorted) std::sort(out.begin(), out.end());
    return out;
  };
  std::vector<PerforatedSection> rows;
  ASSERT_TRUE(object_->FindPerforatedSections("W-1", 7, 9, rows));  // a prefix: W-12 only
  EXPECT_EQ(names(rows), (Texts{"W-12/a", "W-12/b"}));
  ASSERT_TRUE(object_->LoadAllPerforatedSections(rows));
  EXPECT_EQ(names(rows, false), (Texts{"W-12/a", "W-12/b", "W-3/a", "W-7/a", "X-1/a"}));
  ASSERT_TRUE(object_->LoadNetworkPerforatedSections("N1", rows));
  EXPECT_EQ(names(rows), (Texts{"W-12/a", "W-12/b", "X-1/a"}));
}

TEST_F(PerforatedSecTest, DeletesAndEmptyKeys) {
  ASSERT_TRUE(object_->SavePerforatedSections({Row("J1", "a"), Row("J2", "a"), Row("J3", "a"), Row("J4", "a")}));
  Exec("insert into n_nodes (PipenetName, NodeName, NodeType) values ('N1', 'J1', 2), ('N1', 'J2', 3)");
  ASSERT_TRUE(object_->DeleteNetworkPerforatedSections("N1"));  // injection wells (type 2) only
  EXPECT_EQ(Stored(), (Texts{"J2/a", "J3/a", "J4/a"}));
  ASSERT_TRUE(object_->DeletePerforatedSectionsOfWells({"J2", "J4"}));
  EXPECT_EQ(Stored(), Texts{"J3/a"});
  sql_.clear();
  EXPECT_FALSE(object_->DeleteNetworkPerforatedSections(""));
  EXPECT_FALSE(object_->SavePerforatedSectionQuiet(Row("", "a")));  // quiet
  EXPECT_TRUE(sql_.texts().empty());
  EXPECT_EQ(messages_.texts(), Texts{"管网名称不能为空！"});
}

}  // namespace
}  // namespace petrodb::test
