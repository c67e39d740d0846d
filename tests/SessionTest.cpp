// The session: results, reading patterns, conversions, batches, one statement
// per call, double arrays, tracing and pooling.
#include <atomic>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <optional>
#include <thread>
#include <tuple>
#include <utility>

#include "TestSupport.h"
#include "dbaccess/Backend.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Pool.h"
#include "dbaccess/Trace.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class SessionTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    Exec("create table t_session (k text, n double precision, i integer, a bytea)");
  }
  Texts Count() { return Query("select count(*) from t_session"); }
  // The lines the trace file gets while `run` runs.
  Texts TraceFileOf(const std::function<void()>& run) {
    const std::string path = (dir_ / "trace.jsonl").string();
    setenv("PETRODB_SQL_TRACE", path.c_str(), 1);
    db::ReloadTraceEnvironment();  // the variable is otherwise read once per process
    run();
    unsetenv("PETRODB_SQL_TRACE");
    db::ReloadTraceEnvironment();
    std::ifstream in(path);
    Texts lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }
  // Writes one row holding `values` (a null variant when none) and reads the
  // array back; none when the cell reads as no array.
  std::optional<std::vector<double>> RoundTrip(const std::optional<std::vector<double>>& values) {
    Exec("delete from t_session");
    Variant v, read;
    if (values) DoubleArrayToVariant(values->data(), static_cast<int>(values->size()), v);
    {
      CDbManage db(connection_.c_str());
      db.BeginSaveData("t_session");
      db.AddNew();
      db.SetFieldValue("a", v);
      EXPECT_TRUE(db.SaveData());
    }
    CDbManage db(connection_.c_str());
    EXPECT_EQ(db.GetDataFromDB("select a from t_session", true), kRowsFound);
    std::vector<double> out;
    if (!db.GetFieldValue("a", read) || !VariantToDoubleArray(read, out)) return std::nullopt;
    return out;
  }
};

TEST_F(SessionTest, ResultCodesTellRowsNoRowsAndFailure) {
  CDbManage db(connection_.c_str());
  EXPECT_EQ(db.GetDataFromDB("select * from t_session"), kNoRows);
  EXPECT_EQ(db.GetDataFromDB("t_session"), kNoRows);  // a bare table name
  for (const char* bad : {"no_such_table", "select * from no_such_table", ""})
    EXPECT_EQ(db.GetDataFromDB(bad), kFailed) << bad;
  EXPECT_EQ(db.GetDataFromDB(nullptr), kFailed);
  EXPECT_FALSE(db.ExecuteSQL(""));
  Exec("insert into t_session (k) values ('a')");
  EXPECT_EQ(db.GetDataFromDB("t_session"), kRowsFound);
}

TEST_F(SessionTest, ReadingBeforeEveryRowVisitsEveryRowOnce) {
  for (int i = 0; i < 5; ++i) Exec("insert into t_session (i) values (" + std::to_string(i) + ")");
  CDbManage db(connection_.c_str());
  // Read before every row, the first included.
  ASSERT_EQ(db.GetDataFromDB("select i from t_session order by i"), kRowsFound);
  std::vector<int> seen;
  for (int i = -1; db.Read() && db.GetFieldValue("i", i);) seen.push_back(i);
  EXPECT_EQ(seen, (std::vector<int>{0, 1, 2, 3, 4}));
  int i = -1;
  EXPECT_FALSE(db.Read() || db.GetFieldValue("i", i));
}

TEST_F(SessionTest, FieldsConvertAsAVariantWould) {
  Exec("insert into t_session (k, n, i) values ('12.5', 2.25, 7), ('12abc', 0.1, -3), (null, 2.5, 1), ('1', 3.5, 1)");
  CDbManage db(connection_.c_str());
  // Fields of the first row straight after the select; the first Read stays on it.
  ASSERT_EQ(db.GetDataFromDB("select * from t_session order by n"), kRowsFound);
  std::string text;
  double d = 0;
  float f = 0;
  int i = 0;
  long l = 0;
  char c = 0;
  // Row n = 0.1: text that is not wholly a number does not read as one.
  EXPECT_TRUE(db.GetFieldValue("K", text));  // column names ignore case
  EXPECT_EQ(text, "12abc");
  EXPECT_FALSE(db.GetFieldValue("k", d));
  EXPECT_TRUE(db.GetFieldValue("n", text));
  EXPECT_EQ(text, "0.1");  // the shortest text that reads back the same
  EXPECT_TRUE(db.GetFieldValue("n", f));
  EXPECT_EQ(f, 0.1f);
  EXPECT_FALSE(db.GetFieldValue("missing", text));
  ASSERT_TRUE(db.Read() && db.Read());  // n = 2.25
  EXPECT_TRUE(db.GetFieldValue("k", d) && db.GetFieldValue("k", l));
  EXPECT_EQ(std::tie(d, l), std::make_tuple(12.5, 12L));  // reals round half to even
  ASSERT_TRUE(db.Read());  // n = 2.5, k is NULL
  EXPECT_FALSE(db.GetFieldValue("k", text));
  EXPECT_TRUE(db.GetFieldValue("n", i) && db.GetFieldValue("i", c));
  EXPECT_EQ(std::tie(i, c), std::make_tuple(2, '1'));  // a flag reads the first character of the text
  ASSERT_TRUE(db.Read());  // n = 3.5
  EXPECT_TRUE(db.GetFieldValue("n", i));
  EXPECT_EQ(i, 4);
}

TEST_F(SessionTest, RowsMayOrderAndRepeatColumnsAndPendingRowsAreWrittenAtClose) {
  {
    CDbManage db(connection_.c_str());
    db.BeginSaveData("t_session");
    db.AddNew();
    db.SetFieldValue("k", "first");
    db.SetFieldValue("i", 1);
    db.AddNew();
    db.SetFieldValue("i", 2);
    db.SetFieldValue("k", "second");
    db.SetFieldValue("K", "second, again");
  }
  {
    CDbManage db(connection_.c_str());
    db.BeginSaveData("t_session");
    db.AddNew();
    db.SetFieldValue("k", "dropped");
    db.CancelSaveData();
  }
  EXPECT_EQ(Query("select k from t_session order by i"), (Texts{"first", "second, again"}));
}

TEST_F(SessionTest, ABatchIsWrittenWhollyOrNotAtAllAndTheTraceShowsWhatRan) {
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
  // On a file the text itself ran.
  EXPECT_EQ(std::tie(e[0].text, e[0].sent), std::make_tuple("insert into t_session (k, i) values (?, ?)",
                                                            onServer() ? "copy t_session (k, i) from stdin" : ""));
  EXPECT_EQ(std::tie(e[1].text, e[1].sent), std::make_tuple("insert into t_session (k) values (?)",
                                                            onServer() ? "insert into t_session (k) values ($1)" : ""));
  // A rejected row: nothing of its batch is kept, and the failed event carries the engine's reason.
  sql_.clear();
  ASSERT_TRUE(db.BeginSaveData("t_session"));
  db.AddNew();
  db.SetFieldValue("k", "c");
  db.AddNew();
  db.SetFieldValue("no_such_column", 1);
  EXPECT_FALSE(db.SaveData());
  EXPECT_EQ(Count(), Texts{"21"});
  ASSERT_FALSE(e.empty());
  EXPECT_EQ(e.back().result, 0);
  EXPECT_NE(e.back().error.find("no_such_column"), std::string::npos) << e.back().error;
  // An empty batch on an existing table succeeds and writes nothing; a missing table fails.
  ASSERT_TRUE(db.BeginSaveData("t_session"));
  EXPECT_TRUE(db.SaveData());
  EXPECT_FALSE(db.BeginSaveData("no_such_table"));
  db.AddNew();
  db.SetFieldValue("k", "x");
  EXPECT_FALSE(db.SaveData());
}

TEST_F(SessionTest, OneStatementPerCall) {
  Exec("insert into t_session (k) values ('a')");
  CDbManage db(connection_.c_str());
  EXPECT_FALSE(db.ExecuteSQL("delete from t_session; drop table t_session"));
  EXPECT_EQ(db.GetDataFromDB("select * from t_session; delete from t_session"), kFailed);
  EXPECT_EQ(Count(), Texts{"1"});
  EXPECT_TRUE(db.ExecuteSQL("delete from t_session where k = 'a';"));  // a trailing ';' is one statement
}

TEST_F(SessionTest, DoubleArraysComeBackBitForBit) {
  std::vector<double> big(1000000);
  for (std::size_t i = 0; i < big.size(); ++i) big[i] = std::sin(static_cast<double>(i)) * 1e3;
  const std::vector<double> odd = {-0.0, 0.0, std::bit_cast<double>(0x7ff8dead0000beefULL),  // a NaN with a payload
                                   std::numeric_limits<double>::infinity(), std::numeric_limits<double>::denorm_min(),
                                   -1e308, 1.0 / 3};
  for (const auto* values : {&odd, &std::as_const(big)}) {
    const auto back = RoundTrip(*values);
    ASSERT_TRUE(back && back->size() == values->size());
    EXPECT_EQ(std::memcmp(back->data(), values->data(), values->size() * sizeof(double)), 0);
  }
  // An empty array is a zero-length value, not NULL; a null variant writes NULL.
  EXPECT_EQ(RoundTrip(std::vector<double>{}), std::vector<double>{});
  EXPECT_EQ(RoundTrip(std::nullopt), std::nullopt);
}

TEST_F(SessionTest, TheTraceShowsEveryStatementWithItsResultAndTheEnginesReason) {
  const auto lines = TraceFileOf([&] {
    CDbManage db(connection_.c_str());
    db.GetDataFromDB("t_session");
    db.ExecuteSQL("delete from t_session where k = 'say \"hi\"'");
    EXPECT_EQ(db.GetDataFromDB("select * from no_such_table_here"), kFailed);
    EXPECT_NE(LastError().find("no_such_table_here"), std::string::npos) << LastError();
  });
  const auto& e = sql_.events();
  ASSERT_EQ(e.size(), 3u);
  auto event = [&](std::size_t i) { return std::tie(e[i].text, e[i].sent, e[i].call, e[i].result, e[i].error); };
  EXPECT_EQ(event(0), std::make_tuple("t_session", "select * from t_session", "GetDataFromDB", 1, ""));
  EXPECT_EQ(event(1), std::make_tuple("delete from t_session where k = 'say \"hi\"'", "", "ExecuteSQL", 1, ""));
  EXPECT_EQ(e[2].result, 2);
  EXPECT_NE(e[2].error.find("no_such_table_here"), std::string::npos) << e[2].error;
  // The trace file: one JSON object per statement, the reason on failures only.
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_TRUE(lines[1].starts_with("{\"text\": \"delete from t_session where k = 'say \\\"hi\\\"'\", "
                                   "\"call\": \"ExecuteSQL\", \"result\": true, \"ms\": "))
      << lines[1];
  EXPECT_EQ(lines[1].find("\"error\""), std::string::npos) << lines[1];
  EXPECT_NE(lines[2].find("\"call\": \"GetDataFromDB\", \"result\": 2"), std::string::npos) << lines[2];
  EXPECT_NE(lines[2].find("no_such_table_here", lines[2].find(", \"error\": \"")), std::string::npos) << lines[2];
}

TEST_F(SessionTest, TheNextSessionReusesThePooledConnection) {
  { CDbManage warm(connection_.c_str()); }
  const long before = db::ConnectionsOpened();
  EXPECT_EQ(CDbManage(connection_.c_str()).GetDataFromDB("t_session"), kNoRows);
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
  Exec("insert into t_session (k) values ('a')");
  CDbManage reader(connection_.c_str());
  ASSERT_EQ(reader.GetDataFromDB("select * from t_session"), kRowsFound);
  CDbManage writer(connection_.c_str());
  EXPECT_TRUE(writer.ExecuteSQL("delete from t_session"));
  reader.BeginSaveData("t_session");
  reader.AddNew();
  reader.SetFieldValue("k", "b");
  EXPECT_TRUE(reader.SaveData());
}

TEST_F(SessionTest, AnEmptyValueListCannotRunOnAnyEngine) {
  Exec("insert into t_session (k) values ('')");
  CDbManage db(connection_.c_str());
  for (const char* statement : {"select * from t_session where k IN(  )", "select * from t_session where k not In (\t)",
                                "select * from t_session where i in (select i from t_session where k in ())"})
    EXPECT_EQ(db.GetDataFromDB(statement), kFailed) << statement;
  EXPECT_FALSE(db.ExecuteSQL("delete from t_session where k in ()"));
  // A list holding one empty text is no empty list; "in ()" inside a literal is text.
  EXPECT_EQ(db.GetDataFromDB("select * from t_session where k in ('')"), kRowsFound);
  EXPECT_EQ(db.GetDataFromDB("select * from t_session where k = 'in ()'"), kNoRows);
  EXPECT_EQ(Count(), Texts{"1"});
}

TEST_F(SessionTest, TextIsStoredByteForByteAndOnlyDateColumnsAreDates) {
  {
    CDbManage db(connection_.c_str());
    ASSERT_TRUE(db.BeginSaveData("b_project_data"));
    db.AddNew();
    db.SetFieldValue("ProjectName", "P");
    db.SetFieldValue("CreatedDate", "2024-1-5 3:4:5");  // a text column
    ASSERT_TRUE(db.SaveData());
    // The same texts in a date column are the dates they denote, whatever form is written.
    ASSERT_TRUE(db.BeginSaveData("b_project_recent"));
    for (const char* when : {"2024-1-5 3:4:5", "#2022-1-2#", "'2023-1-2'"}) {
      db.AddNew();
      db.SetFieldValue("projectName", when);
      db.SetFieldValue("accessTime", when);
    }
    ASSERT_TRUE(db.SaveData());
    ASSERT_TRUE(db.ExecuteSQL(
        "insert into b_project_recent (projectName, accessTime) values ('2021-3-3 3:3:3', '2021-3-3 3:3:3')"));
  }
  // A text column compares with the text as written.
  EXPECT_EQ(Query("select CreatedDate from b_project_data where CreatedDate = '2024-1-5 3:4:5'"),
            Texts{"2024-1-5 3:4:5"});
  EXPECT_EQ(Query("select projectName from b_project_recent order by accessTime"),
            (Texts{"2021-3-3 3:3:3", "#2022-1-2#", "'2023-1-2'", "2024-1-5 3:4:5"}));
  EXPECT_EQ(Query("select accessTime from b_project_recent order by accessTime"),
            (Texts{"2021-03-03 03:03:03", "2022-01-02 00:00:00", "2023-01-02 00:00:00", "2024-01-05 03:04:05"}));
  // ... and a date column with a date written either way.
  CDbManage db(connection_.c_str());
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where accessTime = '2024-1-5 3:4:5'"), kRowsFound);
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_recent where accessTime > '2024-1-5 3:4:6'"), kNoRows);
  EXPECT_TRUE(db.ExecuteSQL(
      "update b_project_recent set accessTime = '2030-12-1 0:0:0' where accessTime < '2022-1-1 0:0:0'"));
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

TEST_F(SessionTest, TraceHandlersComeAndGoWhileOtherThreadsTrace) {
  // Statements on other threads read the switch while it changes (a data race
  // before it was atomic; the thread sanitizer reports one).
  std::atomic<int> seen{0};
  std::atomic<bool> stop{false};
  std::vector<std::thread> workers;
  for (int t = 0; t < 3; ++t)
    workers.emplace_back([&] {
      while (!stop) CDbManage(connection_.c_str()).GetDataFromDB("select * from b_project_data");
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
  const int before = seen.load();
  CDbManage(connection_.c_str()).GetDataFromDB("select * from b_project_data");
  EXPECT_EQ(seen.load(), before);  // a removed handler hears nothing more
}

// The pending batch: runs of one shape, a column set again, rows that stop
// following the row before and rows without cells.
TEST(PendingRowsTest, RowsFormRunsOfOneShapeAndARepeatedColumnKeepsItsLastValue) {
  db::PendingRows rows;
  // In the third row b is set again: its own text, case ignored.
  using Row = std::pair<const char*, std::vector<const char*>>;
  for (const auto& [table, columns] : std::vector<Row>{{"t", {"a", "b"}}, {"t", {"a", "b"}}, {"t", {"a", "B", "b"}},
                                                       {"t", {"a"}}, {"u", {"a"}}, {"u", {}}, {"u", {}}}) {
    rows.StartRow(table);
    for (const char* c : columns) rows.SetText(c, c);
  }
  rows.SetInteger("x", 1);  // into the row begun last
  rows.Seal();
  ASSERT_EQ(rows.size(), 7u);
  std::vector<std::size_t> runEnds;
  for (std::size_t i = 0; i < rows.size(); i = rows.RunEnd(i)) runEnds.push_back(rows.RunEnd(i));
  EXPECT_EQ(runEnds, (std::vector<std::size_t>{2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(db::InsertText(rows.Shape(2)), "insert into t (a, B) values (?, ?)");
  EXPECT_EQ(db::InsertText(rows.Shape(5)), "insert into u default values");
}

}  // namespace
}  // namespace petrodb::test
