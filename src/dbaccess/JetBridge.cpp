#include "dbaccess/JetBridge.h"

#include <cctype>
#include <regex>

#include "dbaccess/SqlText.h"
#include "petrodb/DateTime.h"

namespace petrodb::db {
namespace {

bool IsWordChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

// "Y-M-D H:M:S" with one to four digits a part (the shape the module writes).
bool IsDateTimeShape(const std::string& t) {
  if (t.find(':') == std::string::npos || t.find('-') == std::string::npos) return false;
  static const std::regex shape(R"(^\s*\d{1,4}-\d{1,2}-\d{1,2}\s+\d{1,2}:\d{1,2}:\d{1,2}\s*$)");
  return t.size() >= 11 && t.size() <= 40 && std::regex_match(t, shape);
}

bool IsDateOnlyShape(const std::string& t) {
  const auto first = t.find_first_not_of(' ');
  if (first == std::string::npos || !std::isdigit(static_cast<unsigned char>(t[first]))) return false;
  static const std::regex shape(R"(^\s*\d{1,4}[-/]\d{1,2}[-/]\d{1,2}\s*$)");
  return t.size() >= 5 && t.size() <= 20 && std::regex_match(t, shape);
}

// Copies `in`, calling `onPlain` for each stretch outside '...' literals and
// `onQuoted` for each literal's content.
template <class Plain, class Quoted>
std::string MapSegments(const std::string& in, Plain onPlain, Quoted onQuoted) {
  std::string out;
  std::size_t i = 0;
  while (i < in.size()) {
    const auto quote = in.find('\'', i);
    if (quote == std::string::npos) {
      out += onPlain(in.substr(i));
      break;
    }
    out += onPlain(in.substr(i, quote - i));
    // A literal ends at the next lone quote; '' inside it is a quote.
    std::size_t end = quote + 1;
    for (;;) {
      end = in.find('\'', end);
      if (end == std::string::npos || end + 1 >= in.size() || in[end + 1] != '\'') break;
      end += 2;
    }
    if (end == std::string::npos) {
      out += in.substr(quote);
      break;
    }
    out += '\'';
    out += onQuoted(in.substr(quote + 1, end - quote - 1));
    out += '\'';
    i = end + 1;
  }
  return out;
}

// `word` is lower-case ASCII.
bool ContainsIgnoreCase(std::string_view text, std::string_view word) {
  if (word.empty() || text.size() < word.size()) return false;
  for (std::size_t i = 0; i + word.size() <= text.size(); ++i) {
    if ((text[i] | 0x20) != word[0]) continue;
    std::size_t k = 1;
    while (k < word.size() && (text[i + k] | 0x20) == word[k]) ++k;
    if (k == word.size()) return true;
  }
  return false;
}

std::string RewriteFunctionNames(const std::string& plain) {
  if (!ContainsIgnoreCase(plain, "case")) return plain;
  std::string out;
  std::size_t i = 0;
  while (i < plain.size()) {
    if (IsWordChar(plain[i]) && (i == 0 || !IsWordChar(plain[i - 1]))) {
      std::size_t j = i;
      while (j < plain.size() && IsWordChar(plain[j])) ++j;
      std::string word = plain.substr(i, j - i);
      std::size_t k = j;
      while (k < plain.size() && std::isspace(static_cast<unsigned char>(plain[k]))) ++k;
      const bool call = k < plain.size() && plain[k] == '(';
      const std::string lower = sql::AsciiLower(word);
      if (call && lower == "lcase") word = "lower";
      else if (call && lower == "ucase") word = "upper";
      out += word;
      i = j;
    } else {
      out += plain[i++];
    }
  }
  return out;
}

// #...# date literals become quoted ISO text.
std::string RewriteHashDates(const std::string& plain) {
  if (plain.find('#') == std::string::npos) return plain;
  std::string out;
  std::size_t i = 0;
  while (i < plain.size()) {
    const auto open = plain.find('#', i);
    if (open == std::string::npos) {
      out += plain.substr(i);
      break;
    }
    const auto close = plain.find('#', open + 1);
    if (close == std::string::npos) {
      out += plain.substr(i);
      break;
    }
    out += plain.substr(i, open - i);
    const std::string inside = plain.substr(open + 1, close - open - 1);
    DateTime when;
    if (DateTime::Parse(inside, when) || DateTime::Parse(sql::ReplaceFirst(inside, "/", "-"), when)) {
      out += "'" + when.ToIsoText() + "'";
    } else {
      out += plain.substr(open, close - open + 1);
    }
    i = close + 1;
  }
  return out;
}

// Access's "delete * from" and "select all distinct".
bool StartsWithWord(const std::string& sql, std::string_view word) {
  const auto first = sql.find_first_not_of(" \t\r\n");
  return first != std::string::npos && sql::EqualsIgnoreCase(std::string_view(sql).substr(first, word.size()), word);
}

// Access's "delete * from" (leading the statement).
std::string RewriteDeleteStar(const std::string& sql) {
  if (sql.find('*') == std::string::npos || !StartsWithWord(sql, "delete")) return sql;
  static const std::regex deleteStar(R"(^(\s*delete)\s+\*\s+(from\b))", std::regex::icase);
  return std::regex_replace(sql, deleteStar, "$1 $2", std::regex_constants::format_first_only);
}

// Access's "select all distinct", in the statement or in a subquery.
std::string RewriteAllDistinct(const std::string& plain) {
  if (!ContainsIgnoreCase(plain, "all")) return plain;
  static const std::regex allDistinct(R"(\b(select)\s+all\s+(distinct)\b)", std::regex::icase);
  return std::regex_replace(plain, allDistinct, "$1 $2");
}

// update T1 a1, T2 a2 set <assignments> where <condition>
std::string RewriteMultiTableUpdate(const std::string& sql) {
  if (sql.find(',') == std::string::npos || !StartsWithWord(sql, "update")) return sql;
  static const std::regex form(
      R"(^\s*update\s+(\w+)\s+(\w+)\s*,\s*(\w+)\s+(\w+)\s+set\s+([\s\S]*?)\s+where\s+([\s\S]*)$)", std::regex::icase);
  std::smatch m;
  if (!std::regex_match(sql, m, form)) return sql;
  const std::string alias = m[2].str();
  // SQLite names the target's columns unqualified on the left of "=".
  std::string assignments = m[5].str();
  const std::regex qualified("\\b" + alias + "\\.(\\w+)\\s*=", std::regex::icase);
  assignments = std::regex_replace(assignments, qualified, "$1 =");
  return "update " + m[1].str() + " as " + alias + " set " + assignments + " from " + m[3].str() + " as " +
         m[4].str() + " where " + m[6].str();
}

}  // namespace

std::string NormaliseDateText(const std::string& text, bool dateOnlyToo) {
  if (IsDateTimeShape(text) || (dateOnlyToo && IsDateOnlyShape(text))) {
    DateTime when;
    if (DateTime::Parse(text, when)) return when.ToIsoText();
  }
  return text;
}

std::string NormaliseDateLiterals(const std::string& statement) {
  if (statement.find('\'') == std::string::npos || statement.find(':') == std::string::npos) return statement;
  return MapSegments(
      statement, [](const std::string& plain) { return plain; },
      [](const std::string& quoted) { return NormaliseDateText(quoted, false); });
}

// Most statements hold nothing Access-specific; one pass tells.
static bool MayNeedRewrite(const std::string& s) {
  if (s.find('#') != std::string::npos) return true;
  if (s.find(':') != std::string::npos && s.find('\'') != std::string::npos) return true;  // a date literal
  if (ContainsIgnoreCase(s, "case")) return true;  // lcase / ucase
  return (s.find('*') != std::string::npos && StartsWithWord(s, "delete")) || ContainsIgnoreCase(s, "all") ||
         (s.find(',') != std::string::npos && StartsWithWord(s, "update"));
}

std::string RewriteJetForSqlite(const std::string& statement) {
  if (!MayNeedRewrite(statement)) return statement;
  std::string out = MapSegments(
      statement,
      [](const std::string& plain) { return RewriteAllDistinct(RewriteHashDates(RewriteFunctionNames(plain))); },
      [](const std::string& quoted) { return NormaliseDateText(quoted, false); });
  out = RewriteDeleteStar(out);
  return RewriteMultiTableUpdate(out);
}

}  // namespace petrodb::db
