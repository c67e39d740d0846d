#include "dbaccess/postgres/PgBridge.h"

#include <regex>

#include "dbaccess/JetBridge.h"
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

}  // namespace

std::string RewriteServerForPostgres(const std::string& statement) {
  if (StartsWithWord(statement, "select") && sql::AsciiLower(statement).find("sysdatabases") != std::string::npos) {
    static const std::regex lookup(R"(^\s*select\s+\*\s+from\s+sysdatabases\s+where\s+name\s*=\s*'([^']*)'\s*;?\s*$)",
                                   std::regex::icase);
    std::smatch m;
    if (std::regex_match(statement, m, lookup))
      return "select datname as name from pg_catalog.pg_database where lower(datname) = lower('" + m[1].str() + "')";
  }
  if (StartsWithWord(statement, "restore")) {
    static const std::regex restore(
        R"(^\s*restore\s+filelistonly\s+from\s+disk\s*=\s*'[^']*'\s+restore\s+database\s+(\S+)\s+from\s+disk\s*=\s*'([^']*)'\s+with\s+move\s+'[^']*'\s+to\s+'[^']*'\s*,\s*move\s+'[^']*'\s+to\s+'[^']*'\s*;?\s*$)",
        std::regex::icase);
    std::smatch m;
    if (std::regex_match(statement, m, restore) && IsPlainName(m[1].str())) {
      const std::string name = sql::AsciiLower(m[1].str());
      return "create database " + name + "; \\connect " + name + "; \\i '" + m[2].str() + "'";
    }
  }
  return NormaliseDateLiterals(statement);
}

bool ParseRestore(const std::string& sent, RestorePlan& plan) {
  if (!StartsWithWord(sent, "create database") || sent.find("\\connect") == std::string::npos) return false;
  static const std::regex form(R"(^create database (\S+); \\connect (\S+); \\i '([^']*)'$)");
  std::smatch m;
  if (!std::regex_match(sent, m, form) || m[1].str() != m[2].str() || !IsPlainName(m[1].str())) return false;
  plan.database = m[1].str();
  plan.backup = m[3].str();
  return true;
}

}  // namespace petrodb::db::pg
