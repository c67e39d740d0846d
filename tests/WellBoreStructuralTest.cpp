// Well-bore sections: the two saves with their two spellings of one delete,
// the two empty-well messages, and the lists over every well.
#include <string>
#include <tuple>
#include <vector>

#include "TestSupport.h"
#include "petrodb/welllog/IWellBoreStructural.h"

namespace petrodb::test {
namespace {

class WellBoreTest : public ObjectTest<IWellBoreStructural, "IWellBoreStructural"> {
 protected:
  std::vector<std::string> Stored() {
    return Query(
        "select WELLID || '/' || BORENAME || '/' || BITSIZE from w_wellbore_structural "
        "order by WELLID, BORENAME");
  }
};

TEST_F(WellBoreTest, SavingSectionsReplacesOnlyThoseNamed) {
  ASSERT_TRUE(object_->SaveBoreSections(
      {{"W1", "surface", 444.5, 0, 300}, {"W1", "intermediate", 311, 300, 1800}, {"W2", "surface", 444.5, 0, 250}}));
  ASSERT_TRUE(object_->SaveBoreSections({{"W1", "surface", 406.25, 0, 320}, {"W2", "production", 215.9, 250, 2400}}));
  sql_.clear();
  ASSERT_TRUE(object_->SaveBoreSection({"W1", "intermediate", 311.15, 320, 1850}));  // no blank before "and"
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            std::vector<std::string>{"delete from w_wellbore_structural where WELLID='W1'and BORENAME='intermediate'"});
  EXPECT_EQ(Stored(), (std::vector<std::string>{"W1/intermediate/311.15", "W1/surface/406.25", "W2/production/215.9",
                                                "W2/surface/444.5"}));

  std::vector<BoreSection> sections(5);
  ASSERT_TRUE(object_->LoadWellBoreSections("W1", sections));
  ASSERT_EQ(sections.size(), 2u);
  const BoreSection expected{"W1", "intermediate", 311.15, 320, 1850};
  EXPECT_TRUE(sections[0] == expected || sections[1] == expected);
  EXPECT_FALSE(object_->LoadWellBoreSections("W7", sections));
  EXPECT_TRUE(sections.empty());

  // A quoted key fails the save before anything is removed or written.
  EXPECT_FALSE(object_->SaveBoreSections({{"W1", "surface", 1, 0, 1}, {"W'2", "x", 1, 0, 1}}));
  EXPECT_FALSE(object_->SaveBoreSection({"W1", "it's", 1, 0, 1}));
  EXPECT_EQ(Stored().size(), 4u);
}

TEST_F(WellBoreTest, ListsCoverEveryWellAndAppendWhereTheyShould) {
  ASSERT_TRUE(object_->SaveBoreSections({{"W2", "a", 1, 0, 10}, {"W1", "a", 2, 0, 10}, {"W1", "b", 3, 10, 20}}));
  std::vector<std::string> ids{"stale"};
  ASSERT_TRUE(object_->GetBoreWellIDs(ids));
  EXPECT_EQ(ids, (std::vector<std::string>{"W1", "W2"}));

  std::vector<BoreSection> all{{"stale", "", 0, 0, 0}};
  ASSERT_TRUE(object_->LoadAllBoreSections(all));
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(all[0].WELLID, "W1");
  EXPECT_EQ(all[1].WELLID, "W1");
  EXPECT_EQ(all[2], (BoreSection{"W2", "a", 1, 0, 10}));

  std::vector<std::string> found{"kept"};
  ASSERT_TRUE(object_->GetWellsWithBore({"W2", "", "W5", "W1"}, found));
  EXPECT_EQ(found, (std::vector<std::string>{"kept", "W2", "W1"}));
  EXPECT_EQ(messages_.texts(), std::vector<std::string>{"井名称不能为空！"});

  ASSERT_TRUE(object_->DeleteAllBoreSections());
  EXPECT_TRUE(object_->LoadAllBoreSections(all));
  EXPECT_TRUE(all.empty());
  EXPECT_FALSE(object_->GetWellsWithBore({"W1"}, found));
}

TEST_F(WellBoreTest, DeletingAWellAndTheTwoEmptyWellMessages) {
  ASSERT_TRUE(object_->SaveBoreSections({{"W1", "a", 1.5, 0, 10}, {"W2", "a", 1.5, 0, 10}}));
  ASSERT_TRUE(object_->DeleteWellBore("W1"));
  EXPECT_EQ(Stored(), std::vector<std::string>{"W2/a/1.5"});

  sql_.clear();
  EXPECT_FALSE(object_->DeleteWellBore(""));
  EXPECT_FALSE(object_->IsWellBoreExist(""));
  EXPECT_TRUE(sql_.texts().empty());
  ASSERT_EQ(messages_.messages().size(), 2u);
  const auto& [plain, application] = std::tie(messages_.messages()[0], messages_.messages()[1]);
  EXPECT_EQ(std::tie(plain.text, plain.style, plain.caption),
            std::make_tuple("井号不能为空！", MessageStyle::Plain, "错误信息"));
  EXPECT_EQ(std::tie(application.text, application.style),
            std::make_tuple("井名称不能为空！", MessageStyle::Application));
}

TEST_F(WellBoreTest, WithoutTheTableEverythingThatProbesSendsNothing) {
  Exec("drop table w_wellbore_structural");
  sql_.clear();
  EXPECT_FALSE(object_->SaveBoreSections({{"W1", "a", 1, 0, 10}}));
  EXPECT_FALSE(object_->SaveBoreSection({"W1", "a", 1, 0, 10}));
  EXPECT_FALSE(object_->DeleteAllBoreSections());
  EXPECT_FALSE(object_->IsWellBoreExist("W1"));
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(sql_.texts("SaveData").empty());
  for (const auto& text : sql_.texts("GetDataFromDB")) EXPECT_EQ(text, "w_wellbore_structural");
  std::vector<BoreSection> all;
  EXPECT_TRUE(object_->LoadAllBoreSections(all));
  EXPECT_TRUE(all.empty());
}

}  // namespace
}  // namespace petrodb::test
