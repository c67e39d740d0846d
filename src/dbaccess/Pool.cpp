#include "dbaccess/Pool.h"

#include <atomic>
#include <map>
#include <mutex>
#include <vector>

namespace petrodb::db {
namespace {

constexpr std::size_t kMaxIdlePerString = 8;

std::vector<BackendEntry>& Backends() {
  static std::vector<BackendEntry> backends;
  return backends;
}

struct PoolState {
  std::mutex mutex;
  std::map<std::string, std::vector<ConnectionPtr>> idle;
  ~PoolState() {
    // Connections close before the process goes; the engines flush here.
    std::lock_guard lock(mutex);
    idle.clear();
  }
};

PoolState& State() {
  static PoolState state;
  return state;
}

std::atomic<long> g_opened{0};

ConnectionPtr Open(const std::string& connection, std::string& error) {
  const ConnectionString parsed(connection);
  const Dialect dialect = IsJetConnection(connection) ? Dialect::Jet : Dialect::Server;
  for (const auto& backend : Backends()) {
    if (!backend.accepts(parsed)) continue;
    ConnectionPtr conn = backend.open(parsed, dialect, error);
    if (conn) ++g_opened;
    return conn;
  }
  error = "no database backend accepts the connection string \"" + ConnectionString::Masked(connection) + "\"";
  return nullptr;
}

}  // namespace

BackendRegistration::BackendRegistration(BackendEntry entry) { Backends().push_back(entry); }

ConnectionPtr AcquireConnection(const std::string& connection, std::string& error) {
  PoolState& state = State();
  for (;;) {
    ConnectionPtr candidate;
    {
      std::lock_guard lock(state.mutex);
      auto it = state.idle.find(connection);
      if (it == state.idle.end() || it->second.empty()) break;
      candidate = std::move(it->second.back());
      it->second.pop_back();
    }
    if (candidate->Healthy()) return candidate;
    // A broken connection is dropped; the next one (or a new one) is tried.
  }
  return Open(connection, error);
}

void ReleaseConnection(const std::string& connection, ConnectionPtr conn) {
  if (!conn) return;
  PoolState& state = State();
  std::lock_guard lock(state.mutex);
  auto& idle = state.idle[connection];
  if (idle.size() < kMaxIdlePerString) idle.push_back(std::move(conn));
}

void ClearConnectionPool() {
  PoolState& state = State();
  std::map<std::string, std::vector<ConnectionPtr>> closing;
  {
    std::lock_guard lock(state.mutex);
    closing.swap(state.idle);
  }
}

long ConnectionsOpened() { return g_opened.load(); }

void CountConnectionOpened() { ++g_opened; }

}  // namespace petrodb::db
