// Generic row import and the schema version table.
#include "TestSupport.h"
#include "petrodb/IBasicDataOper.h"
#include "petrodb/IDataBaseVersion.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;
using ImportTest = ObjectTest<IBasicDataOper, "IBasicDataOper">;
using VersionTest = ObjectTest<IDataBaseVersion, "IDataBaseVersion">;

TEST_F(ImportTest, CellsConvertByTheirTypeText) {
  const Texts names{"WellID", "WellSymbol", "Kb", "", "WellName", "WellType"};
  const Texts types{"text", "integer", "double precision", "text", "text", "float"};
  ASSERT_TRUE(object_->ImportRows("w_well_data", names, types,
                                  {{"W1", "12abc", "", "skipped", "", "3.5"}, {"W2", "", "7.25x", "skipped", "n2"}}));
  EXPECT_EQ(sql_.texts("GetDataFromDB"), Texts{"select * from w_well_data "});
  EXPECT_EQ(Query("select WellSymbol from w_well_data order by WellID"), (Texts{"12", "NULL"}));
  EXPECT_EQ(Query("select Kb from w_well_data order by WellID"), (Texts{"NULL", "7.25"}));
  EXPECT_EQ(Query("select WellName from w_well_data order by WellID"), (Texts{"", "n2"}));   // empty text stored
  EXPECT_EQ(Query("select WellType from w_well_data order by WellID"), (Texts{"3.5", "NULL"}));  // "float" is text
}

TEST_F(ImportTest, DoubleWinsOverIntAndMissingTablesFail) {
  ASSERT_TRUE(object_->ImportRows("w_well_data", {"WellID", "Kb"}, {"text", "int double"}, {{"W1", "2.75"}}));
  EXPECT_EQ(Query("select Kb from w_well_data"), Texts{"2.75"});
  EXPECT_TRUE(object_->ImportRows("no_such_table", {"a"}, {"text"}, {}));  // no rows: nothing touched
  EXPECT_FALSE(object_->ImportRows("no_such_table", {"a"}, {"text"}, {{"x"}}));
  // A row that cannot be written fails the whole import.
  EXPECT_FALSE(object_->ImportRows("w_well_data", {"WellID", "NoColumn"}, {"text", "text"}, {{"W2", "x"}}));
  EXPECT_EQ(Query("select WellID from w_well_data"), Texts{"W1"});
  EXPECT_TRUE(messages_.texts().empty());
}

TEST_F(VersionTest, VersionsReadAndImageTypeIsSetOnEveryRow) {
  std::vector<VersionRecord> versions;
  EXPECT_FALSE(object_->GetVersions(versions));  // empty table
  Exec("insert into Version (DBNO, ImageType) values ('3.1', 'bmp'), ('3.2', 'bmp')");
  ASSERT_TRUE(object_->SetImageType(VersionRecord{"ignored", "png"}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), Texts{"update Version set ImageType = 'png' where DBNO is not null"});
  ASSERT_TRUE(object_->GetVersions(versions));
  ASSERT_EQ(versions.size(), 2u);
  EXPECT_EQ(versions[1].ImageType, "png");
  Exec("drop table Version");
  EXPECT_FALSE(object_->SetImageType(VersionRecord{"", "png"}));
  EXPECT_EQ(messages_.texts(), Texts{"请先更新数据库！"});
}

}  // namespace
}  // namespace petrodb::test
