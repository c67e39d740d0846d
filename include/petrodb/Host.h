#pragma once
// Hooks through which a host sees what the module shows and sends.
#include <cstdint>
#include <functional>
#include <string>

#include "petrodb/Export.h"

namespace petrodb {

// Which of the two message calls an operation uses: an application message box
// (no caption of its own) or a plain message box with a caption.
enum class MessageStyle { Application, Plain };

using MessageHandler =
    std::function<void(MessageStyle style, const std::string& text, const std::string& caption)>;
// Installs the handler for user-facing messages; an empty function restores the
// default, which writes "<caption>: <text>" (or the text alone) as one line on stderr.
PETRODB_API void SetMessageHandler(MessageHandler handler);

// A waiting window: begin shows a text, end closes it. Default: nothing.
// Long work (an import of many rows) also reports how far it has come through
// step: `done` of `total` units, called from the working thread; it may come
// without begin and end around it.
struct ProgressHandler {
  std::function<void(const std::string& text)> begin;
  std::function<void()> end;
  std::function<void(std::uint64_t done, std::uint64_t total)> step;
};
PETRODB_API void SetProgressHandler(ProgressHandler handler);

// One statement sent to a database.
struct SqlTraceEvent {
  std::string text;    // the module's statement
  std::string sent;    // what the engine ran, when a dialect bridge rewrote it; else empty
  std::string call;    // "GetDataFromDB", "ExecuteSQL" or "SaveData"
  int result = 0;      // GetDataFromDB: 0, 1 or 2; the others: 1 for true, 0 for false
  double ms = 0;       // elapsed milliseconds
  std::string error;   // why the call failed, as the engine said it (with the file or server); else empty
};
using SqlTraceHandler = std::function<void(const SqlTraceEvent&)>;
// Installs a statement observer (empty function: none). Independently, the
// environment variable PETRODB_SQL_TRACE=<file> appends one JSON object per line.
PETRODB_API void SetSqlTraceHandler(SqlTraceHandler handler);

// Where the template project "Projects.mdb" and the server backup "orvex.bak"
// are looked for, without a trailing separator: the environment variable
// PETRODB_PROGRAM_DIR when set; else the running program's directory when it
// holds them; else ../share/petrodb beside the program or beside the shared
// library (an installed layout); else the program's directory.
PETRODB_API std::string ProgramDirectory();

// Why the last database call of this thread failed, in words a person can act
// on, naming the project file or the server (never a password): "disk full: …",
// "database is locked by another process: …", "authentication failed for user
// … on server …", "not a project file: …". Empty when nothing failed since the
// thread's current operation began (an operation begins when its outermost
// session opens).
PETRODB_API std::string LastError();

}  // namespace petrodb
