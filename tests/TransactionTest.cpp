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

using Texts = std::vector<std::string>;

class TransactionTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    Exec("create table t_txn (k text, n double precision)");
    Exec("insert into t_txn (k, n) values ('old', 1)");
  }
  // A replace as the data classes take it: delete in one session, write in
  // another, with one more cell when `column` is given.
  bool Replace(CDbManage& outer, const char* k, const char* column = nullptr, const char* value = "1") {
    CDbManage(connection_.c_str()).ExecuteSQL("delete from t_txn");
    outer.BeginSaveData("t_txn");
    outer.AddNew();
    outer.SetFieldValue("k", k);
    if (column) outer.SetFieldValue(column, value);
    return outer.SaveData();
  }
  bool Replace(CDbManage&& outer, const char* k, const char* column = nullptr, const char* value = "1") {
    return Replace(outer, k, column, value);
  }
  Texts Keys() { return Query("select k from t_txn order by k"); }
};

TEST_F(TransactionTest, NestedSessionsCommitWithTheOutermost) {
  {
    CDbManage outer(connection_.c_str());
    EXPECT_TRUE(CDbManage(connection_.c_str()).ExecuteSQL("delete from t_txn"));
    // The outer session sees the inner one's write; nothing is committed yet.
    EXPECT_EQ(outer.GetDataFromDB("select * from t_txn"), kNoRows);
    EXPECT_EQ(Keys(), Texts{"old"});
  }
  EXPECT_TRUE(Keys().empty());
}

TEST_F(TransactionTest, AReplaceIsOneUnitAndAFailedSaveKeepsTheOldRecord) {
  EXPECT_FALSE(Replace(CDbManage(connection_.c_str()), "new", "no_such_column"));
  EXPECT_EQ(Keys(), Texts{"old"});
  {
    CDbManage outer(connection_.c_str());
    sql_.clear();
    EXPECT_TRUE(Replace(outer, "new"));
    // The owner's save committed: another connection sees the new record.
    EXPECT_EQ(Keys(), Texts{"new"});
  }
  // The trace holds only the module's statements, none of the transaction's own.
  EXPECT_EQ(sql_.texts(), (Texts{"delete from t_txn", "insert into t_txn (k) values (?)"}));
  // A value the server rejects (not a number) is a rejected row too.
  if (onServer()) {
    EXPECT_FALSE(Replace(CDbManage(connection_.c_str()), "bad", "n", "not a number"));
  }
  EXPECT_EQ(Keys(), Texts{"new"});
}

TEST_F(TransactionTest, AFailedStatementUndoesOnlyItself) {
  {
    CDbManage db(connection_.c_str());
    EXPECT_TRUE(db.ExecuteSQL("delete from t_txn where k = 'old'"));
    EXPECT_FALSE(db.ExecuteSQL("delete from no_such_table"));  // the operation goes on
    EXPECT_EQ(db.GetDataFromDB("select * from no_such_table"), kFailed);
    EXPECT_TRUE(db.ExecuteSQL("insert into t_txn (k) values ('after')"));
  }
  EXPECT_EQ(Keys(), Texts{"after"});
}

TEST_F(TransactionTest, AnOperationScopeCommitsOrRollsBack) {
  {
    db::Operation op(connection_);
    CDbManage a(connection_.c_str());
    EXPECT_TRUE(Replace(a, "scoped"));  // inside a scope a save commits nothing
    EXPECT_EQ(Keys(), Texts{"old"});
  }  // no Commit: rolled back
  EXPECT_EQ(Keys(), Texts{"old"});
  {
    db::Operation op(connection_);
    EXPECT_TRUE(CDbManage(connection_.c_str()).ExecuteSQL("update t_txn set k = 'committed'"));
    EXPECT_TRUE(op.Commit());
  }
  EXPECT_EQ(Keys(), Texts{"committed"});
  // A member's failed save leaves the operation failed: later writes do not run.
  {
    db::Operation op(connection_);
    CDbManage a(connection_.c_str());
    EXPECT_FALSE(Replace(a, "new", "no_such_column"));
    sql_.clear();
    EXPECT_FALSE(a.ExecuteSQL("insert into t_txn (k) values ('half')"));
    ASSERT_EQ(sql_.events().size(), 1u);
    EXPECT_NE(sql_.events()[0].error.find("undone"), std::string::npos) << sql_.events()[0].error;
    EXPECT_EQ(a.GetDataFromDB("select * from t_txn"), kRowsFound);  // reads still run, and see the undone delete
    EXPECT_FALSE(op.Commit());
  }
  EXPECT_EQ(Keys(), Texts{"committed"});
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
      auto* mine = static_cast<IBasicWellData*>(CreateDataFactoryObject()->CreateObject("IBasicWellData"));
      mine->SetConnection(connection_.c_str());
      bool ok = true;
      for (int i = 0; i < 40 && ok; ++i) ok = mine->SaveWell("P", w);
      _exit(ok ? 0 : 1);
    }
    children.push_back(pid);
  }
  // A reader meanwhile always finds the well.
  int missing = 0, polls = 0;
  std::vector<int> statuses(children.size(), -1);
  for (std::size_t left = children.size(); left > 0; ++polls) {
    for (std::size_t c = 0; c < children.size(); ++c)
      if (statuses[c] == -1 && waitpid(children[c], &statuses[c], WNOHANG) == children[c]) --left;
    missing += wells->IsWellIDExist("P", "W1") ? 0 : 1;
  }
  for (int status : statuses) EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  EXPECT_EQ(missing, 0) << "of " << polls << " polls";
  EXPECT_EQ(Query("select count(*) from w_well_data where WellID = 'W1'"), Texts{"1"});
}

}  // namespace
}  // namespace petrodb::test
