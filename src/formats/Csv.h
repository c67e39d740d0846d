#pragma once
// Comma-separated values as the host imports them.
//
// Fields may be quoted ("a, b", "say ""hi"""), a quoted field may span lines,
// blank lines are skipped, and a UTF-8 byte order mark and CR line ends are
// ignored. The first row is the header. A NUL byte anywhere refuses the file:
// no value may hold one (a key holding it would be cut short by the engine).
#include <string>
#include <string_view>
#include <vector>

namespace petrodb::csv {

using Row = std::vector<std::string>;

struct Table {
  Row header;
  std::vector<Row> rows;
  std::vector<int> lines;  // the file line each row starts on
};

// "<path>: line <n>, column <c>: " where <c> is the header's name for the
// column (or its number when the header does not reach it).
std::string Where(const std::string& path, int line, const std::string& column);

// Parses `text`; `path` only names the file in errors. False with `error`
// ("<path>: line <n>...: why") when the text cannot be read as a table.
bool Parse(std::string_view text, const std::string& path, Table& table, std::string& error);
bool ReadFile(const std::string& path, Table& table, std::string& error);

}  // namespace petrodb::csv
