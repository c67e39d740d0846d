// Well-bore sections: the two saves with their two spellings of one delete,
// the two empty-well messages, and the lists over every well.
#include <string>
#include <tuple>
#include <vector>

#include "TestSupport.h"
#include "petrodb/welllog/IWellBoreStructural.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class WellBoreTest : public ObjectTest<IWellBoreStructural, "IWellBoreStructural"> {
 protected:
  Texts Stored() {
    return Query("select WELLID || '/' || BORENAME || '/' || BITSIZE from w_wellbore_structural order by WELLID, BORENAME");
  }
};

TEST_F(WellBoreTest, SavingSectionsReplacesOnlyThoseNamed) {
  ASSERT_TRUE(object_->SaveBoreSections(
      {{"W1", "surface", 444.5, 0, 300}, {"W1", "intermediate", 311, 300, 1800}, {"W2", "surface", 444.5, 0, 250}}));
  ASSERT_TRUE(object_->SaveBoreSections({{"W1", "surface", 406.25, 0, 320}, {"W2", "production", 215.9, 250, 2400}}));
  sql_.clear();
  ASSERT_TRUE(object_->SaveBoreSection({"W1", "intermediate", 311.15, 320, 1850}));  // no blank before "and"
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            Texts{"delete from w_wellbore_structural where WELLID='W1'and BORENAME='intermediate'"});
  const Texts all{"W1/intermediate/311.15", "W1/surface/406.25", "W2/production/215.9", "W2/surface/444.5"};
  EXPECT_EQ(Stored(), all);
  std::vector<BoreSection> sections(5);
  ASSERT_TRUE(object_->LoadWellBoreSections("W1", sections));
  ASSERT_EQ(sections.size(), 2u);
  const BoreSection expected{"W1", "intermediate", 311.15, 320, 1850};
  EXPECT_TRUE(sections[0] == expected || sections[1] == expected);
  // A quoted key fails the save before anything is removed or written.
  EXPECT_FALSE(object_->SaveBoreSections({{"W1", "surface", 1, 0, 1}, {"W'2", "x", 1, 0, 1}}));
  EXPECT_FALSE(object_->SaveBoreSection({"W1", "it's", 1, 0, 1}));
  EXPECT_EQ(Stored(), all);
}

TEST_F(WellBoreTest, ListsCoverEveryWellAndEmptyIDsShowTheirMessages) {
  ASSERT_TRUE(object_->SaveBoreSections({{"W2", "a", 1.5, 0, 10}, {"W1", "a", 2, 0, 10}, {"W1", "b", 3, 10, 20}}));
  Texts ids{"stale"}, found{"kept"};
  ASSERT_TRUE(object_->GetBoreWellIDs(ids));
  EXPECT_EQ(ids, (Texts{"W1", "W2"}));
  std::vector<BoreSection> all{{"stale", "", 0, 0, 0}};
  ASSERT_TRUE(object_->LoadAllBoreSections(all));
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(all[2], (BoreSection{"W2", "a", 1.5, 0, 10}));
  ASSERT_TRUE(object_->GetWellsWithBore({"W2", "", "W5", "W1"}, found));
  EXPECT_EQ(found, (Texts{"kept", "W2", "W1"}));
  // The empty ID above and an empty delete show two different messages.
  EXPECT_FALSE(object_->DeleteWellBore(""));
  ASSERT_EQ(messages_.messages().size(), 2u);
  const auto& [application, plain] = std::tie(messages_.messages()[0], messages_.messages()[1]);
  EXPECT_EQ(std::tie(application.text, application.style),
            std::make_tuple("井名称不能为空！", MessageStyle::Application));
  EXPECT_EQ(std::tie(plain.text, plain.style, plain.caption),
            std::make_tuple("井号不能为空！", MessageStyle::Plain, "错误信息"));
  ASSERT_TRUE(object_->DeleteWellBore("W1"));
  EXPECT_EQ(Stored(), Texts{"W2/a/1.5"});
  ASSERT_TRUE(object_->DeleteAllBoreSections());
  EXPECT_TRUE(object_->LoadAllBoreSections(all));
  EXPECT_TRUE(all.empty());
}

}  // namespace
}  // namespace petrodb::test
