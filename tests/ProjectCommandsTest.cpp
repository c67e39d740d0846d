// The petrodb host's project commands, run as a user runs them.
#include <cstdio>
#include <filesystem>

#include "TestSupport.h"
#include "dbaccess/Pool.h"

namespace petrodb::test {
namespace {

namespace fs = std::filesystem;

CliRun Petrodb(const std::string& arguments) { return RunPetrodb(arguments); }

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

TEST_F(ProjectCommandsTest, ServerCreateMakesADatabaseOnce) {
  const TestServer* server = ServerUnderTest();
  if (!server) GTEST_SKIP() << "needs a server";
  const std::string name = "petrodb_cli_" + std::to_string(::getpid());
  const CliRun made = Petrodb("server-create '" + server->connection + "' " + name);
  const CliRun again = Petrodb("server-create '" + server->connection + "' " + name);
  std::string error;
  auto admin = db::AcquireConnection(server->connection, error);
  ASSERT_TRUE(admin) << error;
  EXPECT_TRUE(admin->Execute("drop database if exists " + name + " with (force)", error)) << error;
  db::ReleaseConnection(server->connection, std::move(admin));
  EXPECT_EQ(made.code, 0) << made.output;
  EXPECT_NE(made.output.find("数据库创建成功结束！"), std::string::npos) << made.output;
  EXPECT_EQ(again.code, 1);
  EXPECT_NE(again.output.find("exists on the server already"), std::string::npos) << again.output;
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
