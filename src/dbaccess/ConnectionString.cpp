#include "dbaccess/ConnectionString.h"

#include "dbaccess/SqlText.h"

namespace petrodb::db {
namespace {

std::string Trim(const std::string& s) {
  const auto first = s.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return s.substr(first, s.find_last_not_of(" \t\r\n") - first + 1);
}

struct Pair {
  std::string key, value;
  std::size_t valueBegin = 0, valueEnd = 0;  // where the raw value stands in the text
};

// Splits "k=v;k='v;v';k=\"v\"" into pairs; a quoted value may hold ';'.
std::vector<Pair> Split(const std::string& text) {
  std::vector<Pair> pairs;
  std::size_t i = 0;
  while (i < text.size()) {
    const auto eq = text.find('=', i);
    const auto semi = text.find(';', i);
    if (eq == std::string::npos || (semi != std::string::npos && semi < eq)) {
      if (semi == std::string::npos) break;
      i = semi + 1;  // a fragment without '=' is ignored
      continue;
    }
    Pair p;
    p.key = Trim(text.substr(i, eq - i));
    std::size_t v = eq + 1;
    while (v < text.size() && (text[v] == ' ' || text[v] == '\t')) ++v;
    p.valueBegin = v;
    if (v < text.size() && (text[v] == '\'' || text[v] == '"')) {
      const char quote = text[v];
      std::size_t end = v + 1;
      std::string value;
      while (end < text.size()) {
        if (text[end] == quote) {
          if (end + 1 < text.size() && text[end + 1] == quote) {  // doubled quote
            value += quote;
            end += 2;
            continue;
          }
          break;
        }
        value += text[end++];
      }
      p.value = value;
      p.valueEnd = std::min(end + 1, text.size());
      const auto next = text.find(';', p.valueEnd);
      i = next == std::string::npos ? text.size() : next + 1;
    } else {
      const auto end = semi == std::string::npos ? text.size() : semi;
      p.value = Trim(text.substr(v, end - v));
      p.valueEnd = end;
      i = end + 1;
    }
    if (!p.key.empty()) pairs.push_back(std::move(p));
  }
  return pairs;
}

// "Password", "Pwd", and every key whose last word is "password" ("Jet
// OLEDB:Database Password", "Jet OLEDB:New Database Password").
bool IsPasswordKey(const std::string& key) {
  const std::string k = sql::AsciiLower(key);
  if (k == "pwd" || k == "password") return true;
  constexpr std::string_view kWord = "password";
  if (k.size() <= kWord.size() || k.compare(k.size() - kWord.size(), kWord.size(), kWord) != 0) return false;
  const char before = k[k.size() - kWord.size() - 1];
  return before == ' ' || before == ':' || before == '_';
}

}  // namespace

ConnectionString::ConnectionString(const std::string& text) {
  for (auto& p : Split(text)) values_.emplace(sql::AsciiLower(p.key), p.value);
}

std::string ConnectionString::Get(const std::string& key) const {
  const auto it = values_.find(sql::AsciiLower(key));
  return it == values_.end() ? std::string() : it->second;
}

bool ConnectionString::Has(const std::string& key) const { return values_.count(sql::AsciiLower(key)) != 0; }

std::string ConnectionString::Masked(const std::string& text) {
  std::string out = text;
  auto pairs = Split(text);
  for (auto it = pairs.rbegin(); it != pairs.rend(); ++it)
    if (IsPasswordKey(it->key)) out.replace(it->valueBegin, it->valueEnd - it->valueBegin, "***");
  return out;
}

bool IsJetConnection(const std::string& connection) {
  return connection.find("Provider=Microsoft.Jet.OLEDB") != std::string::npos;
}

}  // namespace petrodb::db
