// The text and array forms of the seismic tables, on their own.
#include <gtest/gtest.h>

#include <clocale>
#include <tuple>

#include "petrodb/seismic/SegyFormat.h"
#include "seismic/SeismicCodecs.h"

namespace petrodb::test {
namespace {

using namespace petrodb::seismic;

constexpr const char* kStandardText =
    "3200 400 1 3 6 DataFormatCode 3225 2  NumberOfSamples 3221 2  SampleInterval 3217 2  "
    "CDPNumber 21 4  LineNumber 9 4  StartTime 105 2  TraceIdentificationCode 29 2  XCoordinate 81 4  "
    "YCoordinate 85 4  ";

TEST(SegyLayoutText, StandardLayoutWritesItsEntriesByNameWithTheirBlanks) {
  SegyFormat layout;
  EXPECT_EQ(layout.ToText(), kStandardText);
  // Byte-wise order: upper case before lower case, whatever was added first.
  layout.flag = false;
  layout.Trace("cdpX") = {181, 4};
  layout.Trace("CoordinateScalar") = {71, 2};
  const std::string text = layout.ToText();
  EXPECT_EQ(text.substr(0, 15), "3200 400 0 3 8 ");
  EXPECT_LT(text.find("CoordinateScalar 71 2  "), text.find("LineNumber"));
  EXPECT_GT(text.find("cdpX 181 4  "), text.find("YCoordinate 85 4  "));

  SegyFormat back;
  back.flag = true;
  ASSERT_TRUE(back.ReadText(text));
  EXPECT_EQ(back, layout);
}

TEST(SegyLayoutText, ReadingGoesOverTheDefaults) {
  SegyFormat layout;
  // Two trace entries only, separated by any whitespace: the rest keep their defaults.
  ASSERT_TRUE(layout.ReadText("3600\t400\n1 0 2 XCoordinate 181 4\n\n YCoordinate 185 4"));
  EXPECT_EQ(std::make_tuple(layout.textHeaderLength, layout.Trace("XCoordinate"), layout.Trace("YCoordinate"),
                            layout.Trace("StartTime"), layout.traceFields.size()),
            std::make_tuple(3600, SegyFieldPos{181, 4}, SegyFieldPos{185, 4}, SegyFieldPos{105, 2}, 6u));

  // A name the layout lacks is inserted as {-1, 4}.
  EXPECT_EQ(layout.Trace("InlineNumber"), (SegyFieldPos{-1, 4}));
  EXPECT_EQ(layout.traceFields.size(), 7u);

  // A text cut short keeps what it gave before the cut.
  SegyFormat cut;
  EXPECT_FALSE(cut.ReadText("3200 400 0 1 0 SampleInterval 3219"));
  EXPECT_FALSE(cut.flag);
  EXPECT_EQ(cut.Binary("SampleInterval"), (SegyFieldPos{3217, 2}));
  SegyFormat empty;
  EXPECT_FALSE(empty.ReadText(""));
  EXPECT_EQ(empty, SegyFormat());
}

TEST(SeismicTextCodecs, PairsAndProfilesRoundTripInAnyLocale) {
  // A host running under a locale with a decimal comma must not change the texts.
  const std::string previous = std::setlocale(LC_NUMERIC, nullptr);
  std::setlocale(LC_NUMERIC, "de_DE.UTF-8");

  EXPECT_EQ(EncodePairs({1.5, -2, 1e-7}, {0.25, 3, 123456789}), "1.5,0.25;-2,3;1e-07,1.23457e+08;");
  EXPECT_EQ(EncodePairs({}, {}), "");
  std::vector<double> a{9}, b{9};
  DecodePairs("1.5,0.25;-2,3;7;tail", a, b);  // appends; a piece without ',' gives 0; no ';' ends
  EXPECT_EQ(a, (std::vector<double>{9, 1.5, -2, 7}));
  EXPECT_EQ(b, (std::vector<double>{9, 0.25, 3, 0}));

  EXPECT_EQ(EncodeProfilePoints({1, 2.5}, {-3, 4}), "1.000000,-3.000000,2.500000,4.000000");
  std::vector<double> x, y;
  DecodeProfilePoints("1.000000,-3.000000,2.500000,4.000000,9", x, y);
  EXPECT_EQ(std::tie(x, y), std::make_tuple(std::vector<double>{1, 2.5}, std::vector<double>{-3, 4}));

  std::setlocale(LC_NUMERIC, previous.c_str());
}

TEST(FaultStickPacking, NumbersContinueAcrossRecordsAndOnlyChangesStartASticks) {
  const FaultStick a{{1, 2}, {10, 20}, {100, 200}}, b{{3}, {30}, {300}}, c{{4, 5, 6}, {40, 50, 60}, {0, 0, 0}};
  int counter = 0;
  const auto first = EncodeSticks({a, b}, counter);
  const auto second = EncodeSticks({c}, counter);
  EXPECT_EQ(first, (std::vector<double>{1, 1, 10, 100, 1, 2, 20, 200, 2, 3, 30, 300}));
  EXPECT_EQ(second, (std::vector<double>{3, 4, 40, 0, 3, 5, 50, 0, 3, 6, 60, 0}));
  EXPECT_EQ(counter, 3);
  EXPECT_EQ(DecodeSticks(first), (std::vector<FaultStick>{a, b}));

  // Numbers 1,1,2,2,2 give sticks of 2 and 3 points; 5,5,5 one stick; a short rest is ignored.
  const auto sticks = DecodeSticks({1, 0, 0, 0, 1.9, 0, 0, 0, 2, 0, 0, 0, 2, 0, 0, 0, 2, 0, 0, 0, 7, 7});
  ASSERT_EQ(sticks.size(), 2u);
  EXPECT_EQ(std::make_tuple(sticks[0].X.size(), sticks[1].X.size()), std::make_tuple(2u, 3u));
  EXPECT_EQ(DecodeSticks({5, 1, 1, 1, 5, 2, 2, 2, 5, 3, 3, 3}).size(), 1u);
  EXPECT_TRUE(DecodeSticks({}).empty());
}

}  // namespace
}  // namespace petrodb::test
