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

// Byte flips, inserted separators and control bytes, cut and repeated ranges.
std::string Mutate(const std::string& seed, std::mt19937& random) {
  static const std::string special = std::string("\r\n\0:.#~ \t\",;='\x1a", 16) + "\xEF\xBB\xBF";
  std::string s = seed;
  for (int e = 0, edits = 1 + static_cast<int>(random() % 4); e < edits; ++e) {
    const std::size_t at = s.empty() ? 0 : random() % (s.size() + 1);
    switch (random() % 5) {
      case 0: if (at < s.size()) s[at] = static_cast<char>(random()); break;
      case 1: s.insert(at, 1, special[random() % special.size()]); break;
      case 2: s.erase(at, random() % 16); break;
      case 3: s.insert(at, s.substr(at, random() % 32)); break;
      default: s.insert(at, std::to_string(static_cast<int>(random() % 2000) - 1000));
    }
  }
  return s;
}

void RunCorpus(const char* name, std::string (*target)(std::string_view)) {
  const fs::path dir = fs::path(PETRODB_TEST_SOURCE_DIR) / "fuzz" / "corpus" / name;
  std::mt19937 random(20240611);
  int seeds = 0, failures = 0;
  auto check = [&](const std::string& input) {
    const std::string failure = target(input);
    if (failure.empty() || ++failures > 3) return;
    ADD_FAILURE() << name << ": " << failure << "\ninput: " << ::testing::PrintToString(input);
  };
  for (const auto& entry : fs::directory_iterator(dir)) {
    std::ifstream in(entry.path(), std::ios::binary);
    const std::string seed{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    ++seeds;
    check(seed);
    for (int i = 0; i < 1000; ++i) check(Mutate(seed, random));
  }
  EXPECT_GT(seeds, 0) << dir;
  EXPECT_EQ(failures, 0);
}

TEST(FuzzSeedsTest, LasWriteThenReadGivesTheSameFile) { RunCorpus("las", fuzz::LasRoundTrip); }
TEST(FuzzSeedsTest, CsvReaderPlacesRowsAndRefusesNul) { RunCorpus("csv", fuzz::CsvReader); }
TEST(FuzzSeedsTest, ConnectionStringsMaskEveryPassword) { RunCorpus("connection", fuzz::ConnectionStringParser); }

}  // namespace
}  // namespace petrodb::test
