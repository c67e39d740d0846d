// The petrodb host's project commands, run as a user runs them.
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "TestSupport.h"
#include "dbaccess/Pool.h"

namespace petrodb::test {
namespace {

namespace fs = std::filesystem;

// Runs the host and expects it to end with `code`, saying `said`.
void ExpectSays(const std::string& arguments, int code, const std::string& said) {
  const CliRun run = RunPetrodb(arguments);
  EXPECT_EQ(run.code, code) << arguments;
  EXPECT_NE(run.output.find(said), std::string::npos) << arguments << "\n" << run.output;
}

class ProjectCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override { dir_ = MakeTempDir(); }
  void TearDown() override {
    db::ClearConnectionPool();
    fs::remove_all(dir_);
  }
  fs::path dir_;
};

TEST_F(ProjectCommandsTest, NewThenInfoShowsTheProject) {
  const CliRun made = RunPetrodb("new " + dir_.string() + " North --extent 1,2,3,4 --depth-unit ft --description 'Main block'");
  ASSERT_EQ(made.code, 0) << made.output;
  const std::string info = RunPetrodb("info " + (dir_ / "North" / "North.mdb").string()).output;
  for (const char* said : {"project North", "Main block", "SN 1 .. 2, EW 3 .. 4", "depth unit    feet",
                           "recent projects: North"})
    EXPECT_NE(info.find(said), std::string::npos) << said << "\n" << info;
  // The same name again fails with the library's message and exit code 1.
  ExpectSays("new " + dir_.string() + " North", 1, "petrodb: 该工区已经存在，请重新操作！ (this project already exists");
  // --lang zh, before or after the command, shows the original alone.
  for (const std::string& line : {"--lang zh new " + dir_.string() + " North", "new " + dir_.string() + " North --lang zh"}) {
    const CliRun zh = RunPetrodb(line);
    EXPECT_EQ(zh.code, 1);
    EXPECT_EQ(zh.output, "petrodb: 该工区已经存在，请重新操作！\n") << line;
  }
}

TEST_F(ProjectCommandsTest, BadInputGivesUsageOrFailureCodes) {
  EXPECT_EQ(RunPetrodb("").code, 2);
  EXPECT_EQ(RunPetrodb("frobnicate").code, 2);
  EXPECT_EQ(RunPetrodb("new onlyone").code, 2);
  EXPECT_EQ(RunPetrodb("new " + dir_.string() + " X --extent 1,2,3").code, 2);
  EXPECT_EQ(RunPetrodb("new " + dir_.string() + " X --colour red").code, 2);
  EXPECT_EQ(RunPetrodb("new " + (dir_ / "missing").string() + " X").code, 1);
  const CliRun server = RunPetrodb("server-create garbage demo");
  EXPECT_EQ(server.code, 1);
  EXPECT_EQ(server.output,
            "petrodb: cannot create database demo: no database backend accepts the connection string \"garbage\"\n");
  EXPECT_EQ(RunPetrodb("--help").code, 0);
  EXPECT_EQ(RunPetrodb("new --help").code, 0);
}

// Every byte of a file, or "(none)" when there is no file.
std::string Bytes(const fs::path& path) {
  if (fs::is_directory(path)) return "(a directory)";
  std::ifstream in(path, std::ios::binary);
  if (!in) return "(none)";
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

TEST_F(ProjectCommandsTest, FilesThatAreNoProjectAreNamedAndLeftAlone) {
  const fs::path text = dir_ / "notes.mdb", empty = dir_ / "empty.mdb", other = dir_ / "other.mdb",
                 cut = dir_ / "cut.mdb", folder = dir_ / "folder.mdb", missing = dir_ / "missing.mdb";
  std::ofstream(text, std::ios::binary) << "just some notes\n";
  std::ofstream(empty, std::ios::binary).flush();
  fs::create_directory(folder);
  // An SQLite database of someone else's, and a project cut short after its header.
  {
    const std::string templ = Bytes(TemplateFile());
    ASSERT_GT(templ.size(), 4096u);
    std::ofstream(cut, std::ios::binary) << templ.substr(0, 100);
  }
  {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(other.c_str(), &db), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(db, "create table w_well_data(WellID text)", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
  }
  const std::pair<fs::path, std::string> cases[] = {
      {text, text.string() + " is not a petrodb project file (not an SQLite database)"},
      {empty, empty.string() + " is empty (0 bytes), not a petrodb project file"},
      {folder, folder.string() + " is a directory, not a project file"},
      {missing, "no project file at " + missing.string()},
      {other, other.string() + " is not a petrodb project file: an SQLite database, but not a petrodb project"},
      {cut, cut.string() + " is not a petrodb project file: damaged or not a database"},
  };
  for (const auto& [path, said] : cases) {
    const std::string before = Bytes(path);
    for (const std::string& command : {"info " + path.string(), "wells list " + path.string() + " P",
                                      "wells import " + path.string() + " P " + text.string(),
                                      "las export " + path.string() + " W"})
      ExpectSays(command, 1, "petrodb: " + said);
    EXPECT_EQ(Bytes(path), before) << path;
    EXPECT_FALSE(fs::exists(path.string() + "-wal")) << path;
    EXPECT_FALSE(fs::exists(path.string() + "-journal")) << path;
  }
}

TEST_F(ProjectCommandsTest, ReadOnlyFilesAreReadButNeverWritten) {
  ASSERT_EQ(RunPetrodb("new " + dir_.string() + " North").code, 0);
  const fs::path file = dir_ / "North" / "North.mdb", text = dir_ / "notes.txt";
  std::ofstream(text, std::ios::binary) << "WellID\nA-1\n";
  fs::permissions(file, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  fs::permissions(text, fs::perms::owner_read);
  if (std::ofstream(file, std::ios::app))
    GTEST_SKIP() << "this user writes to read-only files (root): a read-only file cannot be made";
  const std::string before = Bytes(file);
  ExpectSays("info " + file.string(), 0, "project North");
  ExpectSays("wells import " + file.string() + " North " + text.string(), 1, file.string() + " is read-only");
  EXPECT_EQ(Bytes(file), before);
}

TEST_F(ProjectCommandsTest, DemoRunsEveryStep) {
  const CliRun demo = RunPetrodb("demo " + dir_.string());
  ASSERT_EQ(demo.code, 0) << demo.output;
  // Groups take the wells their policy names.
  for (const char* said : {"== projects ==", "demo finished", "  D-1 wells (by ID)      North 1, South 2\n",
                           "  North wells (by name)  North 1, North 3\n", "  Hand-picked            X-7\n"})
    EXPECT_NE(demo.output.find(said), std::string::npos) << said << "\n" << demo.output;
  // The demo's LAS file comes from the program itself.
  EXPECT_TRUE(std::filesystem::is_regular_file(dir_ / "demo.las"));
  // A second run keeps the first one's project unless told to replace it.
  ExpectSays("demo " + dir_.string(), 1, "Demo.mdb already exists; add --force to replace it");
  // Flags take no value wherever they stand.
  EXPECT_EQ(RunPetrodb("demo --force " + dir_.string()).code, 0);
  const std::string file = (dir_ / "Demo" / "Demo.mdb").string();
  const CliRun csv = RunPetrodb("production --csv " + file + " D-101");
  EXPECT_EQ(csv.code, 0) << csv.output;
  EXPECT_EQ(csv.output.rfind("month,reports,", 0), 0u) << csv.output;
}

}  // namespace
}  // namespace petrodb::test
