// One operation, one transaction: sessions of one operation share a connection
// and commit together; a failed save undoes the operation; the internal
// statements stay out of the trace.
#include <sys/wait.h>
#include <unistd.h>

#include "TestSupport.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Pool.h"
#include "petrodb/project/IBasicWellData.h"

namespace petrodb::test {
namespace {

class TransactionTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    Exec("create table t_txn (k text, n double precision)");
    Exec("insert into t_txn (k, n) values ('old', 1)");
  }
  // A replace as the data classes take it: delete in one session, write in another.
  bool Replace(CDbManage& outer, const char* k, const char* badColumn = nullptr) {
    {
      CDbManage inner(connection_.c_str());
      inner.ExecuteSQL("delete from t_txn");
    }
    outer.BeginSaveData("t_txn");
    outer.AddNew();
    outer.SetFieldValue("k", k);
    if (badColumn) outer.SetFieldValue(badColumn, 1.0);
    return outer.SaveData();
  }
  std::vector<std::string> Keys() { return Query("select k from t_txn order by k"); }
};

TEST_F(TransactionTest, NestedSessionsCommitWithTheOutermost) {
  {
    CDbManage outer(connection_.c_str());
    {
      CDbManage inner(connection_.c_str());
      EXPECT_TRUE(inner.ExecuteSQL("delete from t_txn"));
    }
    // The outer session sees the inner one's write; nothing is committed yet.
    EXPECT_EQ(outer.GetDataFromDB("select * from t_txn"), kNoRows);
    EXPECT_EQ(Keys(), std::vector<std::string>{"old"});
  }
  EXPECT_TRUE(Keys().empty());
}

TEST_F(TransactionTest, AReplaceIsOneUnitAndAFailedSaveKeepsTheOldRecord) {
  {
    CDbManage outer(connection_.c_str());
    EXPECT_FALSE(Replace(outer, "new", "no_such_column"));
  }
  EXPECT_EQ(Keys(), std::vector<std::string>{"old"});
  {
    CDbManage outer(connection_.c_str());
    EXPECT_TRUE(Replace(outer, "new"));
    // The owner's save committed: another connection sees the new record.
    EXPECT_EQ(Keys(), std::vector<std::string>{"new"});
  }
  if (onServer()) {  // a value the server rejects (not a number) is a rejected row too
    CDbManage outer(connection_.c_str());
    {
      CDbManage inner(connection_.c_str());
      inner.ExecuteSQL("delete from t_txn");
    }
    outer.BeginSaveData("t_txn");
    outer.AddNew();
    outer.SetFieldValue("k", "bad");
    outer.SetFieldValue("n", "not a number");
    EXPECT_FALSE(outer.SaveData());
  }
  EXPECT_EQ(Keys(), std::vector<std::string>{"new"});
}

TEST_F(TransactionTest, AFailedStatementUndoesOnlyItself) {
  {
    CDbManage db(connection_.c_str());
    EXPECT_TRUE(db.ExecuteSQL("delete from t_txn where k = 'old'"));
    EXPECT_FALSE(db.ExecuteSQL("delete from no_such_table"));  // the operation goes on
    EXPECT_EQ(db.GetDataFromDB("select * from no_such_table"), kFailed);
    EXPECT_TRUE(db.ExecuteSQL("insert into t_txn (k) values ('after')"));
  }
  EXPECT_EQ(Keys(), std::vector<std::string>{"after"});
}

TEST_F(TransactionTest, AnOperationScopeCommitsOrRollsBack) {
  {
    db::Operation op(connection_);
    CDbManage a(connection_.c_str());
    EXPECT_TRUE(a.ExecuteSQL("delete from t_txn"));
    CDbManage b(connection_.c_str());
    b.BeginSaveData("t_txn");
    b.AddNew();
    b.SetFieldValue("k", "scoped");
    EXPECT_TRUE(b.SaveData());  // inside a scope a save commits nothing
    EXPECT_EQ(Keys(), std::vector<std::string>{"old"});
  }  // no Commit: rolled back
  EXPECT_EQ(Keys(), std::vector<std::string>{"old"});
  {
    db::Operation op(connection_);
    {
      CDbManage a(connection_.c_str());
      EXPECT_TRUE(a.ExecuteSQL("update t_txn set k = 'committed'"));
    }
    EXPECT_TRUE(op.Commit());
  }
  EXPECT_EQ(Keys(), std::vector<std::string>{"committed"});
  // A member's failed save leaves the operation failed: later writes do not run.
  {
    db::Operation op(connection_);
    CDbManage a(connection_.c_str());
    EXPECT_TRUE(a.ExecuteSQL("delete from t_txn"));
    a.BeginSaveData("t_txn");
    a.AddNew();
    a.SetFieldValue("no_such_column", 1);
    EXPECT_FALSE(a.SaveData());
    sql_.clear();
    EXPECT_FALSE(a.ExecuteSQL("insert into t_txn (k) values ('half')"));
    ASSERT_EQ(sql_.events().size(), 1u);
    EXPECT_NE(sql_.events()[0].error.find("undone"), std::string::npos) << sql_.events()[0].error;
    EXPECT_EQ(a.GetDataFromDB("select * from t_txn"), kRowsFound);  // reads still run
    EXPECT_FALSE(op.Commit());
  }
  EXPECT_EQ(Keys(), std::vector<std::string>{"committed"});
}

TEST_F(TransactionTest, TheTraceHoldsOnlyTheModulesStatements) {
  {
    CDbManage outer(connection_.c_str());
    outer.GetDataFromDB("t_txn");
    Replace(outer, "new");
  }
  EXPECT_EQ(sql_.texts(), (std::vector<std::string>{"t_txn", "delete from t_txn",
                                                    "insert into t_txn (k) values (?)"}));
}

TEST_F(TransactionTest, TwoProcessesReplacingOneWellLeaveOneRow) {
  auto wells = Make<IBasicWellData>("IBasicWellData");
  WellRecord w;
  w.WellID = "W1";
  ASSERT_TRUE(wells->SaveWell("P", w));
  db::ClearConnectionPool();  // children open connections of their own
  std::vector<pid_t> children;
  for (int c = 0; c < 2; ++c) {
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
      SetMessageHandler([](MessageStyle, const std::string&, const std::string&) {});
      IDataFactory* factory = CreateDataFactoryObject();
      auto* mine = static_cast<IBasicWellData*>(factory->CreateObject("IBasicWellData"));
      mine->SetConnection(connection_.c_str());
      bool ok = true;
      for (int i = 0; i < 40 && ok; ++i) {
        WellRecord r;
        r.WellID = "W1";
        r.Kb = c * 1000 + i;
        ok = mine->SaveWell("P", r);
      }
      _exit(ok ? 0 : 1);
    }
    children.push_back(pid);
  }
  // A reader meanwhile always finds the well.
  int missing = 0, polls = 0;
  std::vector<int> statuses(children.size(), -1);
  for (std::size_t left = children.size(); left > 0;) {
    for (std::size_t c = 0; c < children.size(); ++c)
      if (statuses[c] == -1 && waitpid(children[c], &statuses[c], WNOHANG) == children[c]) --left;
    missing += wells->IsWellIDExist("P", "W1") ? 0 : 1;
    ++polls;
  }
  for (int status : statuses) EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  EXPECT_EQ(missing, 0) << "of " << polls << " polls";
  EXPECT_EQ(Query("select count(*) from w_well_data where WellID = 'W1'"), std::vector<std::string>{"1"});
}

}  // namespace
}  // namespace petrodb::test
