#include "dbaccess/JetBridge.h"

#include <algorithm>
#include <cctype>
#include <vector>
#include <regex>

#include "dbaccess/Schema.h"
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

std::string UnwrapDateLiteral(const std::string& text) {
  if (text.size() < 2 || (text.front() != '#' && text.front() != '\'') || text.back() != text.front()) return text;
  const std::string inside = text.substr(1, text.size() - 2);
  return IsDateTimeShape(inside) || IsDateOnlyShape(inside) ? inside : text;
}

bool IsDateColumn(const std::string& table, const std::string& column) {
  const schema::Table* t = schema::Builtin().FindTable(table);
  const schema::Column* c = t ? t->FindColumn(column) : nullptr;
  return c && c->type == schema::Type::Date;
}

std::string NormaliseDateText(const std::string& given, bool dateOnlyToo) {
  const std::string text = UnwrapDateLiteral(given);
  if (IsDateTimeShape(text) || (dateOnlyToo && IsDateOnlyShape(text))) {
    DateTime when;
    if (DateTime::Parse(text, when)) return when.ToIsoText();
  }
  return given;
}

namespace {

// Lower-case names of the columns the schema declares as dates.
const std::vector<std::string>& DateColumnNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> out;
    for (const auto& table : schema::Builtin().tables)
      for (const auto& column : table.columns)
        if (column.type == schema::Type::Date) {
          const std::string lower = sql::AsciiLower(column.name);
          if (std::find(out.begin(), out.end(), lower) == out.end()) out.push_back(lower);
        }
    return out;
  }();
  return names;
}

struct Token {
  enum Kind { Word, Literal, Punct } kind;
  std::size_t begin, end;  // a literal's range includes its quotes
};

// Words (identifiers, keywords, numbers, "a.b", [x], "x"), '…' literals and
// punctuation, blanks dropped. Comparison operators of two characters are one token.
std::vector<Token> Tokens(const std::string& s) {
  std::vector<Token> out;
  std::size_t i = 0;
  while (i < s.size()) {
    const unsigned char c = static_cast<unsigned char>(s[i]);
    if (std::isspace(c)) {
      ++i;
    } else if (c == '\'') {
      std::size_t end = i + 1;
      for (;;) {
        end = s.find('\'', end);
        if (end == std::string::npos || end + 1 >= s.size() || s[end + 1] != '\'') break;
        end += 2;
      }
      end = end == std::string::npos ? s.size() : end + 1;
      out.push_back({Token::Literal, i, end});
      i = end;
    } else if (IsWordChar(c) || c == '[' || c == '"' || c >= 0x80) {
      std::size_t end = i;
      while (end < s.size()) {
        const unsigned char d = static_cast<unsigned char>(s[end]);
        if (d == '[' || d == '"') {
          const auto close = s.find(d == '[' ? ']' : '"', end + 1);
          end = close == std::string::npos ? s.size() : close + 1;
        } else if (IsWordChar(d) || d == '.' || d == '$' || d >= 0x80) {
          ++end;
        } else {
          break;
        }
      }
      out.push_back({Token::Word, i, end});
      i = end;
    } else {
      const bool pair = i + 1 < s.size() && ((c == '<' && (s[i + 1] == '=' || s[i + 1] == '>')) ||
                                             ((c == '>' || c == '!') && s[i + 1] == '='));
      out.push_back({Token::Punct, i, i + (pair ? 2 : 1)});
      i += pair ? 2 : 1;
    }
  }
  return out;
}

// The column a word names: its last part, without brackets or quotes.
std::string ColumnOf(std::string_view word) {
  if (const auto dot = word.rfind('.'); dot != std::string_view::npos) word.remove_prefix(dot + 1);
  if (word.size() >= 2 && (word.front() == '[' || word.front() == '"')) word = word.substr(1, word.size() - 2);
  return sql::AsciiLower(std::string(word));
}

bool IsComparison(std::string_view p) {
  return p == "=" || p == "<" || p == ">" || p == "<=" || p == ">=" || p == "<>" || p == "!=";
}

// Words and marks that may stand between a column and the literals it is
// compared with: "col between 'a' and 'b'", "col not in ('a', 'b')".
bool MayStandBetween(const std::string& s, const Token& t) {
  const std::string_view text(s.data() + t.begin, t.end - t.begin);
  if (t.kind == Token::Literal) return true;
  if (t.kind == Token::Punct) return IsComparison(text) || text == "(" || text == ",";
  for (std::string_view w : {"between", "and", "not", "in", "like", "is"})
    if (sql::EqualsIgnoreCase(text, w)) return true;
  return false;
}

// The column whose value the literal at `at` stands for; "" when none is seen.
std::string ColumnFor(const std::string& s, const std::vector<Token>& tokens, std::size_t at) {
  auto text = [&](std::size_t k) { return std::string_view(s.data() + tokens[k].begin, tokens[k].end - tokens[k].begin); };
  // insert into t (c1, c2, …) values (v1, v2, …)[, (…)]
  if (tokens.size() > 4 && tokens[0].kind == Token::Word && sql::EqualsIgnoreCase(text(0), "insert")) {
    std::vector<std::string> columns;
    std::size_t k = 0;
    while (k < tokens.size() && text(k) != "(") ++k;
    for (++k; k < tokens.size() && text(k) != ")"; ++k)
      if (tokens[k].kind == Token::Word) columns.push_back(ColumnOf(text(k)));
    while (k < tokens.size() && !(tokens[k].kind == Token::Word && sql::EqualsIgnoreCase(text(k), "values"))) ++k;
    if (k < at) {
      int depth = 0;
      std::size_t position = 0;
      for (++k; k < at; ++k) {
        if (text(k) == "(") {
          if (++depth == 1) position = 0;
        } else if (text(k) == ")") {
          --depth;
        } else if (text(k) == "," && depth == 1) {
          ++position;
        }
      }
      return depth == 1 && position < columns.size() ? columns[position] : std::string();
    }
  }
  // … col <op> '…', col between '…' and '…', col in ('…', …)
  for (std::size_t k = at, steps = 0; k-- > 0 && steps < 64; ++steps) {
    if (MayStandBetween(s, tokens[k])) continue;
    return tokens[k].kind == Token::Word ? ColumnOf(text(k)) : std::string();
  }
  // '…' <op> col
  if (at + 2 < tokens.size() && tokens[at + 1].kind == Token::Punct && IsComparison(text(at + 1)) &&
      tokens[at + 2].kind == Token::Word)
    return ColumnOf(text(at + 2));
  return {};
}

}  // namespace

bool IsDateColumnName(std::string_view name) {
  const std::string lower = sql::AsciiLower(std::string(name));
  for (const auto& n : DateColumnNames())
    if (n == lower) return true;
  return false;
}

std::string NormaliseDateLiterals(const std::string& statement) {
  if (statement.find('\'') == std::string::npos) return statement;
  bool mentioned = false;
  for (const auto& name : DateColumnNames()) mentioned = mentioned || ContainsIgnoreCase(statement, name);
  if (!mentioned) return statement;
  const std::vector<Token> tokens = Tokens(statement);
  std::string out;
  std::size_t copied = 0;
  for (std::size_t k = 0; k < tokens.size(); ++k) {
    const Token& t = tokens[k];
    if (t.kind != Token::Literal || t.end - t.begin < 7 || t.end - t.begin > 42) continue;
    const std::string inside = statement.substr(t.begin + 1, t.end - t.begin - 2);
    if (inside.empty() || !std::isdigit(static_cast<unsigned char>(inside[0]))) continue;
    const std::string column = ColumnFor(statement, tokens, k);
    if (column.empty() || !IsDateColumnName(column)) continue;
    const std::string normal = NormaliseDateText(inside, true);
    if (normal == inside) continue;
    out.append(statement, copied, t.begin + 1 - copied);
    out += normal;
    copied = t.end - 1;
  }
  if (copied == 0) return statement;
  out.append(statement, copied, std::string::npos);
  return out;
}

// Most statements hold nothing Access-specific; one pass tells.
static bool MayNeedRewrite(const std::string& s) {
  if (s.find('#') != std::string::npos) return true;
  if (s.find('\'') != std::string::npos) {  // a date literal given to a date column
    for (const auto& name : DateColumnNames())
      if (ContainsIgnoreCase(s, name)) return true;
  }
  if (ContainsIgnoreCase(s, "case")) return true;  // lcase / ucase
  return (s.find('*') != std::string::npos && StartsWithWord(s, "delete")) || ContainsIgnoreCase(s, "all") ||
         (s.find(',') != std::string::npos && StartsWithWord(s, "update"));
}

std::string RewriteJetForSqlite(const std::string& statement) {
  if (!MayNeedRewrite(statement)) return statement;
  std::string out = MapSegments(
      statement,
      [](const std::string& plain) { return RewriteAllDistinct(RewriteHashDates(RewriteFunctionNames(plain))); },
      [](const std::string& quoted) { return quoted; });
  out = RewriteDeleteStar(out);
  return NormaliseDateLiterals(RewriteMultiTableUpdate(out));
}

}  // namespace petrodb::db
