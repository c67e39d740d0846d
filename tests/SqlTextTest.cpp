// Statement building: C formatting, the quote refusal, value lists, conversions.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <tuple>

#include "dbaccess/ConnectionString.h"
#include "dbaccess/SqlText.h"

namespace petrodb::sql {
namespace {

TEST(SqlFormat, FollowsCSemantics) {
  EXPECT_EQ(Format("a %s b %d c %f d %.3f", "x", 42, 1.5, 2.0), "a x b 42 c 1.500000 d 2.000");
  EXPECT_EQ(Format("%d %d|%05d", -7, 3000000000LL, 42), "-7 3000000000|00042");
  EXPECT_EQ(Format("%.3f|%f", -0.0005, 1e20), "-0.001|100000000000000000000.000000");
  EXPECT_EQ(Format("100%% of %s", std::string("it")), "100% of it");
  // Too few values: no statement at all rather than a half-made one.
  EXPECT_EQ(Format("%s and %s", "one"), "");
}

TEST(SqlFormat, IsLocaleIndependent) {
  const std::string saved = std::setlocale(LC_NUMERIC, nullptr);
  if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8") && !std::setlocale(LC_NUMERIC, "fr_FR.UTF-8"))
    GTEST_SKIP() << "no comma-decimal locale installed";
  EXPECT_EQ(Format("%f %.3f", 1.25, 2.5), "1.250000 2.500");
  double v = 0;
  EXPECT_TRUE(ParseWholeNumber("1.25", v));
  EXPECT_EQ(v, 1.25);
  std::setlocale(LC_NUMERIC, saved.c_str());
}

TEST(SqlFormat, RefusesAQuoteInsideAQuotedValue) {
  EXPECT_EQ(Format("select * from t where k = '%s'", "O'Brien"), "");
  EXPECT_EQ(Format("select * from t where k = '%s' and j = '%s'", "a", "b'"), "");
  // The same value outside quotes is the caller's SQL and passes as it is.
  EXPECT_EQ(Format("select * from t where k in (%s) or k = '%s'", "'a','b'", ""),
            "select * from t where k in ('a','b') or k = ''");
}

TEST(SqlLists, JoinInTheThreeStyles) {
  const std::vector<std::string> ids = {"W1", "W2", "W3"};
  EXPECT_EQ(JoinQuotedValues(ids).text, "W1', 'W2', 'W3");
  EXPECT_EQ(Format("in ('%s')", JoinQuotedValues(ids)), "in ('W1', 'W2', 'W3')");
  EXPECT_EQ(QuoteEach(ids).text, "'W1','W2','W3'");
  EXPECT_EQ(InList(ids).text, "in ('W1', 'W2', 'W3')");
  EXPECT_EQ(InList({}).text, "in ('')");
  const std::vector<std::string> bad = {"W1", "W'2"};
  EXPECT_TRUE(JoinQuotedValues(bad).poisoned);
  EXPECT_TRUE(QuoteEach(bad).poisoned);
  EXPECT_EQ(Format("where id in (%s)", QuoteEach(bad)), "");
  // Lists sent in batches: an exact multiple makes no empty batch, no list no batch at all.
  EXPECT_EQ(Batches(std::vector<std::string>(10, "x"), 10).size(), 1u);
  EXPECT_TRUE(Batches({}, 10).empty());
}

TEST(SqlText, LowersAsciiOnly) {
  EXPECT_EQ(AsciiLower("WELL-12 井号ÄB"), "well-12 井号Äb");
  EXPECT_TRUE(EqualsIgnoreCase("WellID", "wellid"));
  EXPECT_FALSE(EqualsIgnoreCase("WellID", "wellids"));
}

TEST(SqlText, NumberConversions) {
  EXPECT_EQ(ShortestText(5.0), "5");
  EXPECT_EQ(ShortestText(1e300), "1e+300");
  double v = 0;
  EXPECT_TRUE(ParseWholeNumber(" 12.5 ", v));
  EXPECT_EQ(v, 12.5);
  EXPECT_FALSE(ParseWholeNumber("12abc", v) || ParseWholeNumber("", v));
  // The C functions read the leading number and ignore the rest.
  EXPECT_EQ(std::make_tuple(CAtoi("  -7x"), CAtoi("abc"), CAtof("3.5e2xyz")), std::make_tuple(-7, 0, 350.0));
}

TEST(ConnectionStrings, ParseKeysIgnoringCaseAndQuotedValues) {
  db::ConnectionString c("Provider=Microsoft.Jet.OLEDB.4.0; data source='/tmp/a;b.mdb';User ID=\"x\"\"y\"");
  EXPECT_EQ(c.Get("PROVIDER"), "Microsoft.Jet.OLEDB.4.0");
  EXPECT_EQ(c.Get("Data Source"), "/tmp/a;b.mdb");
  EXPECT_EQ(c.Get("user id"), "x\"y");
  EXPECT_FALSE(c.Has("Password"));
  EXPECT_EQ(db::ConnectionString::Masked("Host=h;Password=secret;User ID=u"), "Host=h;Password=***;User ID=u");
  EXPECT_EQ(db::ConnectionString::Masked("pwd='a;b';x=1"), "pwd=***;x=1");
}

TEST(ConnectionStrings, DialectIsToldByTheExactProviderText) {
  EXPECT_TRUE(db::IsJetConnection("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=a.mdb"));
  EXPECT_FALSE(db::IsJetConnection("provider=microsoft.jet.oledb.4.0;Data Source=a.mdb"));
  EXPECT_FALSE(db::IsJetConnection("Provider=PostgreSQL;Host=localhost"));
}

}  // namespace
}  // namespace petrodb::sql
