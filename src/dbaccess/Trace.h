#pragma once
// Delivers statement events to the host's trace handler and the trace file.
#include "petrodb/Host.h"

namespace petrodb::db {

// Cheap check callers make before measuring and building an event.
bool TraceEnabled();
void EmitTrace(const SqlTraceEvent& event);

}  // namespace petrodb::db
