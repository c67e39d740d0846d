// The session: results, reading patterns, conversions, batches, one statement
// per call, double arrays, tracing and pooling.
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <atomic>
#include <filesystem>
#include <functional>
#include <thread>
#include <tuple>

#include "TestSupport.h"
#include "dbaccess/Backend.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"
#include "dbaccess/Trace.h"

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
  // The lines the trace file gets while `run` runs.
  std::vector<std::string> TraceFileOf(const std::function<void()>& run) {
    const std::string path = (dir_ / "trace.jsonl").string();
    setenv("PETRODB_SQL_TRACE", path.c_str(), 1);
    db::ReloadTraceEnvironment();  // the variable is otherwise read once per process
    run();
    unsetenv("PETRODB_SQL_TRACE");
    db::ReloadTraceEnvironment();
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
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
  auto event = [&](std::size_t i) { return std::tie(e[i].text, e[i].sent, e[i].call, e[i].result); };
  EXPECT_EQ(event(0), std::make_tuple("t_session", "select * from t_session", "GetDataFromDB", 1));
  EXPECT_EQ(event(1), std::make_tuple("delete from t_session where k = 'x'", "", "ExecuteSQL", 1));
  EXPECT_EQ(std::tie(e[2].text, e[2].call, e[2].result),
            std::make_tuple("insert into t_session (k, i) values (?, ?)", "SaveData", 1));
  EXPECT_EQ(e[3].result, 2);
  EXPECT_GE(e[3].ms, 0.0);
}

TEST_F(SessionTest, TraceFileGetsOneJsonObjectPerStatement) {
  const auto lines = TraceFileOf([&] {
    CDbManage db(connection_.c_str());
    db.ExecuteSQL("delete from t_session where k = 'say \"hi\"'");
    db.GetDataFromDB("select * from missing_table");
  });
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].rfind(
                "{\"text\": \"delete from t_session where k = 'say \\\"hi\\\"'\", \"call\": \"ExecuteSQL\", "
                "\"result\": true, \"ms\": ",
                0),
            0u)
      << lines[0];
  EXPECT_NE(lines[1].find("\"call\": \"GetDataFromDB\", \"result\": 2"), std::string::npos) << lines[1];
}

TEST_F(SessionTest, TheNextSessionReusesThePooledConnection) {
  { CDbManage warm(connection_.c_str()); }
  const long before = db::ConnectionsOpened();
  for (int i = 0; i < 5; ++i) {
    CDbManage db(connection_.c_str());
    EXPECT_EQ(db.GetDataFromDB("t_session"), kNoRows);
  }
  EXPECT_EQ(db::ConnectionsOpened(), before);
  // A session opened inside another on the same thread shares its connection;
  // a session on another thread meanwhile needs one of its own.
  CDbManage a(connection_.c_str());
  CDbManage b(connection_.c_str());
  EXPECT_EQ(db::ConnectionsOpened(), before);
  std::thread([&] { CDbManage c(connection_.c_str()); }).join();
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

TEST_F(SessionTest, AFailedCallTellsTheEnginesReasonInTheTraceAndLastError) {
  const auto lines = TraceFileOf([&] {
    CDbManage db(connection_.c_str());
    EXPECT_EQ(db.GetDataFromDB("select * from no_such_table_here"), kFailed);
    EXPECT_NE(LastError().find("no_such_table_here"), std::string::npos) << LastError();
    EXPECT_TRUE(db.ExecuteSQL("delete from t_session"));
  });
  const auto& e = sql_.events();
  ASSERT_EQ(e.size(), 2u);
  EXPECT_NE(e[0].error.find("no_such_table_here"), std::string::npos) << e[0].error;
  EXPECT_EQ(e[1].error, "");
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NE(lines[0].find("no_such_table_here", lines[0].find(", \"error\": \"")), std::string::npos) << lines[0];
  EXPECT_EQ(lines[1].find("\"error\""), std::string::npos) << lines[1];
}

TEST_F(SessionTest, TheSaveTraceShowsTheStatementTheEngineRan) {
  CDbManage db(connection_.c_str());
  ASSERT_TRUE(db.BeginSaveData("t_session"));
  for (int i = 0; i < 20; ++i) {  // a long run (a COPY on a server)
    db.AddNew();
    db.SetFieldValue("k", "a");
    db.SetFieldValue("i", i);
  }
  db.AddNew();  // another shape: its own statement
  db.SetFieldValue("k", "b");
  ASSERT_TRUE(db.SaveData());
  const auto& e = sql_.events();
  ASSERT_EQ(e.size(), 2u);
  EXPECT_EQ(e[0].text, "insert into t_session (k, i) values (?, ?)");
  EXPECT_EQ(e[1].text, "insert into t_session (k) values (?)");
  if (onServer()) {
    EXPECT_EQ(e[0].sent, "copy t_session (k, i) from stdin");
    EXPECT_EQ(e[1].sent, "insert into t_session (k) values ($1)");
  } else {
    EXPECT_EQ(e[0].sent, "");  // the text itself ran
    EXPECT_EQ(e[1].sent, "");
  }
  // A rejected row: the failed event carries the reason, and nothing is kept.
  sql_.clear();
  db.BeginSaveData("t_session");
  db.AddNew();
  db.SetFieldValue("k", "c");
  db.SetFieldValue("no_such_column", 1);
  EXPECT_FALSE(db.SaveData());
  ASSERT_EQ(sql_.events().size(), 1u);
  EXPECT_EQ(sql_.events()[0].result, 0);
  EXPECT_NE(sql_.events()[0].error.find("no_such_column"), std::string::npos) << sql_.events()[0].error;
  EXPECT_EQ(Query("select count(*) from t_session"), std::vector<std::string>{"21"});
}

TEST_F(SessionTest, AnEmptyValueListCannotRunOnAnyEngine) {
  Insert("", 1, 1);
  CDbManage db(connection_.c_str());
  for (const char* statement : {"select * from t_session where k in ()", "select * from t_session where k IN(  )",
                                "select * from t_session where k not In (\t)",
                                "select * from t_session where i in (select i from t_session where k in ())"}) {
    EXPECT_EQ(db.GetDataFromDB(statement), kFailed) << statement;
  }
  EXPECT_FALSE(db.ExecuteSQL("delete from t_session where k in ()"));
  EXPECT_FALSE(db.ExecuteSQL("delete from t_session where k in ( )"));
  // A list holding one empty text is no empty list; "in ()" inside a literal is text.
  EXPECT_EQ(db.GetDataFromDB("select * from t_session where k in ('')"), kRowsFound);
  EXPECT_EQ(db.GetDataFromDB("select * from t_session where k = 'in ()'"), kNoRows);
  EXPECT_EQ(db.GetDataFromDB("select * from t_session where k in ('a','b')"), kNoRows);
  EXPECT_EQ(Query("select count(*) from t_session"), std::vector<std::string>{"1"});
}

TEST_F(SessionTest, TextIsStoredByteForByteAndOnlyDateColumnsAreDates) {
  const std::string unpadded = "2024-1-5 3:4:5";
  {
    CDbManage db(connection_.c_str());
    ASSERT_TRUE(db.BeginSaveData("b_project_data"));
    db.AddNew();
    db.SetFieldValue("ProjectName", "P");
    db.SetFieldValue("Description", "1999-9-9");
    db.SetFieldValue("CreatedDate", unpadded);
    ASSERT_TRUE(db.SaveData());
    ASSERT_TRUE(db.BeginSaveData("b_project_recent"));
    db.AddNew();
    db.SetFieldValue("projectName", "2020-2-2 2:2:2");
    db.SetFieldValue("accessTime", unpadded);
    // A date literal given as a value is the date it denotes, in a date column only.
    db.AddNew();
    db.SetFieldValue("projectName", "#2022-1-2#");
    db.SetFieldValue("accessTime", "#2022-1-2#");
    db.AddNew();
    db.SetFieldValue("projectName", "'2023-1-2'");
    db.SetFieldValue("accessTime", "'2023-1-2'");
    ASSERT_TRUE(db.SaveData());
    ASSERT_TRUE(db.ExecuteSQL("insert into b_project_recent (projectName, accessTime) values ('2021-3-3 3:3:3', "
                              "'2021-3-3 3:3:3')"));
  }
  CDbManage db(connection_.c_str());
  std::string text;
  ASSERT_EQ(db.GetDataFromDB("select * from b_project_data where ProjectName = 'P'"), kRowsFound);
  ASSERT_TRUE(db.GetFieldValue("CreatedDate", text));
  EXPECT_EQ(text, unpadded);
  ASSERT_TRUE(db.GetFieldValue("Description", text));
  EXPECT_EQ(text, "1999-9-9");
  // A text column compares with the text as written.
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_data where CreatedDate = '2024-1-5 3:4:5'"), kRowsFound);
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where projectName = '2020-2-2 2:2:2'"), kRowsFound);
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where projectName = '2021-3-3 3:3:3'"), kRowsFound);
  // Date columns hold the date in one form on both engines, whatever form was written.
  ASSERT_EQ(db.GetDataFromDB("select accessTime from b_project_recent order by accessTime"), kRowsFound);
  std::vector<std::string> times;
  while (db.Read() && db.GetFieldValue("accessTime", text)) times.push_back(text);
  EXPECT_EQ(times, (std::vector<std::string>{"2021-03-03 03:03:03", "2022-01-02 00:00:00", "2023-01-02 00:00:00",
                                              "2024-01-05 03:04:05"}));
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where projectName = '#2022-1-2#'"), kRowsFound);
  // ... and compare with a date written either way.
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where accessTime = '2024-1-5 3:4:5'"), kRowsFound);
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where accessTime = '2024-01-05 03:04:05'"), kRowsFound);
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where accessTime between '2021-1-1' and '2022-1-1'"),
            kRowsFound);
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where accessTime > '2024-1-5 3:4:6'"), kNoRows);
  EXPECT_TRUE(db.ExecuteSQL("update b_project_recent set accessTime = '2030-12-1 0:0:0' where accessTime < "
                            "'2022-1-1 0:0:0'"));
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where accessTime = '2030-12-01 00:00:00'"), kRowsFound);
}

TEST_F(SessionTest, TheRestoreFormAsCallerTextLoadsNothing) {
  const std::string backup = (std::filesystem::path(ProgramDirectory()) / "orvex.bak").string();
  const std::string name = "petrodb_injected_" + std::to_string(::getpid());
  CDbManage db(connection_.c_str());
  EXPECT_FALSE(db.ExecuteSQL(("create database " + name + "; \\connect " + name + "; \\i '" + backup + "'").c_str()));
  if (onServer()) {
    EXPECT_TRUE(Query("select datname from pg_database where datname = '" + name + "'").empty());
  }
  EXPECT_EQ(db.GetDataFromDB("select * from t_session"), kNoRows);
}

TEST(TraceSwitch, HandlersComeAndGoWhileOtherThreadsTrace) {
  // Statements on other threads read the switch while it changes (a data race
  // before it was atomic; the thread sanitizer reports one).
  const auto dir = MakeTempDir();
  const std::string file = (dir / "T.mdb").string();
  std::filesystem::copy_file(TemplateFile(), file);
  const std::string connection = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file;
  std::atomic<int> seen{0};
  std::atomic<bool> stop{false};
  std::vector<std::thread> workers;
  for (int t = 0; t < 3; ++t)
    workers.emplace_back([&] {
      while (!stop) {
        CDbManage db(connection.c_str());
        db.GetDataFromDB("select * from b_project_data");
      }
    });
  for (int i = 0; i < 200; ++i) {
    SetSqlTraceHandler([&](const SqlTraceEvent&) { ++seen; });
    SetSqlTraceHandler({});
  }
  SetSqlTraceHandler([&](const SqlTraceEvent&) { ++seen; });
  while (seen.load() == 0) std::this_thread::yield();
  stop = true;
  for (auto& w : workers) w.join();
  SetSqlTraceHandler({});
  db::ClearConnectionPool();
  std::filesystem::remove_all(dir);
  EXPECT_GT(seen.load(), 0);
}

// The pending batch: runs of one shape, a column set again, rows that stop
// following the row before and rows without cells.
TEST(PendingRowsTest, RowsFormRunsOfOneShapeAndARepeatedColumnKeepsItsLastValue) {
  db::PendingRows rows;
  auto row = [&](const char* table, std::vector<const char*> columns) {
    rows.StartRow(table);
    for (const char* c : columns) rows.SetText(c, c);
  };
  row("t", {"a", "b"});
  row("t", {"a", "b"});
  row("t", {"a", "B", "b"});  // b set again: its own text, case ignored
  row("t", {"a"});
  row("u", {"a"});
  row("u", {});
  row("u", {});
  rows.SetInteger("x", 1);  // into the row begun last
  rows.Seal();
  ASSERT_EQ(rows.size(), 7u);
  std::vector<std::size_t> runEnds;
  for (std::size_t i = 0; i < rows.size(); i = rows.RunEnd(i)) runEnds.push_back(rows.RunEnd(i));
  EXPECT_EQ(runEnds, (std::vector<std::size_t>{2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(db::InsertText(rows.Shape(2)), "insert into t (a, B) values (?, ?)");
  EXPECT_EQ(rows.Text(rows.Cells(2)[1]), "b");
  EXPECT_EQ(db::InsertText(rows.Shape(3)), "insert into t (a) values (?)");
  EXPECT_EQ(db::InsertText(rows.Shape(5)), "insert into u default values");
  ASSERT_EQ(rows.Cells(6).size(), 1u);
  EXPECT_EQ(rows.Cells(6)[0].integer, 1);
}

}  // namespace
}  // namespace petrodb::test
