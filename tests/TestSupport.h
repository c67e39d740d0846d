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

// A fixture that gives each test a new project file made from the template, a
// factory on it, and recorders for messages and statements.
class ProjectTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

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

  std::filesystem::path dir_;
  std::string file_;
  std::string connection_;
  IDataFactory* factory_ = nullptr;
  MessageRecorder messages_;
  SqlRecorder sql_;
};

// A new empty directory under the system's temporary directory.
std::filesystem::path MakeTempDir();
// The template project file shipped in the program directory.
std::filesystem::path TemplateFile();

}  // namespace petrodb::test
