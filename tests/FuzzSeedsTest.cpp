// The fuzz targets' properties over their seed corpus and a few thousand
// deterministic mutations of it: a cheap run of what scripts/fuzz.sh runs for
// minutes with libFuzzer, so that an input it once found stays fixed.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "../fuzz/Targets.h"

namespace petrodb::test {
namespace {

namespace fs = std::filesystem;
using Target = std::string (*)(std::string_view);

fs::path CorpusDir(const char* name) { return fs::path(PETRODB_TEST_SOURCE_DIR) / "fuzz" / "corpus" / name; }

std::vector<std::string> Seeds(const char* name) {
  std::vector<std::string> seeds;
  for (const auto& entry : fs::directory_iterator(CorpusDir(name))) {
    std::ifstream in(entry.path(), std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return seeds;
}

std::string Escaped(const std::string& bytes) {
  std::string out;
  char buffer[8];
  for (const char c : bytes) {
    const auto u = static_cast<unsigned char>(c);
    if (u >= 0x20 && u < 0x7f && c != '\\') {
      out += c;
    } else {
      std::snprintf(buffer, sizeof buffer, "\\x%02X", u);
      out += buffer;
    }
  }
  return out;
}

// Byte flips, inserted separators and control bytes, cut and repeated ranges.
std::string Mutate(const std::string& seed, std::mt19937& random) {
  static const std::string special = std::string("\r\n\0:.#~ \t\",;='\x1a", 16) + "\xEF\xBB\xBF";
  std::string s = seed;
  const int edits = 1 + static_cast<int>(random() % 4);
  for (int e = 0; e < edits; ++e) {
    const std::size_t at = s.empty() ? 0 : random() % (s.size() + 1);
    switch (random() % 5) {
      case 0:
        if (at < s.size()) s[at] = static_cast<char>(random());
        break;
      case 1:
        s.insert(at, 1, special[random() % special.size()]);
        break;
      case 2:
        s.erase(at, random() % 16);
        break;
      case 3:
        s.insert(at, s.substr(at, random() % 32));
        break;
      default:
        s.insert(at, std::to_string(static_cast<int>(random() % 2000) - 1000));
        break;
    }
  }
  return s;
}

void RunCorpus(const char* name, Target target) {
  const auto seeds = Seeds(name);
  ASSERT_FALSE(seeds.empty()) << CorpusDir(name);
  std::mt19937 random(20240611);
  int failures = 0;
  auto check = [&](const std::string& input) {
    const std::string failure = target(input);
    if (failure.empty() || ++failures > 3) return;
    ADD_FAILURE() << name << ": " << failure << "\ninput: \"" << Escaped(input) << "\"";
  };
  for (const auto& seed : seeds) {
    check(seed);
    for (int i = 0; i < 1000; ++i) check(Mutate(seed, random));
  }
  EXPECT_EQ(failures, 0);
}

TEST(FuzzSeedsTest, LasWriteThenReadGivesTheSameFile) { RunCorpus("las", fuzz::LasRoundTrip); }
TEST(FuzzSeedsTest, CsvReaderPlacesRowsAndRefusesNul) { RunCorpus("csv", fuzz::CsvReader); }
TEST(FuzzSeedsTest, ConnectionStringsMaskEveryPassword) { RunCorpus("connection", fuzz::ConnectionStringParser); }

}  // namespace
}  // namespace petrodb::test
