// Failing machines: a process killed in the middle of a replace, a full disk,
// read-only media, damaged and foreign files, a lock held by another process, a
// server that never answers. Afterwards the old record or the new one is there,
// never neither, and what went wrong is said.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <fstream>
#include <functional>
#include <random>

#include "TestSupport.h"
#include "dbaccess/ConnectionString.h"
#include "dbaccess/DbManage.h"
#include "dbaccess/Pool.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/welllog/ILogData.h"

namespace petrodb::test {
namespace {

namespace fs = std::filesystem;

WellLog Curves(const std::string& well, double value, std::size_t samples) {
  WellLog log;
  log.WellID = well;
  for (const char* name : {"DEPTH", "GR", "SP"}) log.Curves.push_back({name, "", nullptr, std::vector<double>(samples, value)});
  log.Link({"DEPTH", "DEPTH", "DEPTH"});
  return log;
}

// A small file system of its own (root only), unmounted at the end.
struct SmallDisk {
  explicit SmallDisk(const fs::path& at) : path(at) {
    fs::create_directories(at);
    if (::mount("tmpfs", at.c_str(), "tmpfs", 0, "size=64m") != 0) failure = std::strerror(errno);
  }
  ~SmallDisk() {
    db::ClearConnectionPool();
    if (failure.empty()) ::umount2(path.c_str(), MNT_DETACH);
  }
  bool MakeReadOnly() { return ::mount(nullptr, path.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0; }
  fs::path path;
  std::string failure;  // why it could not be mounted; empty when it is
};

class FaultTest : public ProjectTest {
 protected:
  // Runs `replace(i)` for i = 1, 2, ... in a child process and kills it (-9) at
  // a random moment after its first replace; then `check()`; eight times.
  void KillDuringReplaces(const std::function<bool(int)>& replace, const std::function<void()>& check) {
    std::mt19937 random(12345);
    for (int round = 0; round < 8 && !HasFailure(); ++round) {
      db::ClearConnectionPool();  // the child opens connections of its own
      int pipeFds[2];
      ASSERT_EQ(::pipe(pipeFds), 0);
      const pid_t pid = ::fork();
      ASSERT_GE(pid, 0);
      if (pid == 0) {
        ::close(pipeFds[0]);
        SetMessageHandler([](MessageStyle, const std::string&, const std::string&) {});
        for (int i = 1;; ++i) {
          if (!replace(i)) ::_exit(3);
          if (::write(pipeFds[1], "x", 1) != 1) ::_exit(4);
        }
      }
      ::close(pipeFds[1]);
      char ready;
      ASSERT_EQ(::read(pipeFds[0], &ready, 1), 1) << "the child's first replace failed";
      ::usleep(std::uniform_int_distribution<int>(0, 15000)(random));
      ::kill(pid, SIGKILL);
      int status = 0;
      ::waitpid(pid, &status, 0);
      ::close(pipeFds[0]);
      ASSERT_TRUE(WIFSIGNALED(status)) << "the child ended by itself: " << status;
      check();
    }
  }
  void ExpectIntact() {
    if (!onServer()) {
      EXPECT_EQ(Query("pragma integrity_check"), std::vector<std::string>{"ok"});
    }
  }
  // Moves the test's project onto `disk`: the objects made from now on use the copy there.
  fs::path UseProjectOn(const SmallDisk& disk) {
    const fs::path file = disk.path / "P.mdb";
    fs::copy_file(TemplateFile(), file);
    connection_ = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file.string();
    return file;
  }
};

TEST_F(FaultTest, AKillDuringAWellReplaceLeavesTheOldOrTheNewWell) {
  auto wells = Make<IBasicWellData>("IBasicWellData");
  WellRecord w;
  w.WellID = "W1";
  ASSERT_TRUE(wells->SaveWell("P", w));
  KillDuringReplaces(
      [&](int i) {
        w.WellName = "generation " + std::to_string(i);
        w.Kb = i;
        return wells->SaveWell("P", w);
      },
      [&] {
        EXPECT_EQ(Query("select count(*) from w_well_data where WellID = 'W1'"), std::vector<std::string>{"1"});
        ExpectIntact();
      });
}

TEST_F(FaultTest, AKillDuringACurveReplaceLeavesAWholeGeneration) {
  auto logs = Make<ILogData>("ILogData");
  ASSERT_TRUE(logs->SaveWellLog(Curves("W1", 0, 400)));
  KillDuringReplaces([&](int i) { return logs->SaveWellLog(Curves("W1", i, 400)); },
                     [&] {
                       WellLog loaded;
                       ASSERT_TRUE(logs->LoadWellLog("W1", loaded));
                       ASSERT_EQ(loaded.Curves.size(), 3u);
                       const double generation = loaded.Curves[0].Values.at(0);
                       for (const auto& c : loaded.Curves)
                         EXPECT_EQ(c.Values, std::vector<double>(400, generation)) << c.CurveName;
                       ExpectIntact();
                     });
}

TEST_F(FaultTest, AFullDiskFailsTheReplaceAndKeepsTheOldRecordThatReadOnlyMediaStillRead) {
  PETRODB_SKIP_ON_SERVER();
  SmallDisk disk(dir_ / "small");
  if (!disk.failure.empty()) GTEST_SKIP() << "cannot mount a tmpfs (needs root): " << disk.failure;
  const fs::path file = UseProjectOn(disk);
  auto wells = Make<IBasicWellData>("IBasicWellData");
  auto logs = Make<ILogData>("ILogData");
  WellRecord w;
  w.WellID = "W1";
  w.WellName = "old";
  ASSERT_TRUE(wells->SaveWell("P", w));
  ASSERT_TRUE(logs->SaveWellLog(Curves("W1", 1.5, 100)));
  {  // the pooled connection stays open: the disk fills under it
    std::ofstream filler(disk.path / "filler", std::ios::binary);
    const std::string chunk(1 << 16, 'f');
    while (filler.write(chunk.data(), chunk.size()) && filler.flush()) {
    }
  }
  w.WellName.assign(2 << 20, 'n');
  EXPECT_FALSE(wells->SaveWell("P", w));
  EXPECT_NE(LastError().find("disk full"), std::string::npos) << LastError();
  EXPECT_NE(LastError().find(file.string()), std::string::npos) << LastError();
  EXPECT_FALSE(logs->SaveWellLog(Curves("W1", 2.5, 300000)));
  fs::remove(disk.path / "filler");
  db::ClearConnectionPool();
  WellRecord loaded;
  ASSERT_TRUE(wells->LoadWell("W1", loaded));
  EXPECT_EQ(loaded.WellName, "old");
  WellLog curves;
  ASSERT_TRUE(logs->LoadWellLog("W1", curves));
  EXPECT_EQ(curves.Curves.at(1).Values, std::vector<double>(100, 1.5));
  ExpectIntact();

  // The same file, in write-ahead-log mode, on media remounted read-only.
  db::ClearConnectionPool();
  ASSERT_TRUE(disk.MakeReadOnly());
  EXPECT_TRUE(wells->LoadWell("W1", loaded));
  EXPECT_FALSE(wells->SaveWell("P", loaded));
  EXPECT_NE(LastError().find("read-only"), std::string::npos) << LastError();
}

TEST_F(FaultTest, ADamagedFileFailsTheReadInsteadOfEndingItEarly) {
  PETRODB_SKIP_ON_SERVER();
  Exec("create table t_rows (k text)");
  {
    CDbManage db(connection_.c_str());
    db.BeginSaveData("t_rows");
    for (int i = 0; i < 200; ++i) {
      db.AddNew();
      db.SetFieldValue("k", std::string(20000, static_cast<char>('a' + i % 26)));
    }
    ASSERT_TRUE(db.SaveData());
  }
  db::ClearConnectionPool();  // everything into the file itself
  const auto size = fs::file_size(file_);
  ASSERT_EQ(size % 65536, 0u);
  {
    // The last pages hold the last rows: a page near the end is damaged.
    std::fstream f(file_, std::ios::in | std::ios::out | std::ios::binary);
    f.seekp(static_cast<std::streamoff>(size - 3 * 65536));
    const std::string garbage(65536, '\xa5');
    f.write(garbage.data(), garbage.size());
  }
  CDbManage db(connection_.c_str());
  ASSERT_EQ(db.GetDataFromDB("select k from t_rows"), kRowsFound);
  int count = 0;
  while (db.Read()) ++count;
  EXPECT_GT(count, 0);
  EXPECT_LT(count, 200);
  EXPECT_TRUE(db.ReadFailed());
  EXPECT_NE(LastError().find("damaged"), std::string::npos) << LastError();
  // A new result starts clean.
  EXPECT_EQ(db.GetDataFromDB("select * from b_project_data"), kNoRows);
  EXPECT_FALSE(db.ReadFailed());
}

TEST_F(FaultTest, FilesThatAreNoProjectOrLockedAreRefusedSayingWhy) {
  PETRODB_SKIP_ON_SERVER();
  const fs::path empty = dir_ / "empty.mdb", text = dir_ / "notes.mdb";
  std::ofstream(empty, std::ios::binary).flush();
  std::ofstream(text, std::ios::binary) << "just some notes, long enough to hold a header\n";
  for (const fs::path& file : {empty, text}) {
    const auto size = fs::file_size(file);
    const std::string connection = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file.string();
    CDbManage db(connection.c_str());
    EXPECT_FALSE(db.IsConnected());
    EXPECT_NE(LastError().find("not a project file: " + file.string()), std::string::npos) << LastError();
    EXPECT_FALSE(db.ExecuteSQL("create table t (k text)"));
    EXPECT_EQ(fs::file_size(file), size);
    EXPECT_FALSE(fs::exists(file.string() + "-wal") || fs::exists(file.string() + "-journal"));
  }
  // Also through a server-dialect string, which may create a missing file, but never converts one.
  const std::string plain = "Provider=SQLite;Data Source=" + empty.string();
  EXPECT_FALSE(CDbManage(plain.c_str()).IsConnected());
  EXPECT_EQ(fs::file_size(empty), 0u);

  // The project itself, while another process holds its write lock.
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file_.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "pragma journal_mode=wal; begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
  sql_.clear();
  EXPECT_FALSE(CDbManage(connection_.c_str()).ExecuteSQL("delete from w_well_data"));
  EXPECT_EQ(LastError(), "database is locked by another process: " + file_);
  ASSERT_EQ(sql_.events().size(), 1u);
  EXPECT_EQ(sql_.events()[0].error, LastError());
  sqlite3_close(other);  // the open transaction is rolled back
}

TEST_F(FaultTest, PasswordsNeverReachErrorsOrTraces) {
  const std::string jet = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + (dir_ / "missing.mdb").string() +
                          ";Jet OLEDB:Database Password=S3cret!;Jet OLEDB:New Database Password='x;S3cret!'";
  EXPECT_EQ(db::ConnectionString::Masked(jet).find("S3cret!"), std::string::npos) << db::ConnectionString::Masked(jet);
  EXPECT_EQ(CDbManage(jet.c_str()).GetDataFromDB("select 1"), kFailed);
  EXPECT_EQ(LastError().find("S3cret!"), std::string::npos) << LastError();
  for (const auto& e : sql_.events()) EXPECT_EQ((e.text + e.sent + e.error).find("S3cret!"), std::string::npos);
}

// A loopback listener that takes connections and never says a word.
TEST(ServerTimeLimits, AServerThatNeverAnswersFailsWithinTheTimeoutAndThenAtOnce) {
  const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
  ASSERT_GE(listener, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(::listen(listener, 16), 0);
  socklen_t length = sizeof address;
  ASSERT_EQ(::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length), 0);
  const std::string connection = "Provider=PostgreSQL;Host=127.0.0.1;Port=" + std::to_string(ntohs(address.sin_port)) +
                                 ";Database=field;User ID=geo;Password=S3cret!;Timeout=2";
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  {
    CDbManage db(connection.c_str());
    EXPECT_FALSE(db.IsConnected());
    EXPECT_EQ(db.GetDataFromDB("select 1"), kFailed);
  }
  const auto first = Clock::now() - start;
  if (LastError().find("no database backend") != std::string::npos) GTEST_SKIP() << "built without PostgreSQL";
  EXPECT_LT(first, std::chrono::seconds(6));
  EXPECT_NE(LastError().find("did not answer"), std::string::npos) << LastError();
  EXPECT_NE(LastError().find("127.0.0.1"), std::string::npos) << LastError();
  EXPECT_EQ(LastError().find("S3cret!"), std::string::npos) << LastError();
  // The failure is remembered for a while: the next operation fails at once.
  const auto again = Clock::now();
  EXPECT_FALSE(CDbManage(connection.c_str()).IsConnected());
  EXPECT_LT(Clock::now() - again, std::chrono::milliseconds(500));
  ::close(listener);
}

}  // namespace
}  // namespace petrodb::test
