#pragma once
// Makes Access (Jet) statements run on SQLite with the same meaning.
#include <string>
#include <string_view>

namespace petrodb::db {

// "delete * from" → "delete from"; lcase/ucase → lower/upper; #date# → quoted
// ISO text; "select all distinct" → "select distinct"; the Access multi-table
// "update A a, B b set ... where ..." → "update A as a set ... from B as b where ...".
std::string RewriteJetForSqlite(const std::string& statement);

// Pads a quoted literal written as "Y-M-D H:M:S" (or "Y-M-D") to "YYYY-MM-DD
// HH:MM:SS", the form date columns hold, where it stands for the value of a
// column the schema declares as a date: compared with it ("accessTime >= '…'",
// "between '…' and '…'", "in ('…', …)"), assigned to it ("set accessTime = '…'")
// or inserted into it ("insert into t (…, accessTime) values (…, '…')"). Every
// other literal is left as written, so text columns keep their text.
std::string NormaliseDateLiterals(const std::string& statement);

// True when the schema declares a column of this name (any table, any case) as a date.
bool IsDateColumnName(std::string_view name);

// A text of the form "Y-M-D H:M:S" (unpadded allowed) as "YYYY-MM-DD HH:MM:SS";
// with `dateOnlyToo`, also "Y-M-D" (as midnight). Otherwise the text unchanged.
std::string NormaliseDateText(const std::string& text, bool dateOnlyToo);

// A date literal given as a value ("#2024-1-5#", "'2024-01-05'"): the date text
// inside its delimiters. Any other text comes back unchanged.
std::string UnwrapDateLiteral(const std::string& text);

// True when the schema declares `column` of `table` as a date.
bool IsDateColumn(const std::string& table, const std::string& column);

// A text that may be a date literal given as a value: at least two characters,
// the first a '#' or a quote.
inline bool IsDelimitedText(std::string_view text) {
  return text.size() >= 2 && (text.front() == '#' || text.front() == '\'');
}

}  // namespace petrodb::db
