#pragma once
// Connections by connection string: opened through the backend that accepts the
// string, and kept after a session closes so the next one costs no reconnect.
#include <functional>
#include <memory>
#include <string>

#include "dbaccess/Backend.h"
#include "dbaccess/ConnectionString.h"

namespace petrodb::db {

using ConnectionPtr = std::unique_ptr<Connection>;

struct BackendEntry {
  const char* name;
  // Whether this backend serves the (parsed) connection string.
  bool (*accepts)(const ConnectionString& parsed);
  // Opens a connection; null with `error` filled on failure.
  ConnectionPtr (*open)(const ConnectionString& parsed, Dialect dialect, std::string& error);
};

// Backends register themselves at static initialisation.
struct BackendRegistration {
  explicit BackendRegistration(BackendEntry entry);
};

// A healthy connection for the string: from the pool, else newly opened. Null
// (with `error`) when no backend accepts the string or opening fails.
ConnectionPtr AcquireConnection(const std::string& connection, std::string& error);
// Gives a connection back for reuse.
void ReleaseConnection(const std::string& connection, ConnectionPtr conn);
// Closes every idle connection (tests, and before a file is removed).
void ClearConnectionPool();
// Number of connections ever opened by this process (for tests and benchmarks),
// those a backend opened again in place of a dropped one included.
long ConnectionsOpened();
// Counts a connection a backend opened by itself (a reconnect).
void CountConnectionOpened();

}  // namespace petrodb::db
