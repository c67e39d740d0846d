#include "dbaccess/postgres/PgBridge.h"

#include <algorithm>
#include <regex>

#include "dbaccess/Schema.h"
#include "dbaccess/SqlText.h"

namespace petrodb::db::pg {
namespace {

// A database name the server takes unquoted (and folds to lower case).
bool IsPlainName(const std::string& name) {
  if (name.empty() || name.size() > 63) return false;
  const unsigned char first = static_cast<unsigned char>(name[0]);
  if (!(std::isalpha(first) || first == '_' || first >= 0x80)) return false;
  for (unsigned char c : name)
    if (!(std::isalnum(c) || c == '_' || c >= 0x80)) return false;
  return true;
}

bool StartsWithWord(const std::string& text, std::string_view word) {
  const auto first = text.find_first_not_of(" \t\r\n");
  return first != std::string::npos &&
         sql::EqualsIgnoreCase(std::string_view(text).substr(first, word.size()), word);
}

bool IsWordChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '$'; }

}  // namespace

std::string ColumnIdentifier(const std::string& name) { return schema::PostgresColumnName(name); }

std::string QuoteSystemColumnNames(const std::string& statement) {
  const std::string lower = sql::AsciiLower(statement);
  if (lower.find("min") == std::string::npos && lower.find("max") == std::string::npos &&
      lower.find("ctid") == std::string::npos && lower.find("tableoid") == std::string::npos)
    return statement;
  std::string out;
  out.reserve(statement.size() + 8);
  std::size_t i = 0;
  while (i < statement.size()) {
    const char c = statement[i];
    if (c == '\'' || c == '"') {  // a literal or a quoted name: copied as it is
      std::size_t end = i + 1;
      while (end < statement.size()) {
        if (statement[end] == c) {
          if (end + 1 < statement.size() && statement[end + 1] == c) {
            end += 2;
            continue;
          }
          break;
        }
        ++end;
      }
      end = std::min(end + 1, statement.size());
      out.append(statement, i, end - i);
      i = end;
    } else if (IsWordChar(c)) {
      std::size_t end = i;
      while (end < statement.size() && IsWordChar(statement[end])) ++end;
      const std::string word = statement.substr(i, end - i);
      out += ColumnIdentifier(word);
      i = end;
    } else {
      out += c;
      ++i;
    }
  }
  return out;
}

std::string RewriteServerForPostgres(const std::string& statement) {
  if (StartsWithWord(statement, "select") && sql::AsciiLower(statement).find("sysdatabases") != std::string::npos) {
    static const std::regex lookup(R"(^\s*select\s+\*\s+from\s+sysdatabases\s+where\s+name\s*=\s*'([^']*)'\s*;?\s*$)",
                                   std::regex::icase);
    std::smatch m;
    if (std::regex_match(statement, m, lookup))
      return "select datname as name from pg_catalog.pg_database where lower(datname) = lower('" + m[1].str() + "')";
  }
  if (auto request = RestoreFor(statement))
    return "create database " + request->database + "; \\connect " + request->database + "; \\i '" +
           request->backup + "'";
  return QuoteSystemColumnNames(statement);
}

std::optional<RestoreRequest> RestoreFor(const std::string& statement) {
  if (!StartsWithWord(statement, "restore")) return std::nullopt;
  static const std::regex restore(
      R"(^\s*restore\s+filelistonly\s+from\s+disk\s*=\s*'[^']*'\s+restore\s+database\s+(\S+)\s+from\s+disk\s*=\s*'([^']*)'\s+with\s+move\s+'[^']*'\s+to\s+'[^']*'\s*,\s*move\s+'[^']*'\s+to\s+'[^']*'\s*;?\s*$)",
      std::regex::icase);
  std::smatch m;
  if (!std::regex_match(statement, m, restore) || !IsPlainName(m[1].str())) return std::nullopt;
  return RestoreRequest{sql::AsciiLower(m[1].str()), m[2].str()};
}

}  // namespace petrodb::db::pg
