#include "formats/Csv.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace petrodb::csv {

std::string Where(const std::string& path, int line, const std::string& column) {
  return path + ": line " + std::to_string(line) + ", column " + column + ": ";
}

bool Parse(std::string_view text, const std::string& path, Table& table, std::string& error) {
  table = Table();
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  Row row;
  std::string field;
  bool quoted = false, fieldStarted = false;
  int line = 1, rowLine = 1;
  auto endRow = [&] {
    if (fieldStarted || !field.empty() || !row.empty()) {
      row.push_back(field);
      if (table.header.empty()) {
        table.header = row;
      } else {
        table.rows.push_back(row);
        table.lines.push_back(rowLine);
      }
    }
    row.clear();
    field.clear();
    fieldStarted = false;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\0') {
      const std::size_t column = row.size();
      const bool inHeader = table.header.empty();
      error = Where(path, line,
                    !inHeader && column < table.header.size() ? table.header[column] : std::to_string(column + 1)) +
              "a NUL byte (\\0); no value may hold one";
      return false;
    }
    if (quoted) {
      if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
        field += '"';
        ++i;
      } else if (c == '"') {
        quoted = false;
      } else {
        if (c == '\n') ++line;
        field += c;
      }
    } else if (c == '"' && field.empty()) {
      quoted = fieldStarted = true;
    } else if (c == ',') {
      row.push_back(field);
      field.clear();
      fieldStarted = true;
    } else if (c == '\n') {
      endRow();
      rowLine = ++line;
    } else if (c != '\r') {
      field += c;
    }
  }
  if (quoted) {
    error = path + ": line " + std::to_string(rowLine) + ": a quoted field is not closed";
    return false;
  }
  endRow();
  if (table.header.empty()) {
    error = path + ": the file has no header row";
    return false;
  }
  return true;
}

bool ReadFile(const std::string& path, Table& table, std::string& error) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    error = path + ": a directory, not a CSV file";
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = path + ": cannot read the file (" + std::strerror(errno) + ")";
    return false;
  }
  std::string text;
  try {
    text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  } catch (const std::exception& e) {  // a read error of the stream
    error = path + ": cannot read the file (" + e.what() + ")";
    return false;
  }
  if (in.bad()) {
    error = path + ": cannot read the file";
    return false;
  }
  return Parse(text, path, table, error);
}

}  // namespace petrodb::csv
