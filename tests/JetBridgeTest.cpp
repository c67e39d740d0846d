// Access statements run on local project files with their Access meaning.
#include <utility>

#include "TestSupport.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/JetBridge.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class JetBridgeTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    if (!jet()) GTEST_SKIP() << "Access statements are for local project files";
  }
  // Recent projects: {name, access time}.
  void Touch(std::initializer_list<std::pair<const char*, const char*>> rows) {
    CDbManage db(connection_.c_str());
    db.BeginSaveData("b_project_recent");
    for (const auto& [name, when] : rows) {
      db.AddNew();
      db.SetFieldValue("projectName", name);
      db.SetFieldValue("accessTime", when);
    }
    ASSERT_TRUE(db.SaveData());
  }
};

TEST_F(JetBridgeTest, DeleteStarRemovesTheRows) {
  Touch({{"a", "2020-1-1 0:0:0"}, {"b", "2020-1-2 0:0:0"}});
  sql_.clear();
  EXPECT_TRUE(CDbManage(connection_.c_str()).ExecuteSQL("delete * from b_project_recent where projectName = 'a'"));
  EXPECT_EQ(sql_.events().at(0).sent, "delete from b_project_recent where projectName = 'a'");
  EXPECT_EQ(Query("select projectName from b_project_recent"), Texts{"b"});
  EXPECT_TRUE(CDbManage(connection_.c_str()).ExecuteSQL("DELETE  *  FROM b_project_recent"));
  EXPECT_TRUE(Query("select projectName from b_project_recent").empty());
}

TEST_F(JetBridgeTest, LcaseAndUcaseAreFunctionsOutsideLiteralsOnly) {
  Touch({{"MiXed", "2020-1-1 0:0:0"}, {"lcase(x)", "2020-1-1 0:0:0"}});
  EXPECT_EQ(Query("select lcase(projectName) as projectName from b_project_recent where lcase(projectName) = 'mixed'"),
            Texts{"mixed"});
  EXPECT_EQ(Query("select UCASE (projectName) as projectName from b_project_recent where projectName = 'lcase(x)'"),
            Texts{"LCASE(X)"});
}

TEST_F(JetBridgeTest, AccessDateLiteralsCompareChronologically) {
  Touch({{"third", "2020-10-2 10:0:0"}, {"first", "2020-1-5 9:3:7"}, {"second", "2020-2-15 0:0:0"}});
  EXPECT_EQ(Query("select projectName from b_project_recent where accessTime > #2020-2-1 0:0:0# order by accessTime"),
            (Texts{"second", "third"}));
  EXPECT_EQ(Query("select projectName from b_project_recent where accessTime = #2020/2/15#"), Texts{"second"});
}

TEST_F(JetBridgeTest, SelectAllDistinct) {
  Touch({{"a", "2020-1-1 0:0:0"}, {"a", "2020-1-2 0:0:0"}, {"b", "2020-1-2 0:0:0"}});
  EXPECT_EQ(Query("select all distinct projectName from b_project_recent order by projectName"), (Texts{"a", "b"}));
  EXPECT_EQ(Query("select projectName from b_project_recent where projectName in (select all distinct projectName "
                  "from b_project_recent where projectName = 'b')"),
            Texts{"b"});
}

TEST_F(JetBridgeTest, MultiTableUpdateSetsTheFirstTable) {
  Exec("create table p_params (Vsp_ProjID integer, Algo_name text, Output_file text)");
  Exec("create table p_paths (Algo_name text, Algo_path text)");
  Exec("insert into p_params values (1, 'stack', 'old'), (1, 'filter', 'old'), (2, 'stack', 'old')");
  Exec("insert into p_paths values ('stack', 'p'), ('filter', 'q')");
  for (const char* update :
       {"update p_params A, p_paths B set Output_file = 'new' where A.Vsp_ProjID = 1  and B.Algo_path ='p' and "
        "A.Output_file = 'old' and A.Algo_name = B.Algo_name",
        "update p_params A, p_paths B set A.Output_file = B.Algo_path where A.Algo_name = B.Algo_name and "
        "A.Vsp_ProjID = 2"})
    EXPECT_TRUE(CDbManage(connection_.c_str()).ExecuteSQL(update)) << update;
  EXPECT_EQ(Query("select Output_file from p_params order by Vsp_ProjID, Algo_name"), (Texts{"old", "new", "p"}));
}

TEST(JetRewrite, LeavesOrdinaryStatementsAlone) {
  const std::string plain = "select * from w_well_data where ProjectName = 'A#1' and WellID = 'x*y'";
  EXPECT_EQ(db::RewriteJetForSqlite(plain), plain);
  EXPECT_EQ(db::NormaliseDateText("2020-1-5", false), "2020-1-5");
  EXPECT_EQ(db::NormaliseDateText("W-1-5 1:2:3", true), "W-1-5 1:2:3");
}

}  // namespace
}  // namespace petrodb::test
