#include "TestSupport.h"

#include <unistd.h>

#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"

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

bool ProjectTest::jet() const { return db::IsJetConnection(connection_); }

void ProjectTest::TearDown() {
  DeleteDataFactory(factory_);
  db::ClearConnectionPool();
  std::error_code ec;
  std::filesystem::remove_all(dir_, ec);
}

std::vector<std::string> ProjectTest::Query(const std::string& sql) {
  std::string error;
  auto conn = db::AcquireConnection(connection_, error);
  EXPECT_TRUE(conn) << error;
  std::vector<std::string> rows;
  if (!conn) return rows;
  auto cursor = conn->Query(conn->Rewrite(sql), error);
  EXPECT_TRUE(cursor) << sql << ": " << error;
  for (bool row = cursor && cursor->OnRow(); row; row = cursor->Next()) {
    switch (cursor->Kind(0)) {
      case db::CellKind::Null: rows.push_back("NULL"); break;
      case db::CellKind::Integer: rows.push_back(std::to_string(cursor->Integer(0))); break;
      case db::CellKind::Real: rows.push_back(sql::ShortestText(cursor->Real(0))); break;
      default: rows.emplace_back(cursor->Text(0)); break;
    }
  }
  cursor.reset();
  db::ReleaseConnection(connection_, std::move(conn));
  return rows;
}

void ProjectTest::Exec(const std::string& sql) {
  std::string error;
  auto conn = db::AcquireConnection(connection_, error);
  ASSERT_TRUE(conn) << error;
  EXPECT_TRUE(conn->Execute(conn->Rewrite(sql), error)) << sql << ": " << error;
  db::ReleaseConnection(connection_, std::move(conn));
}

}  // namespace petrodb::test
