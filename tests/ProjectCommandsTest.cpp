// The petrodb host's project commands, run as a user runs them.
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>

#include "TestSupport.h"
#include "dbaccess/Pool.h"

namespace petrodb::test {
namespace {

namespace fs = std::filesystem;

struct CliRun {
  int code;
  std::string output;  // stdout and stderr together
};

CliRun Petrodb(const std::string& arguments) {
  const char* cli = std::getenv("PETRODB_CLI");
  const std::string program = cli ? cli : (fs::path(ProgramDirectory()) / "petrodb").string();
  FILE* pipe = popen((program + " " + arguments + " 2>&1").c_str(), "r");
  CliRun run{-1, {}};
  if (!pipe) return run;
  char buffer[4096];
  while (std::size_t n = fread(buffer, 1, sizeof buffer, pipe)) run.output.append(buffer, n);
  const int status = pclose(pipe);
  run.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
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
  const CliRun made = Petrodb("new " + dir_.string() + " North --extent 1,2,3,4 --depth-unit ft --description 'Main block'");
  ASSERT_EQ(made.code, 0) << made.output;
  const fs::path file = dir_ / "North" / "North.mdb";
  EXPECT_TRUE(fs::exists(file));
  const CliRun info = Petrodb("info " + file.string());
  ASSERT_EQ(info.code, 0) << info.output;
  EXPECT_NE(info.output.find("project North"), std::string::npos) << info.output;
  EXPECT_NE(info.output.find("Main block"), std::string::npos);
  EXPECT_NE(info.output.find("SN 1 .. 2, EW 3 .. 4"), std::string::npos);
  EXPECT_NE(info.output.find("depth unit    feet"), std::string::npos);
  EXPECT_NE(info.output.find("recent projects: North"), std::string::npos);
  // The same name again fails with the library's message and exit code 1.
  const CliRun again = Petrodb("new " + dir_.string() + " North");
  EXPECT_EQ(again.code, 1);
  EXPECT_NE(again.output.find("该工区已经存在，请重新操作！"), std::string::npos) << again.output;
}

TEST_F(ProjectCommandsTest, BadInputGivesUsageOrFailureCodes) {
  EXPECT_EQ(Petrodb("").code, 2);
  EXPECT_EQ(Petrodb("frobnicate").code, 2);
  EXPECT_EQ(Petrodb("new onlyone").code, 2);
  EXPECT_EQ(Petrodb("new " + dir_.string() + " X --extent 1,2,3").code, 2);
  EXPECT_EQ(Petrodb("new " + dir_.string() + " X --colour red").code, 2);
  EXPECT_EQ(Petrodb("new " + (dir_ / "missing").string() + " X").code, 1);
  const CliRun info = Petrodb("info " + (dir_ / "nothing.mdb").string());
  EXPECT_EQ(info.code, 1);
  EXPECT_NE(info.output.find("no project file at"), std::string::npos);
  EXPECT_EQ(Petrodb("--help").code, 0);
  EXPECT_EQ(Petrodb("new --help").code, 0);
}

TEST_F(ProjectCommandsTest, DemoRunsEveryStep) {
  const CliRun demo = Petrodb("demo " + dir_.string());
  ASSERT_EQ(demo.code, 0) << demo.output;
  EXPECT_NE(demo.output.find("== projects =="), std::string::npos);
  EXPECT_NE(demo.output.find("demo finished"), std::string::npos);
  // A second run in the same directory starts over.
  EXPECT_EQ(Petrodb("demo " + dir_.string()).code, 0);
}

}  // namespace
}  // namespace petrodb::test
