// The session: results, reading patterns, conversions, batches, one statement
// per call, double arrays, tracing and pooling.
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>

#include "TestSupport.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"

namespace petrodb::test {
namespace {

class SessionTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    Exec("create table t_session (k text, n double precision, i integer, a bytea)");
  }
  void Insert(const std::string& k, double n, int i) {
    CDbManage db(connection_.c_str());
    ASSERT_TRUE(db.BeginSaveData("t_session"));
    db.AddNew();
    db.SetFieldValue("k", k);
    db.SetFieldValue("n", n);
    db.SetFieldValue("i", i);
    ASSERT_TRUE(db.SaveData());
  }
  std::vector<double> RoundTrip(const std::vector<double>& values) {
    {
      CDbManage db(connection_.c_str());
      db.ExecuteSQL("delete from t_session");
      db.BeginSaveData("t_session");
      db.AddNew();
      db.SetFieldValue("k", "arr");
      Variant v;
      DoubleArrayToVariant(values.data(), static_cast<int>(values.size()), v);
      db.SetFieldValue("a", v);
      EXPECT_TRUE(db.SaveData());
    }
    CDbManage db(connection_.c_str());
    EXPECT_EQ(db.GetDataFromDB("select a from t_session", true), kRowsFound);
    Variant v;
    EXPECT_TRUE(db.GetFieldValue("a", v));
    std::vector<double> out;
    EXPECT_TRUE(VariantToDoubleArray(v, out));
    return out;
  }
};

TEST_F(SessionTest, ResultCodesTellRowsNoRowsAndFailure) {
  CDbManage db(connection_.c_str());
  EXPECT_EQ(db.GetDataFromDB("select * from t_session"), kNoRows);
  EXPECT_EQ(db.GetDataFromDB("t_session"), kNoRows);  // a bare table name
  EXPECT_EQ(db.GetDataFromDB("no_such_table"), kFailed);
  EXPECT_EQ(db.GetDataFromDB("select * from no_such_table"), kFailed);
  EXPECT_EQ(db.GetDataFromDB(""), kFailed);
  EXPECT_EQ(db.GetDataFromDB(nullptr), kFailed);
  EXPECT_FALSE(db.ExecuteSQL(""));
  Insert("a", 1, 1);
  EXPECT_EQ(db.GetDataFromDB("t_session"), kRowsFound);
  std::string k;
  EXPECT_TRUE(db.GetFieldValue("k", k));
  EXPECT_EQ(k, "a");
}

TEST_F(SessionTest, BothReadPatternsVisitEveryRowOnce) {
  for (int i = 0; i < 5; ++i) Insert("k" + std::to_string(i), i, i);
  CDbManage db(connection_.c_str());
  // Read before every row, the first included.
  ASSERT_EQ(db.GetDataFromDB("select k, i from t_session order by i"), kRowsFound);
  std::vector<int> seen;
  while (db.Read()) {
    int i = -1;
    ASSERT_TRUE(db.GetFieldValue("i", i));
    seen.push_back(i);
  }
  EXPECT_EQ(seen, (std::vector<int>{0, 1, 2, 3, 4}));
  EXPECT_FALSE(db.Read());
  int after = -1;
  EXPECT_FALSE(db.GetFieldValue("i", after));
  // Fields of the first row straight after the select.
  ASSERT_EQ(db.GetDataFromDB("select k, i from t_session order by i desc"), kRowsFound);
  int first = -1;
  ASSERT_TRUE(db.GetFieldValue("i", first));
  EXPECT_EQ(first, 4);
  EXPECT_TRUE(db.Read());  // still the first row
  ASSERT_TRUE(db.GetFieldValue("i", first));
  EXPECT_EQ(first, 4);
}

TEST_F(SessionTest, FieldsConvertAsAVariantWould) {
  Exec("insert into t_session (k, n, i) values ('12.5', 2.25, 7)");
  Exec("insert into t_session (k, n, i) values ('12abc', 0.1, -3)");
  Exec("insert into t_session (k, n, i) values (null, 2.5, 1)");
  Exec("insert into t_session (k, n, i) values ('1', 3.5, 1)");
  CDbManage db(connection_.c_str());
  ASSERT_EQ(db.GetDataFromDB("select * from t_session order by n"), kRowsFound);
  // Row n = 0.1: text that is not wholly a number does not read as one.
  std::string text;
  double d = 0;
  int i = 0;
  long l = 0;
  char c = 0;
  float f = 0;
  EXPECT_TRUE(db.GetFieldValue("K", text));  // column names ignore case
  EXPECT_EQ(text, "12abc");
  EXPECT_FALSE(db.GetFieldValue("k", d));
  EXPECT_TRUE(db.GetFieldValue("n", text));
  EXPECT_EQ(text, "0.1");  // the shortest text that reads back the same
  EXPECT_TRUE(db.GetFieldValue("i", text));
  EXPECT_EQ(text, "-3");
  EXPECT_TRUE(db.GetFieldValue("n", f));
  EXPECT_EQ(f, 0.1f);
  EXPECT_FALSE(db.GetFieldValue("missing", text));
  ASSERT_TRUE(db.Read() && db.Read());  // n = 2.25
  EXPECT_TRUE(db.GetFieldValue("k", d));
  EXPECT_EQ(d, 12.5);
  EXPECT_TRUE(db.GetFieldValue("n", i));
  EXPECT_EQ(i, 2);  // reals round to the nearest integer
  EXPECT_TRUE(db.GetFieldValue("k", l));
  EXPECT_EQ(l, 12);  // 12.5 rounds half to even
  ASSERT_TRUE(db.Read());  // n = 2.5, k is NULL
  EXPECT_FALSE(db.GetFieldValue("k", text));
  EXPECT_TRUE(db.GetFieldValue("n", i));
  EXPECT_EQ(i, 2);
  EXPECT_TRUE(db.GetFieldValue("i", c));
  EXPECT_EQ(c, '1');  // a flag reads the first character of the text
  ASSERT_TRUE(db.Read());  // n = 3.5
  EXPECT_TRUE(db.GetFieldValue("n", i));
  EXPECT_EQ(i, 4);
  EXPECT_FALSE(db.Read());
}

TEST_F(SessionTest, ABatchIsWrittenWhollyOrNotAtAll) {
  CDbManage db(connection_.c_str());
  ASSERT_TRUE(db.BeginSaveData("t_session"));
  for (int i = 0; i < 3; ++i) {
    db.AddNew();
    db.SetFieldValue("k", "row");
    db.SetFieldValue("i", i);
  }
  db.AddNew();
  db.SetFieldValue("no_such_column", 1);
  EXPECT_FALSE(db.SaveData());
  EXPECT_EQ(Query("select count(*) from t_session"), std::vector<std::string>{"0"});
  // An empty batch on an existing table succeeds and writes nothing; a missing table fails.
  ASSERT_TRUE(db.BeginSaveData("t_session"));
  EXPECT_TRUE(db.SaveData());
  EXPECT_FALSE(db.BeginSaveData("no_such_table"));
  db.AddNew();
  db.SetFieldValue("k", "x");
  EXPECT_FALSE(db.SaveData());
}

TEST_F(SessionTest, RowsMaySetColumnsInAnyOrderAndSetAColumnTwice) {
  {
    CDbManage db(connection_.c_str());
    db.BeginSaveData("t_session");
    db.AddNew();
    db.SetFieldValue("k", "first");
    db.SetFieldValue("i", 1);
    db.AddNew();
    db.SetFieldValue("k", "second");
    db.SetFieldValue("K", "second, again");
    db.SetFieldValue("i", 2);
    db.AddNew();
    db.SetFieldValue("i", 3);
    db.SetFieldValue("k", "third");
    ASSERT_TRUE(db.SaveData());
  }
  EXPECT_EQ(Query("select k from t_session order by i"),
            (std::vector<std::string>{"first", "second, again", "third"}));
}

TEST_F(SessionTest, RowsPendingAtCloseAreWrittenUnlessCancelled) {
  {
    CDbManage db(connection_.c_str());
    db.BeginSaveData("t_session");
    db.AddNew();
    db.SetFieldValue("k", "kept");
  }
  {
    CDbManage db(connection_.c_str());
    db.BeginSaveData("t_session");
    db.AddNew();
    db.SetFieldValue("k", "dropped");
    db.CancelSaveData();
  }
  EXPECT_EQ(Query("select k from t_session"), std::vector<std::string>{"kept"});
}

TEST_F(SessionTest, OneStatementPerCall) {
  Insert("a", 1, 1);
  CDbManage db(connection_.c_str());
  EXPECT_FALSE(db.ExecuteSQL("delete from t_session; drop table t_session"));
  EXPECT_EQ(db.GetDataFromDB("select * from t_session; delete from t_session"), kFailed);
  EXPECT_EQ(Query("select count(*) from t_session"), std::vector<std::string>{"1"});
  EXPECT_TRUE(db.ExecuteSQL("delete from t_session where k = 'a';"));  // a trailing ';' is one statement
}

TEST_F(SessionTest, AQuoteInAKeyFailsAndChangesNothing) {
  Insert("a", 1, 1);
  CDbManage db(connection_.c_str());
  const std::string sql = sql::Format("delete from t_session where k = '%s'", "a' or 'x'='x");
  EXPECT_EQ(sql, "");
  EXPECT_FALSE(db.ExecuteSQL(sql.c_str()));
  EXPECT_EQ(db.GetDataFromDB(sql::Format("select * from t_session where k = '%s'", "a'--").c_str()), kFailed);
  EXPECT_EQ(Query("select count(*) from t_session"), std::vector<std::string>{"1"});
}

TEST_F(SessionTest, DoubleArraysComeBackBitForBit) {
  const double nanPayload = std::bit_cast<double>(0x7ff8dead0000beefULL);
  const std::vector<double> odd = {-0.0, 0.0, nanPayload, std::numeric_limits<double>::infinity(),
                                   std::numeric_limits<double>::denorm_min(), -1e308, 1.0 / 3};
  const auto back = RoundTrip(odd);
  ASSERT_EQ(back.size(), odd.size());
  EXPECT_EQ(std::memcmp(back.data(), odd.data(), odd.size() * sizeof(double)), 0);

  std::vector<double> big(1000000);
  for (std::size_t i = 0; i < big.size(); ++i) big[i] = std::sin(static_cast<double>(i)) * 1e3;
  const auto bigBack = RoundTrip(big);
  ASSERT_EQ(bigBack.size(), big.size());
  EXPECT_EQ(std::memcmp(bigBack.data(), big.data(), big.size() * sizeof(double)), 0);

  // An empty array is a zero-length value, not NULL; a null variant writes NULL.
  EXPECT_TRUE(RoundTrip({}).empty());
  EXPECT_EQ(Query("select count(*) from t_session where a is null"), std::vector<std::string>{"0"});
  {
    CDbManage db(connection_.c_str());
    db.ExecuteSQL("delete from t_session");
    db.BeginSaveData("t_session");
    db.AddNew();
    db.SetFieldValue("a", Variant());
  }
  CDbManage db(connection_.c_str());
  ASSERT_EQ(db.GetDataFromDB("select a from t_session", true), kRowsFound);
  Variant v;
  EXPECT_FALSE(db.GetFieldValue("a", v));
}

TEST_F(SessionTest, TraceShowsEveryStatementWithItsResult) {
  CDbManage db(connection_.c_str());
  sql_.clear();
  db.GetDataFromDB("t_session");
  db.ExecuteSQL("delete from t_session where k = 'x'");
  db.BeginSaveData("t_session");
  db.AddNew();
  db.SetFieldValue("k", "x");
  db.SetFieldValue("i", 1);
  db.SaveData();
  db.GetDataFromDB("select * from nothing_here");
  const auto& e = sql_.events();
  ASSERT_EQ(e.size(), 4u);
  EXPECT_EQ(e[0].text, "t_session");
  EXPECT_EQ(e[0].sent, "select * from t_session");
  EXPECT_EQ(e[0].call, "GetDataFromDB");
  EXPECT_EQ(e[0].result, 1);
  EXPECT_EQ(e[1].text, "delete from t_session where k = 'x'");
  EXPECT_EQ(e[1].sent, "");
  EXPECT_EQ(e[1].call, "ExecuteSQL");
  EXPECT_EQ(e[1].result, 1);
  EXPECT_EQ(e[2].text, "insert into t_session (k, i) values (?, ?)");
  EXPECT_EQ(e[2].call, "SaveData");
  EXPECT_EQ(e[2].result, 1);
  EXPECT_EQ(e[3].result, 2);
  EXPECT_GE(e[3].ms, 0.0);
}

TEST_F(SessionTest, TraceFileGetsOneJsonObjectPerStatement) {
  const std::string path = (dir_ / "trace.jsonl").string();
  setenv("PETRODB_SQL_TRACE", path.c_str(), 1);
  {
    CDbManage db(connection_.c_str());
    db.ExecuteSQL("delete from t_session where k = 'say \"hi\"'");
    db.GetDataFromDB("select * from missing_table");
  }
  unsetenv("PETRODB_SQL_TRACE");
  std::ifstream in(path);
  std::string first, second;
  std::getline(in, first);
  std::getline(in, second);
  EXPECT_EQ(first.rfind(
                "{\"text\": \"delete from t_session where k = 'say \\\"hi\\\"'\", \"call\": \"ExecuteSQL\", "
                "\"result\": true, \"ms\": ",
                0),
            0u)
      << first;
  EXPECT_NE(second.find("\"call\": \"GetDataFromDB\", \"result\": 2"), std::string::npos) << second;
}

TEST_F(SessionTest, TheNextSessionReusesThePooledConnection) {
  { CDbManage warm(connection_.c_str()); }
  const long before = db::ConnectionsOpened();
  for (int i = 0; i < 5; ++i) {
    CDbManage db(connection_.c_str());
    EXPECT_EQ(db.GetDataFromDB("t_session"), kNoRows);
  }
  EXPECT_EQ(db::ConnectionsOpened(), before);
  // Two sessions at once need two connections.
  CDbManage a(connection_.c_str());
  CDbManage b(connection_.c_str());
  EXPECT_EQ(db::ConnectionsOpened(), before + 1);
}

TEST_F(SessionTest, AWriterIsNotBlockedByAnOpenRead) {
  Insert("a", 1, 1);
  CDbManage reader(connection_.c_str());
  ASSERT_EQ(reader.GetDataFromDB("select * from t_session"), kRowsFound);
  CDbManage writer(connection_.c_str());
  EXPECT_TRUE(writer.ExecuteSQL("delete from t_session"));
  reader.BeginSaveData("t_session");
  reader.AddNew();
  reader.SetFieldValue("k", "b");
  EXPECT_TRUE(reader.SaveData());
}

}  // namespace
}  // namespace petrodb::test
