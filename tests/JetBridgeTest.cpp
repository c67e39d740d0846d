// Access statements run on local project files with their Access meaning.
#include "TestSupport.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/JetBridge.h"

namespace petrodb::test {
namespace {

class JetBridgeTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    if (!jet()) GTEST_SKIP() << "Access statements are for local project files";
  }
  void Touch(const std::string& name, const std::string& when) {
    CDbManage db(connection_.c_str());
    db.BeginSaveData("b_project_recent");
    db.AddNew();
    db.SetFieldValue("projectName", name);
    db.SetFieldValue("accessTime", when);
    ASSERT_TRUE(db.SaveData());
  }
  std::vector<std::string> Names(const char* sql) {
    std::vector<std::string> names;
    CDbManage db(connection_.c_str());
    if (db.GetDataFromDB(sql) != kRowsFound) return names;
    while (db.Read()) {
      std::string n;
      db.GetFieldValue("projectName", n);
      names.push_back(n);
    }
    return names;
  }
};

TEST_F(JetBridgeTest, DeleteStarRemovesTheRows) {
  Touch("a", "2020-1-1 0:0:0");
  Touch("b", "2020-1-2 0:0:0");
  CDbManage db(connection_.c_str());
  sql_.clear();
  EXPECT_TRUE(db.ExecuteSQL("delete * from b_project_recent where projectName = 'a'"));
  EXPECT_EQ(sql_.events().at(0).sent, "delete from b_project_recent where projectName = 'a'");
  EXPECT_EQ(Names("select projectName from b_project_recent"), std::vector<std::string>{"b"});
  EXPECT_TRUE(db.ExecuteSQL("DELETE  *  FROM b_project_recent"));
  EXPECT_TRUE(Names("select projectName from b_project_recent").empty());
}

TEST_F(JetBridgeTest, LcaseAndUcaseAreFunctionsOutsideLiteralsOnly) {
  Touch("MiXed", "2020-1-1 0:0:0");
  Touch("lcase(x)", "2020-1-1 0:0:0");
  EXPECT_EQ(Names("select lcase(projectName) as projectName from b_project_recent where lcase(projectName) = 'mixed'"),
            std::vector<std::string>{"mixed"});
  EXPECT_EQ(Names("select UCASE (projectName) as projectName from b_project_recent where projectName = 'lcase(x)'"),
            std::vector<std::string>{"LCASE(X)"});
}

TEST_F(JetBridgeTest, UnpaddedDatesOrderAndCompareChronologically) {
  Touch("third", "2020-10-2 10:0:0");
  Touch("first", "2020-1-5 9:3:7");
  Touch("second", "2020-2-15 0:0:0");
  EXPECT_EQ(Names("select projectName from b_project_recent order by accessTime"),
            (std::vector<std::string>{"first", "second", "third"}));
  EXPECT_EQ(Names("select projectName from b_project_recent where accessTime > #2020-2-1 0:0:0# order by accessTime"),
            (std::vector<std::string>{"second", "third"}));
  EXPECT_EQ(Names("select projectName from b_project_recent where accessTime = #2020/2/15#"),
            std::vector<std::string>{"second"});
  EXPECT_EQ(Names("select projectName from b_project_recent where accessTime = '2020-1-5 9:3:7'"),
            std::vector<std::string>{"first"});
  EXPECT_EQ(Query("select accessTime from b_project_recent where projectName = 'first'"),
            std::vector<std::string>{"2020-01-05 09:03:07"});
}

TEST_F(JetBridgeTest, SelectAllDistinct) {
  Touch("a", "2020-1-1 0:0:0");
  Touch("a", "2020-1-2 0:0:0");
  Touch("b", "2020-1-2 0:0:0");
  EXPECT_EQ(Names("select all distinct projectName from b_project_recent order by projectName"),
            (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(Names("select projectName from b_project_recent where projectName in (select all distinct projectName "
                  "from b_project_recent where projectName = 'b')"),
            std::vector<std::string>{"b"});
}

TEST_F(JetBridgeTest, MultiTableUpdateSetsTheFirstTable) {
  Exec("create table p_params (Vsp_ProjID integer, Algo_name text, Output_file text)");
  Exec("create table p_paths (Algo_name text, Algo_path text)");
  Exec("insert into p_params values (1, 'stack', 'old'), (1, 'filter', 'old'), (2, 'stack', 'old')");
  Exec("insert into p_paths values ('stack', 'p'), ('filter', 'q')");
  {
    CDbManage db(connection_.c_str());
    EXPECT_TRUE(db.ExecuteSQL(
        "update p_params A, p_paths B set Output_file = 'new' where A.Vsp_ProjID = 1  and B.Algo_path ='p' and "
        "A.Output_file = 'old' and A.Algo_name = B.Algo_name"));
  }
  EXPECT_EQ(Query("select Output_file from p_params order by Vsp_ProjID, Algo_name"),
            (std::vector<std::string>{"old", "new", "old"}));
  {
    CDbManage db(connection_.c_str());
    EXPECT_TRUE(db.ExecuteSQL("update p_params A, p_paths B set A.Output_file = B.Algo_path where A.Algo_name = "
                              "B.Algo_name and A.Vsp_ProjID = 2"));
  }
  EXPECT_EQ(Query("select Output_file from p_params where Vsp_ProjID = 2"), std::vector<std::string>{"p"});
}

TEST(JetRewrite, LeavesOrdinaryStatementsAlone) {
  const std::string plain = "select * from w_well_data where ProjectName = 'A#1' and WellID = 'x*y'";
  EXPECT_EQ(db::RewriteJetForSqlite(plain), plain);
  EXPECT_EQ(db::RewriteJetForSqlite("select count(*) from t"), "select count(*) from t");
  EXPECT_EQ(db::NormaliseDateText("2020-1-5", true), "2020-01-05 00:00:00");
  EXPECT_EQ(db::NormaliseDateText("2020-1-5", false), "2020-1-5");
  EXPECT_EQ(db::NormaliseDateText("W-1-5 1:2:3", true), "W-1-5 1:2:3");
}

}  // namespace
}  // namespace petrodb::test
