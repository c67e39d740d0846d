// The host's English glosses of the library's messages, and its progress bar.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <iterator>
#include <thread>

#include "../tools/petrodb/Glossary.h"
#include "../tools/petrodb/Progress.h"

namespace petrodb::test {
namespace {

namespace fs = std::filesystem;

// The source without its "//" comments (string literals kept whole).
std::string WithoutComments(const std::string& s) {
  std::string out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] == '"') {
      const std::size_t start = i++;
      while (i < s.size() && s[i] != '"') i += s[i] == '\\' ? 2 : 1;
      out.append(s, start, i - start + 1);
    } else if (s.compare(i, 2, "//") == 0) {
      i = s.find('\n', i) - 1;
    } else {
      out += s[i];
    }
  }
  return out;
}

// The texts the calls that show a message are given in the library's sources:
// each argument holding a literal becomes a pattern, "%s" for what is not literal
// ("井" + id + "的..." gives "井%s的...").
std::set<std::string> MessageTexts() {
  static const std::regex call(R"(\b(AppMessage|ErrorMessage|AfxMessageBox|ErrorMessageBox|ShowMessage|)"
                               R"(BeginWaitingDlg|CodeTableOf)\s*\()");
  std::set<std::string> texts;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(PETRODB_TEST_SOURCE_DIR) / "src")) {
    const auto ext = entry.path().extension();
    if (ext != ".cpp" && ext != ".h") continue;
    std::ifstream in(entry.path());
    const std::string s = WithoutComments({std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()});
    for (std::sregex_iterator m(s.begin(), s.end(), call), end; m != end; ++m) {
      std::string pattern;
      bool literal = false, other = false;
      int depth = 1;
      const auto argumentEnds = [&] {
        if (literal && pattern.find_first_not_of("%s") != std::string::npos) texts.insert(pattern);
        pattern.clear();
        literal = other = false;
      };
      for (std::size_t i = m->position() + m->length(); i < s.size() && depth > 0; ++i) {
        const char c = s[i];
        if (c == '"') {
          for (++i; s[i] != '"'; ++i) pattern += s[i] == '\\' ? (s[++i] == 'n' ? '\n' : s[i]) : s[i];
          literal = true;
          other = false;
        } else if (c == '(' || c == ')') {
          depth += c == '(' ? 1 : -1;
          if (depth == 0) argumentEnds();
        } else if (c == ',' && depth == 1) {
          argumentEnds();
        } else if (!std::isspace(static_cast<unsigned char>(c)) && c != '+' && !other) {
          pattern += "%s";
          other = true;
        }
      }
    }
  }
  return texts;
}

TEST(GlossaryTest, EveryMessageTheLibraryCanShowHasAGloss) {
  const auto texts = MessageTexts();
  ASSERT_GT(texts.size(), 80u);  // the scan found the library's messages
  for (const auto& text : texts) {
    if (std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }))
      continue;  // a table name or another plain argument
    bool covered = false;
    for (const auto& g : cli::Glossary()) covered = covered || cli::MatchPattern(g.text, text);
    EXPECT_TRUE(covered) << "no English gloss for the library's message \"" << text << "\"";
  }
  for (const auto& g : cli::Glossary()) EXPECT_TRUE(texts.count(g.text) || std::string(g.text) == "错误信息") << g.text;
}

TEST(GlossaryTest, MessagesAreGlossedWithTheirNamesOrShownAlone) {
  EXPECT_EQ(cli::English("工况 C-1 已经存在！"), "case C-1 already exists");
  EXPECT_EQ(cli::English("井W1的下列测井曲线的曲线值与深度值个数不同，请修改后再保存：\nGR, SP"),
            "well W1: these log curves have not as many values as depths; correct them before saving:\nGR, SP");
  EXPECT_FALSE(cli::English("工况 C-1 已经存在"));
  EXPECT_EQ(cli::MessageLine("保存数据库出错！", "错误信息"),
            "petrodb: 错误信息: 保存数据库出错！ (error: saving to the database failed)");
  cli::SetGlossed(false);
  EXPECT_EQ(cli::MessageLine("保存数据库出错！", "错误信息"), "petrodb: 错误信息: 保存数据库出错！");
  cli::SetGlossed(true);
}

TEST(GlossaryTest, ProgressShowsAfterASecondOnATerminalOnly) {
  ::testing::internal::CaptureStderr();
  cli::ProgressBar::Force(-1);  // stderr is a file now: no bar
  cli::ProgressBar silent("import", 100, "rows");
  cli::ProgressBar::Force(1);
  cli::ProgressBar shown("export", 100, "rows"), quick("quick", 100, "rows");
  quick.Set(10);  // under a second: nothing yet
  quick.Finish();
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  for (auto* bar : {&silent, &shown}) {
    bar->Set(50);
    bar->Finish();
  }
  cli::ProgressBar::Force(-1);
  const std::string written = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(written.find("import"), std::string::npos) << written;
  EXPECT_EQ(written.find("quick"), std::string::npos) << written;
  EXPECT_NE(written.find("export  50% [##########..........] 50/100 rows"), std::string::npos) << written;
  EXPECT_EQ(cli::ProgressBar::Line("las", 300, 0, "samples", 2), "las 300 samples  150 samples/s");
}

}  // namespace
}  // namespace petrodb::test
