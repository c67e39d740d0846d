// Generic row import and the schema version table.
#include "TestSupport.h"
#include "petrodb/IBasicDataOper.h"
#include "petrodb/IDataBaseVersion.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class ImportVersionTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    oper_ = Make<IBasicDataOper>("IBasicDataOper");
    version_ = Make<IDataBaseVersion>("IDataBaseVersion");
    ASSERT_TRUE(oper_ && version_);
  }
  std::unique_ptr<IBasicDataOper> oper_;
  std::unique_ptr<IDataBaseVersion> version_;
};

TEST_F(ImportVersionTest, CellsConvertByTheirTypeText) {
  const Texts names{"WellID", "WellSymbol", "Kb", "", "WellName", "WellType"};
  const Texts types{"text", "integer", "double precision", "text", "text", "float"};
  sql_.clear();
  ASSERT_TRUE(oper_->ImportRows("w_well_data", names, types,
                                {{"W1", "12abc", "", "skipped", "", "3.5"}, {"W2", "", "7.25x", "skipped", "n2"}}));
  EXPECT_EQ(sql_.texts("GetDataFromDB"), Texts{"select * from w_well_data "});
  EXPECT_EQ(Query("select WellSymbol from w_well_data order by WellID"), (Texts{"12", "NULL"}));
  EXPECT_EQ(Query("select Kb from w_well_data order by WellID"), (Texts{"NULL", "7.25"}));
  EXPECT_EQ(Query("select WellName from w_well_data order by WellID"), (Texts{"", "n2"}));   // empty text stored
  EXPECT_EQ(Query("select WellType from w_well_data order by WellID"), (Texts{"3.5", "NULL"}));  // "float" is text
}

TEST_F(ImportVersionTest, DoubleWinsOverIntAndMissingTablesFail) {
  ASSERT_TRUE(oper_->ImportRows("w_well_data", {"WellID", "Kb"}, {"text", "int double"}, {{"W1", "2.75"}}));
  EXPECT_EQ(Query("select Kb from w_well_data"), Texts{"2.75"});
  EXPECT_TRUE(oper_->ImportRows("no_such_table", {"a"}, {"text"}, {}));  // no rows: nothing touched
  EXPECT_FALSE(oper_->ImportRows("no_such_table", {"a"}, {"text"}, {{"x"}}));
  // A row that cannot be written fails the whole import.
  EXPECT_FALSE(oper_->ImportRows("w_well_data", {"WellID", "NoColumn"}, {"text", "text"}, {{"W2", "x"}}));
  EXPECT_EQ(Query("select WellID from w_well_data"), Texts{"W1"});
  EXPECT_TRUE(messages_.texts().empty());
}

TEST_F(ImportVersionTest, VersionsReadAndImageTypeIsSetOnEveryRow) {
  std::vector<VersionRecord> versions;
  EXPECT_FALSE(version_->GetVersions(versions));  // empty table
  Exec("insert into Version (DBNO, ImageType) values ('3.1', 'bmp')");
  Exec("insert into Version (DBNO, ImageType) values ('3.2', 'bmp')");
  sql_.clear();
  ASSERT_TRUE(version_->SetImageType(VersionRecord{"ignored", "png"}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), Texts{"update Version set ImageType = 'png' where DBNO is not null"});
  ASSERT_TRUE(version_->GetVersions(versions));
  ASSERT_EQ(versions.size(), 2u);
  EXPECT_EQ(versions[1].ImageType, "png");
  // The list is cleared first; a NULL ImageType ends it, the rows before it stay.
  Exec("insert into Version (DBNO) values ('3.3')");
  versions.resize(5);
  EXPECT_FALSE(version_->GetVersions(versions));
  ASSERT_EQ(versions.size(), 2u);
  EXPECT_EQ(versions[0].DBNO, "3.1");

  Exec("drop table Version");
  EXPECT_FALSE(version_->SetImageType(VersionRecord{"", "png"}));
  EXPECT_EQ(messages_.texts(), Texts{"请先更新数据库！"});
}

}  // namespace
}  // namespace petrodb::test
