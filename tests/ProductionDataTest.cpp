// Production histories: replace by well and date over a few hundred days, the
// block and time queries, the composite loads' append rules, the deletes and
// a refusal.
#include <cstdio>
#include <string>
#include <tuple>
#include <vector>

#include "TestSupport.h"
#include "petrodb/production/IProductionData.h"

namespace petrodb::test {
namespace {

class ProductionDataTest : public ObjectTest<IProductionData, "IProductionData"> {
 protected:
  void SetUp() override {
    ObjectTest::SetUp();
    Exec("insert into w_well_data (WellID, ProjectName) values ('W1', 'North'), ('W2', 'North'), ('W3', 'North'), "
         "('S1', 'South')");
  }
  // Day n of a history as text, e.g. "2023-03-14".
  static std::string Day(int n) {
    static const int kMonth[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int month = 0;
    while (n >= kMonth[month]) n -= kMonth[month++];
    char text[32];
    std::snprintf(text, sizeof text, "2023-%02d-%02d", month + 1, n + 1);
    return text;
  }
  static WellProduction History(const std::string& well, const std::string& block, int days, double scale) {
    WellProduction p{well, {}};
    for (int d = 0; d < days; ++d) {
      ProductionRecord r;
      r.ProductTime = Day(d), r.Block = block, r.DailyOilProduction = scale * d, r.Demo = "d" + std::to_string(d);
      p.records.push_back(r);
    }
    return p;
  }
  int Rows(const std::string& where = "") {
    return std::stoi(Query("select count(*) from w_production_data" + where).at(0));
  }
};

TEST_F(ProductionDataTest, SavingReplacesTheWellsRowsOfTheSameDatesOnly) {
  ASSERT_TRUE(object_->SaveProductions({History("W1", "B1", 300, 1), History("W2", "B1", 300, 2),
                                        History("W3", "B2", 200, 3)}));
  EXPECT_EQ(Rows(), 800);
  // Two dates again, one of them twice: each date is deleted once, every record inserted.
  WellProduction again{"W1", {}};
  for (int d : {150, 10, 150}) again.records.push_back(History("W1", "B9", d + 1, 0).records.back());  // day d
  sql_.clear();
  ASSERT_TRUE(object_->SaveWellProduction(again));
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            std::vector<std::string>{"delete from  w_production_data where WellID ='W1' and ProductTime in ('" + Day(10) +
                                     "','" + Day(150) + "')"});
  EXPECT_EQ(Rows(" where WellID = 'W1'"), 301);
  EXPECT_EQ(Rows(" where WellID = 'W1' and Block = 'B9'"), 3);
  EXPECT_EQ(Rows(), 801);

  WellProduction loaded{"old", {ProductionRecord{}}};
  ASSERT_TRUE(object_->LoadWellProduction("W2", loaded));  // appends after what was there
  EXPECT_EQ(loaded.wellId, "W2");
  ASSERT_EQ(loaded.records.size(), 301u);
  const ProductionRecord& last = loaded.records[300];
  EXPECT_EQ(std::tie(last.ProductTime, last.DailyOilProduction, last.Demo), std::tuple(Day(299), 598.0, "d299"));
}

TEST_F(ProductionDataTest, BlockAndProjectLoadsAppendOneEntryPerProducingWell) {
  ASSERT_TRUE(object_->SaveProductions({History("W1", "B1", 30, 1), History("W2", "B1", 20, 2),
                                        History("W3", "B2", 10, 3), History("S1", "B1", 5, 1)}));
  std::vector<std::string> wells;
  ASSERT_TRUE(object_->ListBlockProducingWells("North", "B1", wells));
  EXPECT_EQ(wells, (std::vector<std::string>{"W1", "W2"}));

  std::vector<WellProduction> out{WellProduction{"kept", {}}};
  ASSERT_TRUE(object_->LoadBlockProduction("North", "B1", out));
  ASSERT_EQ(out.size(), 3u);
  EXPECT_EQ(out[0].wellId, "kept");
  EXPECT_EQ(out[2].records.size(), 20u);
  ASSERT_TRUE(object_->LoadProjectProduction("North", out));
  EXPECT_EQ(out.size(), 6u);
  // No producing well: false, the list untouched.
  EXPECT_FALSE(object_->LoadProjectProduction("East", out));
  EXPECT_EQ(out.size(), 6u);

  std::vector<std::string> names{"x"};
  ASSERT_TRUE(object_->ListWellsWithProduction({WellProduction{"W3", {}}, WellProduction{"S9", {}}}, names));
  // One name per row of the well (the statement does not ask for distinct names).
  std::vector<std::string> expected(11, "W3");
  expected[0] = "x";
  EXPECT_EQ(names, expected);

  // One date of a block asks for as many wells as the list held.
  out.assign(1, {});
  sql_.clear();
  ASSERT_TRUE(object_->LoadBlockProductionAtTime("North", "B1", Day(3).c_str(), out));
  EXPECT_EQ(sql_.texts().back(),
            "select * from  w_production_data where ProductTime = '" + Day(3) + "' and WellID in ('W1')");
  ASSERT_EQ(out.size(), 1u);
  ASSERT_EQ(out[0].records.size(), 1u);
  const ProductionRecord& r = out[0].records[0];
  EXPECT_EQ(std::tie(out[0].wellId, r.ProductTime, r.Block, r.DailyOilProduction), std::tuple("W1", Day(3), "B1", 3.0));
  out.resize(5);
  ASSERT_TRUE(object_->LoadBlockProductionAtTime("North", "B1", Day(4).c_str(), out));
  EXPECT_EQ(out.size(), 2u);
  out.clear();  // the statement asks with "in ()", which neither engine runs
  EXPECT_FALSE(object_->LoadBlockProductionAtTime("North", "B1", Day(4).c_str(), out));
}

TEST_F(ProductionDataTest, DeletesAndMessages) {
  ASSERT_TRUE(object_->SaveProductions({History("W1", "B1", 5, 1), History("W2", "B2", 5, 1),
                                        History("W3", "B3", 5, 1), History("S1", "B1", 5, 1)}));
  ASSERT_TRUE(object_->DeleteBlockProduction("B2"));
  ASSERT_TRUE(object_->DeleteWellsProduction({"W3", "nobody"}));
  ASSERT_TRUE(object_->DeleteProjectProduction("South"));
  EXPECT_EQ(Query("select distinct WellID from w_production_data"), std::vector<std::string>{"W1"});
  ASSERT_TRUE(object_->DeleteWellProduction("W1"));
  EXPECT_EQ(Rows(), 0);

  EXPECT_FALSE(object_->SaveWellProduction(WellProduction{}));
  EXPECT_FALSE(object_->SaveProductions({}));  // silently
  EXPECT_EQ(messages_.texts(), std::vector<std::string>{"井号不能为空！"});
  // A name holding a quote is refused: nothing is written.
  EXPECT_FALSE(object_->SaveWellProduction(History("O'Neil", "B1", 2, 1)));
  EXPECT_EQ(Rows(), 0);
}

}  // namespace
}  // namespace petrodb::test
