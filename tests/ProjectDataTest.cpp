// Projects: the catalogue rows, the recent list, new project files, and the
// factory's depth unit.
#include <filesystem>
#include <fstream>
#include <set>
#include <tuple>

#include <unistd.h>

#include "TestSupport.h"
#include "dbaccess/DbManage.h"
#include "petrodb/project/IBasicProjectData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

namespace fs = std::filesystem;

class ProjectDataTest : public ObjectTest<IBasicProjectData, "IBasicProjectData"> {
 protected:
  // Every path below `root` (empty when `root` is not a directory).
  static std::set<fs::path> Listing(const fs::path& root) {
    std::set<fs::path> paths;
    std::error_code ec;
    for (fs::recursive_directory_iterator it(root, ec), end; !ec && it != end; it.increment(ec))
      paths.insert(it->path());
    return paths;
  }

  static ProjectRecord Sample(const std::string& name) {
    return {.ProjectName = name, .Description = "油田 north", .AutoCalcMinMax = '1', .SNmin = 1.5, .SNmax = 2.5,
            .EWmin = -3.25, .EWmax = 4e6, .DepthUnit = 1, .Ellipsoid = {.SemiMajor = 6378137.0},
            .Projection = {.CentralMeridian = 117.0}, .CooridnateType = 2};
  }
};

TEST_F(ProjectDataTest, SaveAndLoadRoundTripAndSavingAgainReplacesTheRow) {
  ProjectRecord r = Sample("North");
  r.CreatedDate = "1999-1-1 0:0:0";  // ignored: every save stamps the current time
  sql_.clear();
  ASSERT_TRUE(object_->SaveProject(r));
  // The table is probed twice, then the row replaced.
  auto sent = sql_.texts();
  ASSERT_EQ(sent.size(), 4u);
  sent[3].resize(26);
  EXPECT_EQ(sent, (Texts{"b_project_data", "b_project_data", "delete from b_project_data where ProjectName='North'",
                         "insert into b_project_data"}));
  ProjectRecord loaded;
  ASSERT_TRUE(object_->LoadProject("North", loaded));
  // The fields the sample sets; the column names are checked against the schema elsewhere.
  auto stored = [](const ProjectRecord& r) {
    return std::tie(r.ProjectName, r.Description, r.AutoCalcMinMax, r.SNmin, r.SNmax, r.EWmin, r.EWmax, r.DepthUnit,
                    r.CooridnateType, r.Ellipsoid.SemiMajor, r.Projection.CentralMeridian);
  };
  EXPECT_EQ(stored(loaded), stored(r));
  EXPECT_EQ(loaded.CreatedDate.substr(0, 4), std::to_string(DateTime::Now().year));

  r.Description = "second";
  ASSERT_TRUE(object_->SaveProject(r));
  EXPECT_EQ(Query("select Description from b_project_data"), Texts{"second"});
  // CreatedDate is a text column: it keeps the unpadded form the save writes.
  Exec("update b_project_data set CreatedDate = '2024-1-5 3:4:5'");
  ASSERT_TRUE(object_->LoadProject("North", loaded));
  EXPECT_EQ(loaded.CreatedDate, "2024-1-5 3:4:5");
}

TEST_F(ProjectDataTest, LoadFailsOnAMissingColumnButNotOnAMissingDepthUnit) {
  ASSERT_TRUE(object_->SaveProject(Sample("North")));
  Exec("alter table b_project_data drop column DepthUnit");
  ProjectRecord loaded;
  loaded.DepthUnit = 7;
  ASSERT_TRUE(object_->LoadProject("North", loaded));
  EXPECT_EQ(loaded.DepthUnit, 0);
  Exec("update b_project_data set ScaleFactor = null");
  ProjectRecord partial;
  EXPECT_FALSE(object_->LoadProject("North", partial));
  EXPECT_EQ(partial.Description, "油田 north");  // what was read before the gap stays
}

TEST_F(ProjectDataTest, EmptyNamesAndMissingTablesAreRefusedWithTheirMessages) {
  EXPECT_FALSE(object_->SaveProject(ProjectRecord{}));
  EXPECT_FALSE(object_->DeleteProject(""));
  Exec("drop table b_project_data");
  EXPECT_FALSE(object_->SaveProject(Sample("North")));
  EXPECT_FALSE(object_->DeleteProject("North"));
  EXPECT_FALSE(object_->IsProjectExist("North"));
  Texts names;
  EXPECT_FALSE(object_->GetProjectNames(names));
  EXPECT_EQ(messages_.texts(), (Texts{"工区名不能为空！", "工区名称不能为空！", "数据库连接失败或工区表不存在！"}));
}

TEST_F(ProjectDataTest, AQuoteInANameFindsNothingAndDeletesNothing) {
  ASSERT_TRUE(object_->SaveProject(Sample("North")));
  EXPECT_FALSE(object_->IsProjectExist("North' or '1'='1"));
  EXPECT_TRUE(object_->DeleteProject("North' or '1'='1"));  // the delete's result is not looked at
  EXPECT_TRUE(object_->IsProjectExist("North"));
  EXPECT_TRUE(object_->IsProjectExist("north"));  // names compare ignoring case
  EXPECT_FALSE(object_->TouchRecentProject("it's", 0));
  EXPECT_TRUE(Query("select projectName from b_project_recent").empty());

  // The delete answers true whether or not it ran, but a name it cannot hold
  // is not saved: such a row could never be reached again.
  EXPECT_FALSE(object_->SaveProject(Sample("it's")));
  EXPECT_EQ(Query("select ProjectName from b_project_data"), Texts{"North"});
  EXPECT_TRUE(messages_.messages().empty());
}

TEST_F(ProjectDataTest, NameListsReplaceWhatTheVectorHeldAndSkipUnreadableNames) {
  ASSERT_TRUE(object_->SaveProject(Sample("North")));
  Exec("insert into b_project_data (Description) values ('nameless')");
  Texts names{"stale"};
  ASSERT_TRUE(object_->GetProjectNames(names));
  EXPECT_EQ(names, Texts{"North"});
  Exec("delete from b_project_data where Description = 'nameless'");
  Exec("update b_project_data set ProjectName = NULL");
  EXPECT_FALSE(object_->GetProjectNames(names));  // rows, but none readable
  EXPECT_TRUE(names.empty());
}

TEST_F(ProjectDataTest, RecentProjectsKeepEachNameOnceMostRecentFirst) {
  ASSERT_TRUE(object_->TouchRecentProject("A", 0));
  Exec("update b_project_recent set accessTime = '2001-01-01 00:00:00'");
  ASSERT_TRUE(object_->TouchRecentProject("B", 0));
  Exec("update b_project_recent set accessTime = '2002-01-01 00:00:00' where projectName = 'B'");
  sql_.clear();
  ASSERT_TRUE(object_->TouchRecentProject("A", 0));
  EXPECT_EQ(sql_.texts(), (Texts{"select * from b_project_recent where projectName ='A'",
                                 "delete from b_project_recent where projectName ='A'",
                                 "insert into b_project_recent (projectName, accessTime) values (?, ?)"}));
  Texts names;
  ASSERT_TRUE(object_->GetRecentProjects(names));
  EXPECT_EQ(names, (Texts{"A", "B"}));
}

TEST_F(ProjectDataTest, CreateProjectCopiesTheTemplateOnceAndAFailureLeavesNothingBehind) {
  if (!jet()) GTEST_SKIP() << "project files are local";
  const std::string parent = dir_.string();
  const std::string templates = TemplateFile().parent_path().string(), none = (dir_ / "no-templates").string();
  ASSERT_TRUE(object_->CreateProject("Field", parent.c_str(), templates.c_str()));
  const fs::path file = dir_ / "Field" / "Field.mdb";
  ASSERT_TRUE(fs::exists(file));
  EXPECT_NE(fs::status(file).permissions() & fs::perms::owner_write, fs::perms::none);
  EXPECT_FALSE(object_->CreateProject("Field", parent.c_str(), templates.c_str()));
  EXPECT_FALSE(object_->CreateProject("Other", parent.c_str(), none.c_str()));
  EXPECT_TRUE(object_->CreateProjectDirectory("Field", parent.c_str()));  // already a directory
  std::ofstream(dir_ / "plainfile") << "x";
  EXPECT_FALSE(object_->CreateProjectDirectory("plainfile", parent.c_str()));
  EXPECT_EQ(messages_.texts(), (Texts{"该工区已经存在，请重新操作！", "创建工区失败!\n因为无法拷贝缺省数据库。", "创建工区失败!\n工区目录下可能已有名为plainfile的工区。"}));
  EXPECT_EQ(fs::file_size(file), fs::file_size(TemplateFile()));

  // Whatever makes a creation fail, the parent holds afterwards what it held
  // before: no project directory the call made, no partial file.
  const fs::path root = dir_ / "parent", readOnly = root / "locked";
  fs::create_directories(root / "Kept");
  fs::create_directory(readOnly);
  std::ofstream(root / "afile") << "x";
  fs::permissions(readOnly, fs::perms::owner_read | fs::perms::owner_exec);
  // The template missing, with and without the project directory already there;
  // the parent a file; the parent read-only (the superuser writes into it anyway).
  const std::tuple<const char*, fs::path, std::string> cases[] = {
      {"New", root, none}, {"Kept", root, none}, {"New", root / "afile", templates}, {"New", readOnly, templates}};
  for (const auto& [name, where, from] : cases) {
    if (where == readOnly && geteuid() == 0) continue;
    const auto before = Listing(where);
    EXPECT_FALSE(object_->CreateProject(name, where.string().c_str(), from.c_str())) << where << name;
    EXPECT_EQ(Listing(where), before) << where << name;
  }
  fs::permissions(readOnly, fs::perms::owner_all);
}

TEST_F(ProjectDataTest, CreateProjectDatabaseOnAnEngineWithoutServerCatalogueFails) {
  if (!jet()) GTEST_SKIP() << "the server case is covered by the server suite";
  int begun = 0, ended = 0;
  SetProgressHandler({[&](const std::string& text) {
                        EXPECT_EQ(text, "系统正在创建数据库，请耐心等候...");
                        ++begun;
                      },
                      [&] { ++ended; },
                      {}});
  sql_.clear();
  EXPECT_FALSE(object_->CreateProjectDatabase("newdb", connection_.c_str()));
  SetProgressHandler({});
  EXPECT_EQ(begun, 1);
  EXPECT_EQ(ended, 1);
  ASSERT_EQ(sql_.texts().size(), 2u);
  EXPECT_EQ(sql_.texts()[0], "select * from sysdatabases where name='newdb'");
  const std::string dir = ProgramDirectory();
  EXPECT_EQ(sql_.texts()[1], "RESTORE FILELISTONLY FROM DISK = '" + dir + "/orvex.bak' RESTORE DATABASE newdb FROM "
                             "DISK = '" + dir + "/orvex.bak' WITH MOVE 'orvex_Data' TO '" + dir +
                             "/newdb.mdf',MOVE 'orvex_Log' TO '" + dir + "/newdb.ldf'");
  EXPECT_TRUE(messages_.messages().empty());
}

TEST_F(ProjectDataTest, FactoryReadsTheDepthUnitOnceUntilASetterRuns) {
  EXPECT_EQ(factory_->GetDepthFactor(true), 3.2808);
  ASSERT_TRUE(object_->SaveProject(Sample("Test")));  // in feet
  sql_.clear();
  EXPECT_EQ(factory_->IsDepthInFeet(), 1);
  EXPECT_STREQ(factory_->GetDepthUnitName(), "英尺");
  EXPECT_EQ(sql_.texts().size(), 1u);  // cached after the first read
  Exec("update b_project_data set DepthUnit = 0");
  EXPECT_EQ(factory_->IsDepthInFeet(), 1);
  factory_->SetConnectionString(connection_.c_str());  // same text: still forces a new read
  EXPECT_EQ(factory_->IsDepthInFeet(), 0);
  factory_->SetProjectName("Unknown");
  EXPECT_EQ(factory_->IsDepthInFeet(), 0);
  EXPECT_TRUE(messages_.messages().empty());
}

TEST(Factory, EmptyProjectNameAnswersMetresWithoutTheDatabase) {
  SqlRecorder sql;
  IDataFactory* f = CreateDataFactoryObject();
  ASSERT_NE(f, nullptr);
  f->SetConnectionString("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/nonexistent/x.mdb");
  EXPECT_STREQ(f->GetDepthUnitName(), "米");
  EXPECT_TRUE(sql.events().empty());
  DeleteDataFactory(f);
  DeleteDataFactory(nullptr);
}

}  // namespace
}  // namespace petrodb::test
