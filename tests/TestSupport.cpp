#include "TestSupport.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>

#include "dbaccess/Pool.h"
#include "dbaccess/SqlText.h"

namespace petrodb::test {
namespace {

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string ReadText(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  std::string s = text.str();
  while (!s.empty() && (s.back() == '\n' || s.back() == '\r' || s.back() == ' ')) s.pop_back();
  return s;
}

// Defaults for what the environment does not set (the build's directories).
const bool kDefaultsSet = [] {
#ifdef PETRODB_TEST_PROGRAM_DIR
  setenv("PETRODB_PROGRAM_DIR", PETRODB_TEST_PROGRAM_DIR, 0);
#endif
#ifdef PETRODB_TEST_CLI
  setenv("PETRODB_CLI", PETRODB_TEST_CLI, 0);
#endif
#ifdef PETRODB_TEST_CLUSTER_SCRIPT
  setenv("PETRODB_PG_CLUSTER_SCRIPT", PETRODB_TEST_CLUSTER_SCRIPT, 0);
#endif
  return true;
}();

std::unique_ptr<TestServer> LoadServer() {
  const std::string backend = sql::AsciiLower(Env("PETRODB_TEST_BACKEND"));
  if (backend == "sqlite") return nullptr;
  auto server = std::make_unique<TestServer>();
  if (!Env("PETRODB_TEST_PG_CLUSTER").empty()) {
    const std::string dir = ReadText(Env("PETRODB_TEST_PG_CLUSTER"));
    if (!dir.empty()) {
      server->connection = ReadText(std::filesystem::path(dir) / "connection");
      const std::string script = Env("PETRODB_PG_CLUSTER_SCRIPT");
      if (!script.empty()) server->restart = "bash '" + script + "' restart '" + dir + "'";
    }
  } else {
    server->connection = Env("PETRODB_TEST_PG");
    server->restart = Env("PETRODB_TEST_PG_RESTART");
  }
  if (server->connection.empty()) {
    if (backend == "postgres")
      throw std::runtime_error("PETRODB_TEST_BACKEND=postgres, but no server is named: set PETRODB_TEST_PG "
                               "or start one with scripts/pg-cluster.sh");
    return nullptr;
  }
  return server;
}

// Runs one statement on the server's maintenance database.
bool ServerExec(const std::string& connection, const std::string& statement, std::string& error) {
  auto conn = db::AcquireConnection(connection, error);
  if (!conn) return false;
  // The restore statement is a request to the backend, not a text it runs.
  const auto restore = conn->AsRestore(statement);
  const bool ok = restore ? conn->RestoreDatabase(*restore, error) : conn->Execute(conn->Rewrite(statement), error);
  db::ReleaseConnection(connection, std::move(conn));
  return ok;
}

bool ServerHasDatabase(const std::string& connection, const std::string& name) {
  std::string error;
  auto conn = db::AcquireConnection(connection, error);
  if (!conn) return false;
  auto cursor = conn->Query(sql::Format("select 1 from pg_database where datname = '%s'", name), error);
  const bool found = cursor && cursor->OnRow();
  cursor.reset();
  db::ReleaseConnection(connection, std::move(conn));
  return found;
}

// A database loaded from the shipped backup, made once per process (and per
// backup content, so a changed schema never meets a stale template); each test
// then copies it, which costs far less than loading the backup again.
std::string TemplateDatabase(const TestServer& server) {
  static std::string name;
  if (!name.empty()) return name;
  const auto backup = std::filesystem::path(ProgramDirectory()) / "orvex.bak";
  const std::string script = ReadText(backup);
  if (script.empty()) throw std::runtime_error("no backup at " + backup.string());
  char hash[32];
  std::snprintf(hash, sizeof hash, "%016zx", std::hash<std::string>{}(script));
  const std::string wanted = std::string("petrodb_tpl_") + hash;
  if (!ServerHasDatabase(server.connection, wanted)) {
    const std::string loading = wanted + "_" + std::to_string(::getpid());
    std::string error;
    const std::string restore = sql::Format(
        "RESTORE FILELISTONLY FROM DISK = '%s' RESTORE DATABASE %s FROM DISK = '%s' WITH MOVE '%s' TO '%s',MOVE '%s' "
        "TO '%s'",
        backup.string(), loading, backup.string(), "orvex_Data", "-", "orvex_Log", "-");
    if (!ServerExec(server.connection, restore, error))
      throw std::runtime_error("cannot load the backup into " + loading + ": " + error);
    // Another process may have made the same template meanwhile: then ours goes.
    if (!ServerExec(server.connection, sql::Format("alter database %s rename to %s", loading, wanted), error))
      ServerExec(server.connection, sql::Format("drop database if exists %s", loading), error);
  }
  name = wanted;
  return name;
}

}  // namespace

const TestServer* ServerUnderTest() {
  static const std::unique_ptr<TestServer> server = LoadServer();
  return server.get();
}

std::string WithDatabase(const std::string& connection, const std::string& database) {
  std::string out;
  std::size_t begin = 0;
  while (begin <= connection.size()) {
    std::size_t end = connection.find(';', begin);
    if (end == std::string::npos) end = connection.size();
    const std::string part = connection.substr(begin, end - begin);
    const std::string key = sql::AsciiLower(part.substr(0, part.find('=')));
    const bool names = key.find("database") != std::string::npos || key.find("initial catalog") != std::string::npos;
    if (!part.empty() && !names) out += part + ";";
    begin = end + 1;
  }
  return out + "Database=" + database;
}

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

CliRun RunPetrodb(const std::string& arguments) {
  const char* cli = std::getenv("PETRODB_CLI");
  const std::string program = cli ? cli : (std::filesystem::path(ProgramDirectory()) / "petrodb").string();
  CliRun run{-1, {}};
  FILE* pipe = popen((program + " " + arguments + " 2>&1").c_str(), "r");
  if (!pipe) return run;
  char buffer[4096];
  while (std::size_t n = fread(buffer, 1, sizeof buffer, pipe)) run.output.append(buffer, n);
  const int status = pclose(pipe);
  run.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

std::filesystem::path MakeTempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "petrodb-test-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
  return pattern;
}

std::filesystem::path TemplateFile() { return std::filesystem::path(ProgramDirectory()) / "Projects.mdb"; }

void ProjectTest::SetUp() {
  dir_ = MakeTempDir();
  if (const TestServer* server = ServerUnderTest()) {
    static int counter = 0;
    const std::string name = "petrodb_t_" + std::to_string(::getpid()) + "_" + std::to_string(++counter);
    std::string error;
    if (!ServerExec(server->connection,
                    sql::Format("create database %s template %s", name, TemplateDatabase(*server)), error))
      throw std::runtime_error("cannot create the test database " + name + ": " + error);
    database_ = name;
    connection_ = WithDatabase(server->connection, database_);
  } else {
    file_ = (dir_ / "Test.mdb").string();
    std::filesystem::copy_file(TemplateFile(), file_);
    connection_ = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file_;
  }
  factory_ = CreateDataFactoryObject();
  factory_->SetConnectionString(connection_.c_str());
  factory_->SetProjectName("Test");
}

bool ProjectTest::jet() const { return db::IsJetConnection(connection_); }

void ProjectTest::TearDown() {
  DeleteDataFactory(factory_);
  factory_ = nullptr;
  db::ClearConnectionPool();
  if (!database_.empty()) {
    std::string error;
    EXPECT_TRUE(ServerExec(ServerUnderTest()->connection,
                           sql::Format("drop database if exists %s with (force)", database_), error))
        << error;
    db::ClearConnectionPool();
  }
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
  // On a server the views over a table must go with it; a local file resolves
  // its views only when they are read.
  const bool dropTable = sql.rfind("drop table ", 0) == 0 && sql.find("cascade") == std::string::npos;
  const std::string statement = dropTable && !jet() ? sql + " cascade" : sql;
  EXPECT_TRUE(conn->Execute(conn->Rewrite(statement), error)) << statement << ": " << error;
  db::ReleaseConnection(connection_, std::move(conn));
}

}  // namespace petrodb::test
