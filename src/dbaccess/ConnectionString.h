#pragma once
// Connection strings: "Key=Value;Key='quoted; value';..." with keys ignoring case.
#include <map>
#include <string>

namespace petrodb::db {

class ConnectionString {
 public:
  explicit ConnectionString(const std::string& text);
  // The value of a key (any case), or "" when absent.
  std::string Get(const std::string& key) const;
  bool Has(const std::string& key) const;
  // The text with every password value replaced by "***", for traces and messages.
  static std::string Masked(const std::string& text);

 private:
  std::map<std::string, std::string> values_;  // keys lowered
};

// Access files are named by "Provider=Microsoft.Jet.OLEDB" (this exact case);
// every other connection string speaks the server dialect.
bool IsJetConnection(const std::string& connection);

}  // namespace petrodb::db
