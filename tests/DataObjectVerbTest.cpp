// The shared verbs of data objects and their column tables, on both engines:
// what a list keeps, which columns a read needs, the order of a replace's
// steps as the trace shows it, and keys refused before anything is written.
#include <tuple>

#include "TestSupport.h"
#include "dbaccess/DataObject.h"
#include "dbaccess/Schema.h"

namespace petrodb::test {
namespace {

struct Row {
  std::string WellID, WellName;
  double Kb = -1;
  int WellSymbol = -1;
  char WellFlag = '?';
};

const ColumnTable<Row> kRows{"w_well_data", {Col("WellID", &Row::WellID), Col("WellName", &Row::WellName),
                                             Col("Kb", &Row::Kb).Or(-99999.0), Col("WellSymbol", &Row::WellSymbol),
                                             Col("WellFlag", &Row::WellFlag).Optional()}};

constexpr Pattern<"select * from w_well_data where ProjectName = '%s' order by WellID"> kSelect;
constexpr Pattern<"delete from w_well_data where WellID = '%s'"> kDelete;

// The verbs, opened up for the tests.
class Verbs final : public CDataObject<IDataBase> {
 public:
  using CDataObject::ListColumn;
  using CDataObject::LoadAll;
  using CDataObject::LoadOne;
  using CDataObject::Replace;
  using CDataObject::ReplaceAfter;
};

class DataObjectVerbTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    verbs_.SetConnection(connection_.c_str());
  }
  void Insert(const std::string& rows) {
    Exec("insert into w_well_data (ProjectName, WellID, WellName, Kb, WellSymbol) values " + rows);
  }
  Verbs verbs_;
};

TEST_F(DataObjectVerbTest, ListsAreClearedUnlessTheyAppend) {
  Insert("('P', 'W1', 'one', 10, 1), ('P', 'W2', 'two', 20, 2)");
  std::vector<Row> rows(3);
  EXPECT_TRUE(verbs_.LoadAll(kSelect("P"), kRows, rows, Fill::Clear).found());
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1].WellName, "two");
  EXPECT_TRUE(verbs_.LoadAll(kSelect("P"), kRows, rows, Fill::Append).found());
  EXPECT_EQ(rows.size(), 4u);
  std::vector<std::string> ids{"old"};
  EXPECT_TRUE(verbs_.ListColumn(kSelect("P"), "WellID", ids, Fill::Clear).found());
  EXPECT_EQ(ids, (std::vector<std::string>{"W1", "W2"}));
  // No rows: the statement ran, nothing was found, the list is empty.
  EXPECT_EQ(verbs_.LoadAll(kSelect("nobody"), kRows, rows, Fill::Clear).result, kNoRows);
  EXPECT_TRUE(rows.empty());
  // A missing table: could not run.
  EXPECT_FALSE(verbs_.LoadAll("select * from no_such_table", kRows, rows, Fill::Clear).ran());
}

// Columns are looked up once per result: each new result finds them again,
// wherever it puts them.
TEST_F(DataObjectVerbTest, EachResultFindsTheTablesColumnsAgain) {
  Insert("('P', 'A1', 'alpha', 12.5, 4)");
  CDbManage db(connection_.c_str());
  for (const char* columns : {"WellID, WellName, Kb, WellSymbol", "WellSymbol, Kb, WellName, WellID",
                              "WellSymbol, WellName, WellID"}) {
    SCOPED_TRACE(columns);
    ASSERT_EQ(db.GetDataFromDB((std::string("select ") + columns + " from w_well_data").c_str()), kRowsFound);
    Row r;
    ASSERT_TRUE(kRows.Read(db, r));
    const bool kb = std::string(columns).find("Kb") != std::string::npos;
    EXPECT_EQ(std::tie(r.WellID, r.WellName, r.Kb, r.WellSymbol), std::make_tuple("A1", "alpha", kb ? 12.5 : -99999.0, 4));
  }
}

TEST_F(DataObjectVerbTest, ARequiredColumnStopsTheReadAndAFallbackDoesNot) {
  // W1's Kb falls back; W2 lacks the required WellSymbol.
  Insert("('P', 'W1', 'one', NULL, 7), ('P', 'W2', 'two', 20, NULL), ('P', 'W3', 'three', 30, 3)");
  Row one, two;
  ASSERT_TRUE(verbs_.LoadOne("select * from w_well_data where WellID = 'W1'", kRows, one));
  // The flag is optional and NULL: left as it was.
  EXPECT_EQ(std::tie(one.Kb, one.WellSymbol, one.WellFlag), std::make_tuple(-99999.0, 7, '?'));
  EXPECT_FALSE(verbs_.LoadOne("select * from w_well_data where WellID = 'W2'", kRows, two));
  // Read up to the failing column, nothing after it.
  EXPECT_EQ(std::tie(two.WellName, two.Kb, two.WellSymbol), std::make_tuple("two", 20.0, -1));

  // In a list, the unreadable row ends the read; the rows before it stay.
  std::vector<Row> rows;
  const Loaded loaded = verbs_.LoadAll(kSelect("P"), kRows, rows, Fill::Clear);
  EXPECT_FALSE(loaded.ran());
  EXPECT_EQ(loaded.result, kRowUnreadable);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].WellID, "W1");
}

TEST_F(DataObjectVerbTest, ReplaceStepsComeInTheDeclaredOrder) {
  const Row row{"W1", "one", 5, 1, '1'};
  auto write = [&](CDbManage& db) { kRows.AddRow(db, row); };
  using Steps = std::vector<std::string>;
  for (const auto& [probe, order] : std::vector<std::pair<Probe, Steps>>{
           {Probe::First, {"w_well_data", "delete", "insert"}},
           {Probe::AfterDelete, {"delete", "w_well_data", "insert"}},
           {Probe::None, {"delete", "insert"}}}) {
    sql_.clear();
    ASSERT_TRUE(verbs_.Replace({"w_well_data", probe}, kDelete("W1"), write));
    Steps steps;
    for (const std::string& text : sql_.texts()) steps.push_back(text.substr(0, text.find(' ')));
    EXPECT_EQ(steps, order);
  }
  // The row is written in the column table's order.
  EXPECT_EQ(sql_.texts().back(),
            "insert into w_well_data (WellID, WellName, Kb, WellSymbol, WellFlag) values (?, ?, ?, ?, ?)");
  EXPECT_EQ(Query("select count(*) from w_well_data"), std::vector<std::string>{"1"});
}

TEST_F(DataObjectVerbTest, AMissingTableOrAFailedSaveShowsItsStepsMessage) {
  const ReplaceSteps missing{"w_no_such_table", Probe::First, ErrorMessage("测试表为空！"), ErrorMessage("保存数据库出错！")};
  EXPECT_FALSE(verbs_.Replace(missing, kDelete("W1"), [](CDbManage&) { ADD_FAILURE() << "a row was written"; }));
  ASSERT_EQ(messages_.messages().size(), 1u);
  EXPECT_EQ(std::tie(messages_.messages()[0].text, messages_.messages()[0].caption),
            std::make_tuple("测试表为空！", "错误信息"));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), std::vector<std::string>{});
  // A column the table does not have makes the insert fail.
  messages_.clear();
  const ReplaceSteps saving{"w_well_data", Probe::None, {}, ErrorMessage("保存数据库出错！")};
  EXPECT_FALSE(verbs_.ReplaceAfter(saving, [](CDbManage&) { return true; }, [](CDbManage& db) {
    db.AddNew();
    db.SetFieldValue("NoSuchColumn", 1);
  }));
  EXPECT_EQ(messages_.texts(), std::vector<std::string>{"保存数据库出错！"});
}

TEST_F(DataObjectVerbTest, AKeyWithAQuoteOrNulIsRefusedBeforeAnyWrite) {
  Insert("('P', 'W1', 'one', 1, 1)");
  for (const std::string& key : {std::string("W1' or ''='"), std::string("W1\0x", 4)}) {
    const Row row{key, "bad", 1, 1, '0'};
    EXPECT_FALSE(verbs_.Replace({"w_well_data"}, kDelete(key), [&](CDbManage& db) { kRows.AddRow(db, row); }));
  }
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty() && sql_.texts("SaveData").empty());
}

// Every column table of every data class names columns the schema has, with a
// type its member can hold, so code and schema cannot drift apart.
TEST(ColumnTables, MatchTheSchema) {
  const schema::Schema& s = schema::Builtin();
  auto fits = [](MemberKind member, schema::Type column) {
    using T = schema::Type;
    switch (member) {
      case MemberKind::Text: return column == T::Text || column == T::Date;
      case MemberKind::Flag: return column == T::Text || column == T::Int;
      case MemberKind::Real: return column == T::Double || column == T::Int || column == T::AutoNumber;
      case MemberKind::Integer: return column == T::Int || column == T::AutoNumber || column == T::Double;
      case MemberKind::Doubles: return column == T::DoubleArray;
      case MemberKind::Date: return column == T::Date || column == T::Text;
    }
    return false;
  };
  ASSERT_FALSE(RegisteredColumnTables().empty());
  for (const auto& table : RegisteredColumnTables()) {
    std::string name = table.table;
    for (const auto& view : s.views)
      if (!view.table.empty() && sql::EqualsIgnoreCase(view.name, name)) name = view.table;
    const schema::Table* t = s.FindTable(name);
    ASSERT_TRUE(t) << "no table " << table.table << " in the schema";
    for (const auto& [column, kind, written] : table.columns) {
      const schema::Column* c = t->FindColumn(column);
      if (!c) {
        for (const auto& alias : t->aliases)
          if (sql::EqualsIgnoreCase(alias.alias, column)) c = t->FindColumn(alias.column);
      }
      ASSERT_TRUE(c) << table.table << " has no column " << column;
      EXPECT_TRUE(fits(kind, c->type)) << table.table << "." << column << " cannot hold its member";
      // The database numbers such a column: an insert that names it would fail on a server.
      EXPECT_FALSE(written && c->type == schema::Type::AutoNumber) << table.table << "." << column << " is numbered by the database";
    }
  }
}

}  // namespace
}  // namespace petrodb::test
