#include "dbaccess/Trace.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>

namespace petrodb {
namespace {

std::mutex g_traceMutex;
SqlTraceHandler g_traceHandler;          // guarded by g_traceMutex
std::atomic<bool> g_haveHandler{false};  // read without the lock on every statement

// The trace file named by PETRODB_SQL_TRACE, opened once per distinct name.
struct TraceFile {
  std::string path;
  std::FILE* file = nullptr;
  ~TraceFile() {
    if (file) std::fclose(file);
  }
};
TraceFile g_traceFile;  // guarded by g_traceMutex

// The variable's value, read at first use (and again on request).
std::string g_tracePath;                // guarded by g_traceMutex
std::atomic<bool> g_haveTraceFile{false};
std::once_flag g_traceEnvironmentRead;

void ReadTraceEnvironment() {
  std::lock_guard lock(g_traceMutex);
  const char* path = std::getenv("PETRODB_SQL_TRACE");
  g_tracePath = path ? path : "";
  g_haveTraceFile.store(!g_tracePath.empty());
}

// Trivially destructible, so that sessions opened while the program exits
// (static destructors run after the thread's objects are gone) may still set it.
thread_local char t_lastError[1024];

void AppendJsonString(std::string& out, const std::string& text) {
  out += '"';
  for (unsigned char c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20) {
          char buffer[8];
          std::snprintf(buffer, sizeof buffer, "\\u%04x", c);
          out += buffer;
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  out += '"';
}

std::string JsonLine(const SqlTraceEvent& e) {
  std::string line = "{\"text\": ";
  AppendJsonString(line, e.text);
  if (!e.sent.empty()) {
    line += ", \"sent\": ";
    AppendJsonString(line, e.sent);
  }
  line += ", \"call\": ";
  AppendJsonString(line, e.call);
  line += ", \"result\": ";
  if (e.call == "GetDataFromDB")
    line += std::to_string(e.result);
  else
    line += e.result ? "true" : "false";
  char ms[32];
  std::snprintf(ms, sizeof ms, "%.3f", e.ms);
  line += ", \"ms\": ";
  line += ms;
  if (!e.error.empty()) {
    line += ", \"error\": ";
    AppendJsonString(line, e.error);
  }
  line += "}\n";
  return line;
}

}  // namespace

void SetSqlTraceHandler(SqlTraceHandler handler) {
  std::lock_guard lock(g_traceMutex);
  g_haveHandler.store(static_cast<bool>(handler));
  g_traceHandler = std::move(handler);
}

std::string LastError() { return std::string(t_lastError); }

namespace db {

void SetLastError(const std::string& error) {
  const std::size_t n = std::min(error.size(), sizeof t_lastError - 1);
  std::memcpy(t_lastError, error.data(), n);
  t_lastError[n] = 0;
}
void ClearLastError() { t_lastError[0] = 0; }

void ReloadTraceEnvironment() {
  std::call_once(g_traceEnvironmentRead, [] {});
  ReadTraceEnvironment();
}

bool TraceEnabled() {
  std::call_once(g_traceEnvironmentRead, ReadTraceEnvironment);
  return g_haveHandler.load(std::memory_order_relaxed) || g_haveTraceFile.load(std::memory_order_relaxed);
}

void EmitTrace(const SqlTraceEvent& event) {
  std::call_once(g_traceEnvironmentRead, ReadTraceEnvironment);
  SqlTraceHandler handler;
  {
    std::lock_guard lock(g_traceMutex);
    handler = g_traceHandler;
    const std::string& path = g_tracePath;
    if (!path.empty()) {
      if (g_traceFile.path != path) {
        if (g_traceFile.file) std::fclose(g_traceFile.file);
        g_traceFile.path = path;
        g_traceFile.file = std::fopen(path.c_str(), "a");
      }
      if (g_traceFile.file) {
        const std::string line = JsonLine(event);
        std::fwrite(line.data(), 1, line.size(), g_traceFile.file);
        std::fflush(g_traceFile.file);
      }
    }
  }
  if (handler) handler(event);
}

}  // namespace db
}  // namespace petrodb
