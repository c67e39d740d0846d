// LAS 2.0: the lenient reader, the strict writer, and the round trip through a well.
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

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

TEST(LasTest, ReadsUnwrappedAndWrappedData) {
  const std::string header =
      "~Version\n VERS. 2.0 : CWLS\n WRAP. NO : one line\n"
      "~Well\n STRT.M 1000 : start\n NULL. -999.25 : null\n"
      "~Curve\n DEPT.M : depth\n GR.GAPI : gamma\n RT.OHMM : resistivity\n";
  const las::File flat = ReadText(header + "~A\n1000 45.5 -999.25\n1000.5 47 2.25\n");
  ASSERT_EQ(flat.curves.size(), 3u);
  EXPECT_EQ(flat.curves[1].mnemonic, "GR");
  EXPECT_EQ(flat.curves[1].unit, "GAPI");
  EXPECT_EQ(flat.curves[2].description, "resistivity");
  EXPECT_EQ(flat.curves[0].values, (std::vector<double>{1000, 1000.5}));
  EXPECT_EQ(flat.curves[2].values, (std::vector<double>{-999.25, 2.25}));
  EXPECT_TRUE(flat.IsNull(flat.curves[2].values[0]));

  std::string wrapped = header;
  wrapped.replace(wrapped.find("WRAP. NO"), 8, "WRAP. YES");
  const las::File folded = ReadText(wrapped + "~ASCII\n1000\n45.5 -999.25\n1000.5\n47\n2.25\n");
  EXPECT_TRUE(folded.wrapped);
  for (int c = 0; c < 3; ++c) EXPECT_EQ(folded.curves[c].values, flat.curves[c].values);
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
  EXPECT_EQ(file.curves[1].mnemonic, "GR");
  EXPECT_EQ(file.curves[2].mnemonic, "GR_2");
  EXPECT_EQ(file.nullValue, -999.25);  // "-999.2500" compared as a number
  EXPECT_EQ(file.WellItem("well")->value, "A-1");
  EXPECT_EQ(file.WellItem("TIME")->value, "10:30");  // the description starts after the last colon
  // A short last line leaves its missing curve NULL; the index keeps a value equal to NULL.
  EXPECT_EQ(file.curves[0].values, (std::vector<double>{-999.25, 10, 11}));
  EXPECT_EQ(file.curves[2].values, (std::vector<double>{1, 30, -999.25}));
  EXPECT_EQ(file.warnings.size(), 2u);

  las::File bad;
  std::string error;
  std::istringstream garbage("just some text\n");
  EXPECT_FALSE(las::Read(garbage, bad, error));
  std::istringstream letters("~V\n~C\n D.M :\n~A\n1 x\n");
  EXPECT_FALSE(las::Read(letters, bad, error));
  EXPECT_EQ(error, "line 5: not a number: x");
}

TEST(LasTest, ReadsCarriageReturnLineEndsAloneOrMixed) {
  const std::string lf =
      "~V\n VERS. 2.0 :\n~W\n NULL. -1 : null\n~C\n DEPT.M : depth\n GR.API : gamma\n~A\n1 10\n2 -1\n";
  const las::File expected = ReadText(lf);
  std::string cr = lf, mixed = lf;
  for (char& c : cr)
    if (c == '\n') c = '\r';
  mixed.replace(mixed.find("\n~W"), 1, "\r");
  mixed.replace(mixed.find("\n GR"), 1, "\r\n");
  for (const std::string* text : {&cr, &mixed}) {
    const las::File file = ReadText(*text);
    ASSERT_EQ(file.curves.size(), 2u);
    EXPECT_EQ(file.curves[1].mnemonic, "GR");
    EXPECT_EQ(file.curves[1].description, "gamma");
    EXPECT_EQ(file.curves[0].values, expected.curves[0].values);
    EXPECT_EQ(file.curves[1].values, expected.curves[1].values);
    EXPECT_TRUE(file.IsNull(file.curves[1].values[1]));
  }
  // Line numbers count CR alone, LF alone and CR-LF each as one line end.
  las::File bad;
  std::string error;
  std::istringstream in("~V\r~C\r\n D.M :\n\r~A\r1 x\r");
  EXPECT_FALSE(las::Read(in, bad, error));
  EXPECT_EQ(error, "line 6: not a number: x");
  // A byte order mark does not hide the first section.
  EXPECT_EQ(ReadText("\xEF\xBB\xBF" + lf).curves.size(), 2u);
}

TEST(LasTest, DuplicateMnemonicsGetFreeNamesFromTheirOwnBase) {
  const las::File file = ReadText("~V\n~C\n GR.:\n GR.:\n GR_2.:\n gr.:\n CURVE5.:\n .:\n~A\n1 2 3 4 5 6\n");
  std::vector<std::string> names;
  for (const auto& c : file.curves) names.push_back(c.mnemonic);
  EXPECT_EQ(names, (std::vector<std::string>{"GR", "GR_2", "GR_2_2", "gr_3", "CURVE5", "CURVE6"}));
  const las::File unnamed = ReadText("~V\n~C\n CURVE2.:\n .:\n~A\n1 2\n");
  EXPECT_EQ(unnamed.curves[1].mnemonic, "CURVE2_2");
}

TEST(LasTest, WriterRefusesWhatItCannotReadBack) {
  las::File file;
  std::string error;
  std::ostringstream out;
  EXPECT_FALSE(las::Write(out, file, error));
  file.curves = {{"DEPT", "M", "", {1, 2}}, {"GR", "API", "", {1}}};
  EXPECT_FALSE(las::Write(out, file, error));
  file.curves[1] = {"G R", "API", "", {1, 2}};
  EXPECT_FALSE(las::Write(out, file, error));
  file.curves[1] = {"dept", "API", "", {1, 2}};
  EXPECT_FALSE(las::Write(out, file, error));
  EXPECT_TRUE(out.str().empty());

  // Each text a line of the file could not carry as it is, with the words the
  // error must use to name it.
  const las::Curve fine{"GR", "API", "gamma", {1, 2}};
  const las::Item item{"WELL", "", "A-1", "well"};
  struct Case {
    const char* what;
    las::Curve curve;
    las::Item well;
    las::Item parameter;
    const char* error;
  };
  const Case cases[] = {
      {"a comment mnemonic", {"#", "", "", {1, 2}}, item, item, "curve \"#\": the mnemonic \"#\" begins with '#'"},
      {"a section mnemonic", {"~A", "", "", {1, 2}}, item, item, "begins with '~'"},
      {"CR starting a mnemonic", {"\rGR", "", "", {1, 2}}, item, item, "the mnemonic \"\\rGR\" holds a line break"},
      {"a dot", {"G.R", "", "", {1, 2}}, item, item, "holds a '.'"},
      {"a colon", {"G:R", "", "", {1, 2}}, item, item, "holds a ':'"},
      {"a tab", {"G\tR", "", "", {1, 2}}, item, item, "holds a blank"},
      {"a blank in the unit", {"GR", "m s", "", {1, 2}}, item, item, "the unit \"m s\" holds a blank"},
      {"a colon in a description", {"GR", "", "a: b", {1, 2}}, item, item, "the description \"a: b\" holds a ':'"},
      {"a line break in a description", {"GR", "", "one\ntwo", {1, 2}}, item, item, "\"one\\ntwo\" holds a line break"},
      {"CR-LF in a description", {"GR", "", "x\r\n\rGR", {1, 2}}, item, item, "holds a line break"},
      {"blanks around a description", {"GR", "", " x", {1, 2}}, item, item, "begins or ends with a blank"},
      {"an end-of-file byte", {"GR", "", "x\x1a", {1, 2}}, item, item, "\"x\\x1A\" holds a line break or an end-of-file"},
      {"CR in a well value", fine, {"WELL", "", "A\r1", ""}, item, "well item \"WELL\": the value"},
      {"a blank after a well value", fine, {"WELL", "", "A-1 ", ""}, item, "begins or ends with a blank"},
      {"a dot in a parameter mnemonic", fine, item, {"B.HT", "", "1", ""}, "parameter \"B.HT\": the mnemonic"},
      {"a comment parameter", fine, item, {"#BHT", "", "1", ""}, "begins with '#'"},
      {"an infinite sample", {"GR", "", "", {1, std::numeric_limits<double>::infinity()}}, item, item,
       "sample 2 is inf, which a LAS file reads as NULL"},
      {"a ruler curve", {"---", "", "", {1, 2}}, item, item, "would read as a ruler or title line"},
      {"a unit that begins with a dot", {"GR", ".5", "", {1, 2}}, item, item, "the unit begins with '.'"},
  };
  for (const auto& c : cases) {
    las::File bad;
    bad.curves = {{"DEPT", "M", "", {1, 2}}, c.curve};
    bad.well = {c.well};
    bad.parameters = {c.parameter};
    std::ostringstream text;
    error.clear();
    EXPECT_FALSE(las::Write(text, bad, error)) << c.what << ":\n" << text.str();
    EXPECT_NE(error.find(c.error), std::string::npos) << c.what << ": " << error;
    EXPECT_TRUE(text.str().empty()) << c.what;
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
  ASSERT_EQ(back.curves.size(), file.curves.size()) << out.str();
  for (std::size_t c = 0; c < file.curves.size(); ++c) {
    EXPECT_EQ(back.curves[c].mnemonic, file.curves[c].mnemonic);
    EXPECT_EQ(back.curves[c].unit, file.curves[c].unit);
    EXPECT_EQ(back.curves[c].description, file.curves[c].description);
    ASSERT_EQ(back.curves[c].values.size(), 3u);
    for (std::size_t r = 0; r < 3; ++r) {
      const double a = file.curves[c].values[r], b = back.curves[c].values[r];
      if (std::isnan(a))
        EXPECT_TRUE(std::isnan(b));
      else
        EXPECT_EQ(std::memcmp(&a, &b, sizeof a), 0) << file.curves[c].mnemonic << " " << r;
    }
  }
  // The writer puts STRT, STOP, STEP and NULL first; the file's own items follow.
  ASSERT_EQ(back.well.size(), 7u);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(back.well[4 + i].mnemonic, file.well[i].mnemonic);
    EXPECT_EQ(back.well[4 + i].value, file.well[i].value);
    EXPECT_EQ(back.well[4 + i].description, file.well[i].description);
  }
  ASSERT_EQ(back.parameters.size(), 1u);
  EXPECT_EQ(back.parameters[0].unit, "DEGC");
  EXPECT_EQ(back.parameters[0].value, "35.5");
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
    Expected e;
    e.name = entry.path().string();
    std::ifstream in(std::filesystem::path(entry.path()).replace_extension(".expect"));
    EXPECT_TRUE(in) << e.name << " has no .expect file";
    for (std::string line; std::getline(in, line);) {
      const auto space = line.find(' ');
      const std::string kind = line.substr(0, space);
      std::string rest = space == std::string::npos ? "" : line.substr(space + 1);
      if (kind == "curve") {
        las::Curve c;
        c.mnemonic = Cut(rest);
        c.unit = Cut(rest);
        std::istringstream words(rest);
        std::vector<bool> nulls;
        for (std::string w; words >> w;) {
          nulls.push_back(w == "null");
          c.values.push_back(w == "null" ? 0 : std::stod(w));
        }
        e.file.curves.push_back(c);
        e.nulls.push_back(nulls);
      } else if (kind == "desc") {
        const std::string name = Cut(rest);
        for (auto& c : e.file.curves)
          if (c.mnemonic == name) c.description = rest;
      } else if (kind == "item") {
        const bool well = rest[0] == 'W';
        rest.erase(0, 2);
        const std::string mnemonic = Cut(rest);
        (well ? e.file.well : e.file.parameters).push_back({mnemonic, "", rest, ""});
      } else if (kind == "note") {
        e.notes.push_back(rest);
      } else if (kind == "error") {
        e.error = rest;
      }
    }
    all.push_back(std::move(e));
  }
  EXPECT_GE(all.size(), 20u);
  return all;
}

const las::Item* FindItem(const std::vector<las::Item>& items, const std::string& mnemonic) {
  for (const auto& item : items)
    if (item.mnemonic == mnemonic) return &item;
  return nullptr;
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
      EXPECT_EQ(got.mnemonic, want.mnemonic);
      EXPECT_EQ(got.unit, want.unit) << want.mnemonic;
      if (!want.description.empty()) {
        EXPECT_EQ(got.description, want.description) << want.mnemonic;
      }
      ASSERT_EQ(got.values.size(), want.values.size()) << want.mnemonic;
      for (std::size_t r = 0; r < got.values.size(); ++r) {
        if (e.nulls[c][r])
          EXPECT_TRUE(file.IsNull(got.values[r])) << want.mnemonic << " sample " << r << ": " << got.values[r];
        else
          EXPECT_EQ(got.values[r], want.values[r]) << want.mnemonic << " sample " << r;
      }
    }
    for (const auto* list : {&e.file.well, &e.file.parameters})
      for (const auto& item : *list) {
        const las::Item* got = FindItem(list == &e.file.well ? file.well : file.parameters, item.mnemonic);
        ASSERT_NE(got, nullptr) << item.mnemonic;
        EXPECT_EQ(got->value, item.value);
      }
    for (const auto& note : e.notes) {
      bool found = false;
      for (const auto& w : file.warnings) found = found || w.find(note) != std::string::npos;
      EXPECT_TRUE(found) << "no note \"" << note << "\" among:\n" << ::testing::PrintToString(file.warnings);
    }
  }
}

// Under the names an import stores, every file the reader takes is written,
// read back and written again to the same text and the same bits.
TEST(LasFolderTest, EveryReadableFileGoesThroughTheWriterUnchanged) {
  for (const Expected& e : Folder()) {
    SCOPED_TRACE(e.name);
    las::File file;
    std::string error;
    if (!las::ReadFile(e.name, file, error)) continue;
    for (auto& c : file.curves) c.mnemonic = las::StorableName(c.mnemonic);
    std::ostringstream first, second;
    ASSERT_TRUE(las::Write(first, file, error)) << error;
    const las::File back = ReadText(first.str());
    ASSERT_EQ(back.curves.size(), file.curves.size());
    for (std::size_t c = 0; c < file.curves.size(); ++c) {
      EXPECT_EQ(back.curves[c].mnemonic, file.curves[c].mnemonic);
      EXPECT_EQ(back.curves[c].unit, file.curves[c].unit);
      EXPECT_EQ(back.curves[c].description, file.curves[c].description);
      const auto &a = file.curves[c].values, &b = back.curves[c].values;
      ASSERT_EQ(a.size(), b.size());
      EXPECT_EQ(std::memcmp(a.data(), b.data(), a.size() * sizeof(double)), 0) << file.curves[c].mnemonic;
    }
    ASSERT_TRUE(las::Write(second, back, error)) << error;
    EXPECT_EQ(second.str(), first.str());
  }
}

class LasRoundTripTest : public ProjectTest {};

TEST_F(LasRoundTripTest, ExportThenImportGivesTheSameBits) {
  las::File file;
  file.nullValue = -999.25;
  file.hasNull = true;
  std::vector<double> depth, gr, odd;
  for (int i = 0; i < 200; ++i) {
    depth.push_back(1500.0 + i * 0.1);  // steps that are not exact in binary
    gr.push_back(i % 17 == 0 ? -999.25 : 1.0 / (i + 3));
    odd.push_back(i % 2 ? 1e-310 : -0.0);
  }
  file.curves = {{"DEPT", "M", "depth", depth}, {"GR", "API", "", gr}, {"ODD", "", "", odd}};
  std::ostringstream first;
  std::string error;
  ASSERT_TRUE(las::Write(first, file, error)) << error;

  WellLog log;
  las::ToWellLog(ReadText(first.str()), "W1", log);
  auto logs = Make<ILogData>("ILogData");
  ASSERT_TRUE(logs->SaveWellLog(log));
  WellLog back;
  ASSERT_TRUE(logs->LoadCurves("W1", {"GR", "ODD"}, back));
  EXPECT_EQ(back.NullValue, -999.25);
  for (const auto& [name, values] : {std::pair{"DEPT", &depth}, {"GR", &gr}, {"ODD", &odd}}) {
    const LogCurve* curve = back.Find(name);
    ASSERT_NE(curve, nullptr) << name;
    ASSERT_EQ(curve->Values.size(), values->size());
    EXPECT_EQ(std::memcmp(curve->Values.data(), values->data(), values->size() * sizeof(double)), 0) << name;
    EXPECT_EQ(curve->DepthCurve, back.Find("DEPT"));
  }
  EXPECT_EQ(back.Find("GR")->Measure, "API");
}

// The curves and the file's header are saved together or not at all.
TEST_F(LasRoundTripTest, AnImportKeepsItsHeaderWithItsCurvesOrNeither) {
  WellLog log;
  las::ToWellLog(ReadText("~V\n~C\n DEPT.M : depth\n GR.API : gamma\n~A\n1 2\n"), "W1", log);
  auto store = MakeLasFileStore(connection_);
  const std::vector<LasItemRecord> items = {{"W1", "DEPT", "C", 0, "DEPT", "M", "", "depth"},
                                            {"W1", "DEPT", "W", 0, "COMP", "", "O'Neil & Co", "company"}};
  ASSERT_TRUE(store->SaveImport(log, "DEPT", items));
  std::vector<LasItemRecord> back;
  ASSERT_TRUE(store->LoadItems("W1", "DEPT", back));
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[0].Description, "depth");
  EXPECT_EQ(back[1].ItemValue, "O'Neil & Co");
  // A key the header's statements refuse undoes the curves saved before it.
  log.Curves[1].Values = {7};
  EXPECT_FALSE(store->SaveImport(log, "DE'PT", items));
  WellLog stored;
  ASSERT_TRUE(Make<ILogData>("ILogData")->LoadCurves("W1", {"GR"}, stored));
  EXPECT_EQ(stored.Find("GR")->Values, (std::vector<double>{2}));
}

}  // namespace
}  // namespace petrodb::test
