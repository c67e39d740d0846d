// Statement patterns: conversions counted when compiled, the refusal carried
// through composed statements.
#include <gtest/gtest.h>

#include <concepts>

#include "dbaccess/Statement.h"

namespace petrodb::sql {
namespace {

constexpr Pattern<"select * from w_well_data where WellID = '%s' and Kb > %f"> kTwo;
constexpr Pattern<"select * from t where k in (%s)"> kIn;
constexpr Pattern<"delete from  w_well_data"> kFixed;
constexpr Pattern<"like '%%a%%' and x = %5.2f and n = %-3d %q"> kOdd;

// The count is the formatter's: "%%" and unknown conversions take no value.
static_assert(kTwo.conversions == 2 && kOdd.conversions == 2);
// A wrong number of values does not compile.
static_assert(!std::invocable<decltype(kTwo), std::string>);
static_assert(!std::invocable<decltype(kTwo), std::string, double, int>);

TEST(StatementPattern, GivesTheTextByteForByte) {
  EXPECT_EQ(kTwo("W1", 1.5).text(), "select * from w_well_data where WellID = 'W1' and Kb > 1.500000");
  EXPECT_EQ(kFixed().text(), "delete from  w_well_data");
  EXPECT_EQ(kOdd(3.14159, 7).text(), "like '%a%' and x =  3.14 and n = 7   %q");
  EXPECT_FALSE(kTwo("W1", 1.5).refused());
}

TEST(StatementPattern, AQuoteOrNulInAQuotedValueRefusesTheStatement) {
  EXPECT_TRUE(kTwo("O'Brien", 1.0).refused() && kTwo("O'Brien", 1.0).text().empty());
  EXPECT_TRUE(kTwo(std::string("W1\0tail", 7), 1.0).refused());
  // Outside quotes a value is the caller's SQL; a NUL is refused even there.
  EXPECT_EQ(kIn(Raw{"'a','b'"}).text(), "select * from t where k in ('a','b')");
  EXPECT_TRUE(kIn(std::string("'a'\0", 4)).refused());
}

TEST(StatementPattern, RefusalTravelsThroughComposition) {
  const std::vector<std::string> good{"W1", "W2"}, bad{"W1", "W'2"}, nul{"W1", std::string("W\0", 2)};
  EXPECT_EQ(kIn(QuoteEach(good)).text(), "select * from t where k in ('W1','W2')");
  EXPECT_TRUE(kIn(QuoteEach(bad)).refused());
  EXPECT_TRUE(kIn(QuoteEach(nul)).refused());
  // A statement used as a piece of another keeps its refusal.
  constexpr Pattern<"select * from (%s) x"> kOuter;
  EXPECT_EQ(kOuter(kTwo("W1", 2.0)).text(),
            "select * from (select * from w_well_data where WellID = 'W1' and Kb > 2.000000) x");
  EXPECT_TRUE(kOuter(kTwo("W'1", 2.0)).refused());
  EXPECT_TRUE(kOuter(kIn(QuoteEach(bad))).refused());
}

}  // namespace
}  // namespace petrodb::sql
