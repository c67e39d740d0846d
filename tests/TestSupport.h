#pragma once
// Fresh project files, a recording message handler and a statement recorder.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "petrodb/Host.h"
#include "petrodb/IDataFactory.h"

namespace petrodb::test {

struct Message {
  MessageStyle style;
  std::string text;
  std::string caption;
};

// Records every message shown while it lives.
class MessageRecorder {
 public:
  MessageRecorder();
  ~MessageRecorder();
  const std::vector<Message>& messages() const { return messages_; }
  std::vector<std::string> texts() const;
  void clear() { messages_.clear(); }

 private:
  std::vector<Message> messages_;
};

// Records every statement sent while it lives.
class SqlRecorder {
 public:
  SqlRecorder();
  ~SqlRecorder();
  const std::vector<SqlTraceEvent>& events() const { return events_; }
  // The module's statement texts, in order.
  std::vector<std::string> texts() const;
  // Only the texts of one call ("GetDataFromDB", "ExecuteSQL", "SaveData").
  std::vector<std::string> texts(const std::string& call) const;
  void clear() { events_.clear(); }

 private:
  std::vector<SqlTraceEvent> events_;
};

// The PostgreSQL server the suites run against, when the environment names one:
// PETRODB_TEST_PG=<server connection string>, or PETRODB_TEST_PG_CLUSTER=<file
// holding the directory of a cluster started by scripts/pg-cluster.sh>.
// PETRODB_TEST_BACKEND=sqlite|postgres chooses explicitly.
struct TestServer {
  std::string connection;  // to a maintenance database on the server
  std::string restart;     // a shell command that restarts the server ("" if unknown)
};
// Null when the suites run on SQLite project files.
const TestServer* ServerUnderTest();
// `connection` with its database replaced by `database`.
std::string WithDatabase(const std::string& connection, const std::string& database);

// A fixture that gives each test a new project (a file made from the template,
// or on a server a database made from the backup), a factory on it, and
// recorders for messages and statements.
class ProjectTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // True when the project is a database on a server: there is no project file
  // (`file_` is empty), and statements speak the server dialect.
  bool onServer() const { return !database_.empty(); }

  // Creates the object for an interface, connected to the test's project.
  template <class Interface>
  std::unique_ptr<Interface> Make(const char* interfaceName) {
    IDataBase* object = factory_->CreateObject(interfaceName);
    if (!object) return nullptr;
    object->SetConnection(connection_.c_str());
    return std::unique_ptr<Interface>(static_cast<Interface*>(object));
  }

  // True when the project speaks the Access dialect (SQLite project files);
  // false on a server database, where the server texts of a statement apply.
  bool jet() const;

  // Runs a statement through the backend (not through a data class) and returns
  // the first column of each row as text ("NULL" for null). Statements are
  // given in the project's dialect.
  std::vector<std::string> Query(const std::string& sql);
  void Exec(const std::string& sql);

  std::filesystem::path dir_;  // a scratch directory, on every backend
  std::string file_;           // the project file; empty on a server
  std::string database_;       // the project database on a server; empty for a file
  std::string connection_;
  IDataFactory* factory_ = nullptr;
  MessageRecorder messages_;
  SqlRecorder sql_;
};

// An interface name held in a type: ObjectTest<IDeviateData, "IDeviateData">.
template <std::size_t N>
struct InterfaceName {
  char chars[N]{};
  constexpr InterfaceName(const char (&text)[N]) {  // NOLINT: implicit on purpose
    for (std::size_t i = 0; i < N; ++i) chars[i] = text[i];
  }
};

// A fixture whose tests work on one data object, made from the catalogue and
// connected to the test's new project before each test.
template <class Interface, InterfaceName Name>
class ObjectTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    object_ = Make<Interface>(Name.chars);
    ASSERT_TRUE(object_) << "the catalogue has no " << Name.chars;
  }
  std::unique_ptr<Interface> object_;
};

// Skips a test that needs a project file when the project is on a server.
#define PETRODB_SKIP_ON_SERVER()                                             \
  do {                                                                       \
    if (onServer()) GTEST_SKIP() << "needs a project file, not a server database"; \
  } while (0)

// The petrodb host run as a user runs it: exit code and stdout with stderr.
struct CliRun {
  int code;
  std::string output;
};
CliRun RunPetrodb(const std::string& arguments);

// A new empty directory under the system's temporary directory.
std::filesystem::path MakeTempDir();
// The template project file shipped in the program directory.
std::filesystem::path TemplateFile();

}  // namespace petrodb::test
