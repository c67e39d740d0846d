#include "TestSupport.h"

#include <sqlite3.h>
#include <unistd.h>

#include "dbaccess/Pool.h"

namespace petrodb::test {

MessageRecorder::MessageRecorder() {
  SetMessageHandler([this](MessageStyle style, const std::string& text, const std::string& caption) {
    messages_.push_back(Message{style, text, caption});
  });
}
MessageRecorder::~MessageRecorder() { SetMessageHandler(nullptr); }

std::vector<std::string> MessageRecorder::texts() const {
  std::vector<std::string> out;
  for (const auto& m : messages_) out.push_back(m.text);
  return out;
}

SqlRecorder::SqlRecorder() {
  SetSqlTraceHandler([this](const SqlTraceEvent& e) { events_.push_back(e); });
}
SqlRecorder::~SqlRecorder() { SetSqlTraceHandler(nullptr); }

std::vector<std::string> SqlRecorder::texts() const {
  std::vector<std::string> out;
  for (const auto& e : events_) out.push_back(e.text);
  return out;
}

std::vector<std::string> SqlRecorder::texts(const std::string& call) const {
  std::vector<std::string> out;
  for (const auto& e : events_)
    if (e.call == call) out.push_back(e.text);
  return out;
}

std::filesystem::path MakeTempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "petrodb-test-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
  return pattern;
}

std::filesystem::path TemplateFile() { return std::filesystem::path(ProgramDirectory()) / "Projects.mdb"; }

void ProjectTest::SetUp() {
  dir_ = MakeTempDir();
  file_ = (dir_ / "Test.mdb").string();
  std::filesystem::copy_file(TemplateFile(), file_);
  connection_ = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file_;
  factory_ = CreateDataFactoryObject();
  factory_->SetConnectionString(connection_.c_str());
  factory_->SetProjectName("Test");
}

void ProjectTest::TearDown() {
  DeleteDataFactory(factory_);
  db::ClearConnectionPool();
  std::error_code ec;
  std::filesystem::remove_all(dir_, ec);
}

namespace {
void WithDb(const std::string& file, const std::function<void(sqlite3*)>& fn) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &db), SQLITE_OK);
  sqlite3_busy_timeout(db, 5000);
  fn(db);
  sqlite3_close(db);
}
}  // namespace

std::vector<std::string> ProjectTest::Query(const std::string& sql) {
  std::vector<std::string> rows;
  WithDb(file_, [&](sqlite3* db) {
    sqlite3_stmt* stmt = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db, sql.c_str(), -1, &stmt, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
    while (sqlite3_step(stmt) == SQLITE_ROW) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
      rows.push_back(text ? text : "NULL");
    }
    sqlite3_finalize(stmt);
  });
  return rows;
}

void ProjectTest::Exec(const std::string& sql) {
  WithDb(file_, [&](sqlite3* db) {
    char* error = nullptr;
    ASSERT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "");
    sqlite3_free(error);
  });
}

}  // namespace petrodb::test
