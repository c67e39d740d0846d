// Local project files: what happens with files that are not what they should be.
#include <chrono>
#include <filesystem>
#include <thread>

#include "TestSupport.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Pool.h"
#include "dbaccess/Schema.h"

namespace petrodb::test {
namespace {

namespace fs = std::filesystem;

class SqliteFileTest : public ::testing::Test {
 protected:
  void SetUp() override { dir_ = MakeTempDir(); }
  void TearDown() override {
    db::ClearConnectionPool();
    fs::permissions(dir_, fs::perms::owner_all, fs::perm_options::add);
    fs::remove_all(dir_);
  }
  static std::string Jet(const fs::path& p) { return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + p.string(); }
  fs::path dir_;
};

TEST_F(SqliteFileTest, AMissingFileIsNotCreated) {
  const fs::path file = dir_ / "absent.mdb";
  EXPECT_FALSE(CDbManage(Jet(file).c_str()).ExecuteSQL("delete from b_project_data"));
  EXPECT_FALSE(fs::exists(file));
}

TEST_F(SqliteFileTest, AReadOnlyFileReadsButRefusesWrites) {
  const fs::path file = dir_ / "ro.mdb";
  fs::copy_file(TemplateFile(), file);
  fs::permissions(file, fs::perms::owner_read | fs::perms::group_read);
  fs::permissions(dir_, fs::perms::owner_write, fs::perm_options::remove);
  // Root writes read-only files anyway; the read-only mode stands in for the permission then.
  CDbManage db((Jet(file) + (geteuid() == 0 ? ";Mode=Read" : "")).c_str());
  EXPECT_EQ(db.GetDataFromDB("b_project_data"), kNoRows);
  EXPECT_FALSE(db.ExecuteSQL("delete from b_project_data"));
  db.BeginSaveData("b_project_recent");
  db.AddNew();
  db.SetFieldValue("projectName", "x");
  EXPECT_FALSE(db.SaveData());
}

TEST_F(SqliteFileTest, AFileReplacedUnderThePoolIsReopened) {
  const fs::path file = dir_ / "p.mdb";
  fs::copy_file(TemplateFile(), file);
  ASSERT_TRUE(CDbManage(Jet(file).c_str()).ExecuteSQL("insert into b_project_recent (projectName) values ('old')"));
  // The project is deleted with its log files and made anew under the same name.
  for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(file.string() + suffix);
  fs::copy_file(TemplateFile(), file);
  // Back-to-back sessions skip the look at the file for up to a millisecond.
  std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_EQ(CDbManage(Jet(file).c_str()).GetDataFromDB("select * from b_project_recent"), kNoRows);
}

TEST_F(SqliteFileTest, TheTemplateHoldsEverySchemaTableWithLargePages) {
  CDbManage db(Jet(TemplateFile()).c_str());
  for (const auto& table : schema::Builtin().tables)
    EXPECT_NE(db.GetDataFromDB(table.name.c_str()), kFailed) << table.name;
  int pageSize = 0;
  ASSERT_TRUE(db.GetDataFromDB("pragma page_size") == kRowsFound && db.GetFieldValue("page_size", pageSize));
  EXPECT_EQ(pageSize, 65536);
}

TEST(SchemaSource, ParsesMergesAndRejectsWithTheLine) {
  const auto s = schema::Parse("# comment\ntable t\n  a text\n  b doubles\ntable t\n  b doubles\n  c date\n"
                               "alias t.a2 = a\nview v of t\nindex t a,c\n");
  ASSERT_EQ(s.tables.size(), 1u);
  EXPECT_EQ(s.tables[0].FindColumn("C")->type, schema::Type::Date);
  EXPECT_EQ(schema::RenderSqlite(s),
            (std::vector<std::string>{"create table t (a TEXT COLLATE NOCASE, b BLOB, c DATETEXT, a2 TEXT COLLATE NOCASE "
                                      "generated always as (a) virtual);",
                                      "create index ix_t_a_c on t (a, c);", "create view v as select * from t;"}));
  EXPECT_THROW(schema::Parse("table t\n  a text\ntable t\n  a int\n"), std::runtime_error);
  EXPECT_THROW(schema::Parse("alias t.x = nothing\ntable t\n  a text\n"), std::runtime_error);
  try {
    schema::Parse("table t\n  a number\n");
    FAIL();
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ(e.what(), "schema line 2: unknown type \"number\"");
  }
}

TEST_F(SqliteFileTest, AliasesWorkOnNewFilesAndCanBeLeftOut) {
  const auto s = schema::Parse("table people\n  UserLogname text\nalias people.UnitLogname = UserLogname\n"
                               "view persons of people\n");
  for (bool withAliases : {true, false}) {
    const auto file = dir_ / (withAliases ? "with.mdb" : "without.mdb");
    std::string error;
    ASSERT_TRUE(schema::CreateSqliteFile(withAliases ? s : schema::WithoutAliases(s), file.string(), error)) << error;
    CDbManage db(Jet(file).c_str());
    ASSERT_TRUE(db.ExecuteSQL("insert into people (UserLogname) values ('Zhang')"));
    EXPECT_EQ(db.GetDataFromDB("select * from people where UnitLogname = 'zhang'"), withAliases ? kRowsFound : kFailed);
    EXPECT_EQ(db.GetDataFromDB("select * from persons"), withAliases ? kRowsFound : kFailed);
  }
}

}  // namespace
}  // namespace petrodb::test
