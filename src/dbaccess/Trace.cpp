#include "dbaccess/Trace.h"

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>

namespace petrodb {
namespace {

std::mutex g_traceMutex;
SqlTraceHandler g_traceHandler;
bool g_haveHandler = false;

// The trace file named by PETRODB_SQL_TRACE, opened once per distinct name.
struct TraceFile {
  std::string path;
  std::FILE* file = nullptr;
  ~TraceFile() {
    if (file) std::fclose(file);
  }
};
TraceFile g_traceFile;

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
  line += "}\n";
  return line;
}

}  // namespace

void SetSqlTraceHandler(SqlTraceHandler handler) {
  std::lock_guard lock(g_traceMutex);
  g_haveHandler = static_cast<bool>(handler);
  g_traceHandler = std::move(handler);
}

namespace db {

bool TraceEnabled() {
  if (g_haveHandler) return true;
  const char* path = std::getenv("PETRODB_SQL_TRACE");
  return path && *path;
}

void EmitTrace(const SqlTraceEvent& event) {
  SqlTraceHandler handler;
  {
    std::lock_guard lock(g_traceMutex);
    handler = g_traceHandler;
    const char* path = std::getenv("PETRODB_SQL_TRACE");
    if (path && *path) {
      if (g_traceFile.path != path) {
        if (g_traceFile.file) std::fclose(g_traceFile.file);
        g_traceFile.path = path;
        g_traceFile.file = std::fopen(path, "a");
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
