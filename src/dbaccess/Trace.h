#pragma once
// Delivers statement events to the host's trace handler and the trace file, and
// keeps each thread's last engine error.
#include <string>

#include "petrodb/Host.h"

namespace petrodb::db {

// Cheap check callers make before measuring and building an event: a handler is
// installed, or PETRODB_SQL_TRACE named a file when it was first looked at.
bool TraceEnabled();
void EmitTrace(const SqlTraceEvent& event);
// Reads PETRODB_SQL_TRACE again (it is otherwise read once, at first use).
void ReloadTraceEnvironment();

// The calling thread's last engine error (see petrodb::LastError).
void SetLastError(const std::string& error);
void ClearLastError();

}  // namespace petrodb::db
