#pragma once
// Makes Access (Jet) statements run on SQLite with the same meaning.
#include <string>

namespace petrodb::db {

// "delete * from" → "delete from"; lcase/ucase → lower/upper; #date# → quoted
// ISO text; "select all distinct" → "select distinct"; the Access multi-table
// "update A a, B b set ... where ..." → "update A as a set ... from B as b where ...".
std::string RewriteJetForSqlite(const std::string& statement);

// Pads every quoted literal written as "Y-M-D H:M:S" to "YYYY-MM-DD HH:MM:SS",
// the form date columns hold, so comparisons and ordering are chronological.
std::string NormaliseDateLiterals(const std::string& statement);

// A text of the form "Y-M-D H:M:S" (unpadded allowed) as "YYYY-MM-DD HH:MM:SS";
// with `dateOnlyToo`, also "Y-M-D" (as midnight). Otherwise the text unchanged.
std::string NormaliseDateText(const std::string& text, bool dateOnlyToo);

}  // namespace petrodb::db
