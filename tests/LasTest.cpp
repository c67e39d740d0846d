// LAS 2.0: the lenient reader, the strict writer, and the round trip through a well.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <tuple>

#include "TestSupport.h"
#include "formats/Las.h"
#include "petrodb/welllog/ILogData.h"
#include "welllog/LasFileStore.h"

namespace petrodb::test {
namespace {

las::File ReadText(const std::string& text) {
  las::File file;
  std::string error;
  std::istringstream in(text);
  EXPECT_TRUE(las::Read(in, file, error)) << error;
  return file;
}

// Curves alike in name, unit, description and the bits of every sample (NaN as NaN).
void ExpectSameCurves(const std::vector<las::Curve>& got, const std::vector<las::Curve>& want) {
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t c = 0; c < want.size(); ++c) {
    const las::Curve &a = want[c], &b = got[c];
    EXPECT_EQ(std::tie(b.mnemonic, b.unit, b.description), std::tie(a.mnemonic, a.unit, a.description));
    ASSERT_EQ(b.values.size(), a.values.size()) << a.mnemonic;
    for (std::size_t r = 0; r < a.values.size(); ++r)
      EXPECT_TRUE(std::isnan(a.values[r]) ? std::isnan(b.values[r])
                                          : std::memcmp(&a.values[r], &b.values[r], sizeof(double)) == 0)
          << a.mnemonic << " sample " << r << ": " << b.values[r];
  }
}

TEST(LasTest, ToleratesOddHeaders) {
  const std::string text =
      "# exported by some tool\r\n"
      "~V\r\n VERS.   2.0 :\r\n"
      "~W  whatever follows\r\n NULL .   -999.2500 : NULL\r\n  WELL.   A-1 : WELL\r\n TIME.  10:30 : LOGGING TIME\r\n"
      "~c\r\n DEPT.M : \r\n GR .API :\r\n GR .API : second run\r\n\r\n"
      "~Other\r\n anything: at all\r\n"
      "~a depth GR GR\r\n"
      "# a comment among the data\r\n"
      "-999.25 -999.25 1\r\n 10 20 30\r\n 11 21\r\n\x1a";
  const las::File file = ReadText(text);
  ASSERT_EQ(file.curves.size(), 3u);
  EXPECT_EQ(file.nullValue, -999.25);  // "-999.2500" compared as a number
  EXPECT_EQ(file.WellItem("well")->value, "A-1");
  EXPECT_EQ(file.WellItem("TIME")->value, "10:30");  // the description starts after the last colon
  // A short last line leaves its missing curve NULL; the index keeps a value equal to NULL.
  EXPECT_EQ(file.curves[0].values, (std::vector<double>{-999.25, 10, 11}));
  EXPECT_EQ(file.curves[2].values, (std::vector<double>{1, 30, -999.25}));
  EXPECT_EQ(file.warnings.size(), 2u);
}

TEST(LasTest, ReadsCarriageReturnLineEndsAloneOrMixed) {
  const std::string lf =
      "~V\n VERS. 2.0 :\n~W\n NULL. -1 : null\n~C\n DEPT.M : depth\n GR.API : gamma\n~A\n1 10\n2 -1\n";
  std::string cr = lf, mixed = lf;
  std::replace(cr.begin(), cr.end(), '\n', '\r');
  mixed.replace(mixed.find("\n~W"), 1, "\r");
  mixed.replace(mixed.find("\n GR"), 1, "\r\n");
  // A byte order mark does not hide the first section.
  for (const std::string& text : {cr, mixed, "\xEF\xBB\xBF" + lf}) {
    const las::File file = ReadText(text);
    ExpectSameCurves(file.curves, ReadText(lf).curves);
    EXPECT_EQ(file.nullValue, -1);
  }
  // Line numbers count CR alone, LF alone and CR-LF each as one line end.
  las::File bad;
  std::string error;
  std::istringstream in("~V\r~C\r\n D.M :\n\r~A\r1 x\r");
  EXPECT_FALSE(las::Read(in, bad, error));
  EXPECT_EQ(error, "line 6: not a number: x");
}

TEST(LasTest, WriterRefusesWhatItCannotReadBack) {
  las::File empty;
  std::string error;
  std::ostringstream none;
  EXPECT_FALSE(las::Write(none, empty, error));
  // Each curve or item a file could not carry as it is, with the words the error must use to name it.
  const las::Item item{"WELL", "", "A-1", "well"};
  const las::Curve fine{"GR", "API", "gamma", {1, 2}};
  const struct {
    las::Curve curve;
    las::Item well, parameter;
    const char* error;
  } cases[] = {
      {{"GR", "API", "", {1}}, item, item, "curve GR has 1 samples, the index 2"},
      {{"dept", "API", "", {1, 2}}, item, item, "duplicate curve mnemonic dept"},
      {{"#", "", "", {1, 2}}, item, item, "curve \"#\": the mnemonic \"#\" begins with '#'"},
      {{"~A", "", "", {1, 2}}, item, item, "begins with '~'"},
      {{"\rGR", "", "", {1, 2}}, item, item, "the mnemonic \"\\rGR\" holds a line break"},
      {{"G.R", "", "", {1, 2}}, item, item, "holds a '.'"},
      {{"G:R", "", "", {1, 2}}, item, item, "holds a ':'"},
      {{"G\tR", "", "", {1, 2}}, item, item, "holds a blank"},
      {{"GR", "m s", "", {1, 2}}, item, item, "the unit \"m s\" holds a blank"},
      {{"GR", ".5", "", {1, 2}}, item, item, "the unit begins with '.'"},
      {{"GR", "", "a: b", {1, 2}}, item, item, "the description \"a: b\" holds a ':'"},
      {{"GR", "", " x", {1, 2}}, item, item, "begins or ends with a blank"},
      {{"GR", "", "x\x1a", {1, 2}}, item, item, "\"x\\x1A\" holds a line break or an end-of-file"},
      {{"GR", "", "", {1, std::numeric_limits<double>::infinity()}}, item, item,
       "sample 2 is inf, which a LAS file reads as NULL"},
      {{"---", "", "", {1, 2}}, item, item, "would read as a ruler or title line"},
      {fine, {"WELL", "", "A\r1", ""}, item, "well item \"WELL\": the value"},
      {fine, item, {"B.HT", "", "1", ""}, "parameter \"B.HT\": the mnemonic"},
  };
  for (const auto& c : cases) {
    las::File bad;
    bad.curves = {{"DEPT", "M", "", {1, 2}}, c.curve};
    bad.well = {c.well};
    bad.parameters = {c.parameter};
    std::ostringstream text;
    error.clear();
    EXPECT_FALSE(las::Write(text, bad, error)) << c.error << ":\n" << text.str();
    EXPECT_NE(error.find(c.error), std::string::npos) << error;
    EXPECT_TRUE(text.str().empty()) << c.error;
  }
}

TEST(LasTest, WhatTheWriterAcceptsReadsBackAsItWas) {
  // Texts at the edge of what a line can carry: colons in units and values,
  // '#' and '~' inside a mnemonic or starting a description, an empty item
  // mnemonic, UTF-8, and numbers without a short form.
  las::File file;
  file.nullValue = std::nan("");
  file.hasNull = true;
  file.curves = {{"DEPT", "ft", "#1 depth ~ measured", {-0.0, 1e-310, 5}},
                 {"A#B", "a:b", "", {5e-324, -1.7976931348623157e308, 0.1}},
                 {"T~", "", "伽马 ray", {std::nan(""), 1, 2}}};
  file.well = {{"TIME", "", "10:30", "logging time"}, {"", "", "x : y", ""}, {"UWI", "", "", ""}};
  file.parameters = {{"BHT", "DEGC", "35.5", "bottom hole temperature"}};
  std::ostringstream out;
  std::string error;
  ASSERT_TRUE(las::Write(out, file, error)) << error;
  const las::File back = ReadText(out.str());
  ExpectSameCurves(back.curves, file.curves);
  // The writer puts STRT, STOP, STEP and NULL first; the file's own items follow.
  ASSERT_EQ(back.well.size(), 7u);
  for (std::size_t i = 0; i < 3; ++i) {
    const las::Item &a = file.well[i], &b = back.well[4 + i];
    EXPECT_EQ(std::tie(b.mnemonic, b.value, b.description), std::tie(a.mnemonic, a.value, a.description));
  }
  ASSERT_EQ(back.parameters.size(), 1u);
  EXPECT_EQ(std::tie(back.parameters[0].unit, back.parameters[0].value), std::tie(file.parameters[0].unit, file.parameters[0].value));
  EXPECT_TRUE(std::isnan(back.nullValue));
}

// The files of tests/las, each beside its expectations (<name>.expect), one
// line each:
//   curve <mnemonic> | <unit> | <values, "null" for the file's NULL>
//   desc <mnemonic> | <description>
//   item W|P <mnemonic> | <value>
//   note <text one of the reader's notes holds>
//   error <text the refusal holds>
struct Expected {
  std::string name;
  las::File file;  // curves, descriptions and items as expected
  std::vector<std::vector<bool>> nulls;
  std::vector<std::string> notes;
  std::string error;
};

std::string Cut(std::string& rest) {  // the text before the next " | ", trimmed off `rest`
  const auto bar = rest.find(" | ");
  std::string head = rest.substr(0, bar);
  rest = bar == std::string::npos ? "" : rest.substr(bar + 3);
  return head;
}

std::vector<Expected> Folder() {
  std::vector<Expected> all;
  for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(PETRODB_TEST_SOURCE_DIR) / "tests/las")) {
    if (entry.path().extension() != ".las") continue;
    Expected& e = all.emplace_back();
    e.name = entry.path().string();
    std::ifstream in(std::filesystem::path(entry.path()).replace_extension(".expect"));
    EXPECT_TRUE(in) << e.name << " has no .expect file";
    for (std::string line; std::getline(in, line);) {
      const auto space = line.find(' ');
      const std::string kind = line.substr(0, space);
      std::string rest = space == std::string::npos ? "" : line.substr(space + 1);
      if (kind == "curve") {
        las::Curve& c = e.file.curves.emplace_back();
        c.mnemonic = Cut(rest);
        c.unit = Cut(rest);
        std::istringstream words(rest);
        auto& nulls = e.nulls.emplace_back();
        for (std::string w; words >> w;) {
          nulls.push_back(w == "null");
          c.values.push_back(w == "null" ? 0 : std::stod(w));
        }
      } else if (kind == "desc") {
        const std::string name = Cut(rest);
        for (auto& c : e.file.curves)
          if (c.mnemonic == name) c.description = rest;
      } else if (kind == "item") {
        auto& list = rest[0] == 'W' ? e.file.well : e.file.parameters;
        rest.erase(0, 2);
        const std::string mnemonic = Cut(rest);
        list.push_back({mnemonic, "", rest, ""});
      } else if (kind == "note") {
        e.notes.push_back(rest);
      } else if (kind == "error") {
        e.error = rest;
      }
    }
  }
  EXPECT_GE(all.size(), 20u);
  return all;
}

TEST(LasFolderTest, EachFileReadsAsExpectedOrIsRefusedWithItsReason) {
  for (const Expected& e : Folder()) {
    SCOPED_TRACE(e.name);
    las::File file;
    std::string error;
    const bool read = las::ReadFile(e.name, file, error);
    if (!e.error.empty()) {
      EXPECT_FALSE(read);
      EXPECT_NE(error.find(e.error), std::string::npos) << error;
      continue;
    }
    ASSERT_TRUE(read) << error;
    ASSERT_EQ(file.curves.size(), e.file.curves.size());
    for (std::size_t c = 0; c < file.curves.size(); ++c) {
      const auto &got = file.curves[c], &want = e.file.curves[c];
      EXPECT_EQ(std::tie(got.mnemonic, got.unit), std::tie(want.mnemonic, want.unit));
      EXPECT_TRUE(want.description.empty() || got.description == want.description) << got.description;
      ASSERT_EQ(got.values.size(), want.values.size()) << want.mnemonic;
      for (std::size_t r = 0; r < got.values.size(); ++r)
        EXPECT_TRUE(e.nulls[c][r] ? file.IsNull(got.values[r]) : got.values[r] == want.values[r])
            << want.mnemonic << " sample " << r << ": " << got.values[r];
    }
    for (const auto* list : {&e.file.well, &e.file.parameters})
      for (const auto& item : *list) {
        const auto& items = list == &e.file.well ? file.well : file.parameters;
        const auto got = std::find_if(items.begin(), items.end(), [&](const las::Item& i) { return i.mnemonic == item.mnemonic; });
        ASSERT_NE(got, items.end()) << item.mnemonic;
        EXPECT_EQ(got->value, item.value);
      }
    for (const auto& note : e.notes)
      EXPECT_TRUE(std::any_of(file.warnings.begin(), file.warnings.end(),
                              [&](const std::string& w) { return w.find(note) != std::string::npos; }))
          << "no note \"" << note << "\" among:\n" << ::testing::PrintToString(file.warnings);
  }
}

class LasRoundTripTest : public ProjectTest {};

// An import stores the file's curves as a well log, and the file's header with
// them or not at all.
TEST_F(LasRoundTripTest, AnImportKeepsItsHeaderWithItsCurvesOrNeither) {
  WellLog log, stored, after;
  las::ToWellLog(ReadText("~V\n~W\n NULL. -999.25 :\n~C\n DEPT.M : depth\n GR.API : gamma\n~A\n1500.1 -999.25\n1500.2 0.1\n"),
                 "W1", log);
  auto store = MakeLasFileStore(connection_);
  const std::vector<LasItemRecord> items = {{"W1", "DEPT", "C", 0, "DEPT", "M", "", "depth"},
                                            {"W1", "DEPT", "W", 0, "COMP", "", "O'Neil & Co", "company"}};
  ASSERT_TRUE(store->SaveImport(log, "DEPT", items));
  std::vector<LasItemRecord> back;
  ASSERT_TRUE(store->LoadItems("W1", "DEPT", back));
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[1].ItemValue, "O'Neil & Co");
  ASSERT_TRUE(Make<ILogData>("ILogData")->LoadCurves("W1", {"GR"}, stored));
  EXPECT_EQ(stored.NullValue, -999.25);
  const LogCurve* gr = stored.Find("GR");
  ASSERT_TRUE(gr && gr->DepthCurve && gr->DepthCurve == stored.Find("DEPT"));
  EXPECT_EQ(std::tie(gr->Measure, gr->Values, gr->DepthCurve->Values),
            std::make_tuple("API", std::vector<double>{-999.25, 0.1}, std::vector<double>{1500.1, 1500.2}));
  // A key the header's statements refuse undoes the curves saved before it.
  log.Curves[1].Values = {7, 8};
  EXPECT_FALSE(store->SaveImport(log, "DE'PT", items));
  ASSERT_TRUE(Make<ILogData>("ILogData")->LoadCurves("W1", {"GR"}, after));
  EXPECT_EQ(after.Find("GR")->Values, gr->Values);
}

}  // namespace
}  // namespace petrodb::test
