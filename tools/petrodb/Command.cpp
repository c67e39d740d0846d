#include "Command.h"
#include "dbaccess/SqlText.h"
#include "petrodb/Host.h"
#include "petrodb/project/IBasicProjectData.h"
#include "petrodb/project/IBasicWellData.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace petrodb::cli {
namespace {

std::vector<Command>& CommandList() {
  static std::vector<Command> list;
  return list;
}
std::vector<DemoStep>& DemoList() {
  static std::vector<DemoStep> list;
  return list;
}
}  // namespace

CommandRegistration::CommandRegistration(Command command) { CommandList().push_back(command); }
const std::vector<Command>& Commands() { return CommandList(); }

namespace {
// Where the usage names `option` as a word of its own ("[--out <las>]", "[-v]",
// "--a|--b"), or npos.
std::size_t FindOption(const std::string& usage, const std::string& option) {
  for (std::size_t at = usage.find(option); at != std::string::npos; at = usage.find(option, at + 1)) {
    const std::size_t end = at + option.size();
    const bool starts = at == 0 || usage[at - 1] == ' ' || usage[at - 1] == '[' || usage[at - 1] == '|';
    if (starts && (end == usage.size() || usage[end] == ' ' || usage[end] == ']' || usage[end] == '|')) return at;
  }
  return std::string::npos;
}
}  // namespace

bool OptionTakesValue(const Command& command, const std::string& option) {
  const std::string usage = command.usage;
  const std::size_t at = FindOption(usage, option);
  if (at == std::string::npos) return true;
  // "[--csv]", "--csv" at the end or before another option: a flag.
  const std::size_t end = at + option.size();
  if (end == usage.size() || usage[end] == ']' || usage[end] == '|') return false;
  const std::size_t next = usage.find_first_not_of(' ', end);
  return next != std::string::npos && usage[next] != '-' && usage[next] != '[';
}

std::size_t CountPositional(const Command& command, const std::vector<std::string>& args) {
  std::size_t positional = 0;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    // "-v" is an option only when the usage names it ("-5" is a number).
    const bool shortOption = a.size() == 2 && a[0] == '-' && FindOption(command.usage, a) != std::string::npos;
    if (!shortOption && (a.rfind("--", 0) != 0 || a.size() == 2)) {
      ++positional;
    } else if (a.find('=') == std::string::npos && OptionTakesValue(command, a)) {
      ++i;  // its value
    }
  }
  return positional;
}

DemoRegistration::DemoRegistration(DemoStep step) {
  auto& list = DemoList();
  list.push_back(step);
  std::stable_sort(list.begin(), list.end(), [](const DemoStep& a, const DemoStep& b) { return a.order < b.order; });
}
const std::vector<DemoStep>& DemoSteps() { return DemoList(); }

std::string ProjectConnection(const std::string& file) {
  return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file;
}

FactoryPtr MakeFactory(const std::string& connection, const std::string& project) {
  FactoryPtr factory(CreateDataFactoryObject());
  if (factory) {
    factory->SetConnectionString(connection.c_str());
    factory->SetProjectName(project.c_str());
  }
  return factory;
}

namespace {

// "file:<path>?immutable=1": the file read as it is, without locks and
// without creating the engine's companion files beside it.
std::string ImmutableUri(const std::string& path) {
  static const char digits[] = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : std::filesystem::absolute(path).string()) {
    const auto u = static_cast<unsigned char>(c);
    if (std::isalnum(u) || c == '/' || c == '.' || c == '_' || c == '-' || c == '~') {
      uri += c;
    } else {
      uri += '%';
      uri += digits[u >> 4];
      uri += digits[u & 15];
    }
  }
  return uri + "?immutable=1";
}

// Whether the SQLite file holds the project table; false with `why` when it
// cannot be read as a database or is not a project.
bool HoldsProjectTables(const std::string& file, std::string& why) {
  sqlite3* db = nullptr;
  const int opened = sqlite3_open_v2(ImmutableUri(file).c_str(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
  bool found = false;
  if (opened == SQLITE_OK) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db,
                           "select count(*) from sqlite_master where type = 'table' and lower(name) = 'b_project_data'",
                           -1, &statement, nullptr) == SQLITE_OK &&
        sqlite3_step(statement) == SQLITE_ROW) {
      found = sqlite3_column_int(statement, 0) > 0;
      if (!found) why = "an SQLite database, but not a petrodb project (it has no project table)";
    } else {
      why = std::string("damaged or not a database (") + sqlite3_errmsg(db) + ")";
    }
    sqlite3_finalize(statement);
  } else {
    why = std::string("cannot be opened (") + (db ? sqlite3_errmsg(db) : sqlite3_errstr(opened)) + ")";
  }
  sqlite3_close(db);
  return found;
}

}  // namespace

bool CheckProjectFile(const std::string& file, Access access) {
  namespace fs = std::filesystem;
  std::error_code ec;
  const fs::file_status status = fs::status(file, ec);
  if (!fs::exists(status)) {
    PrintError("no project file at " + file);
    return false;
  }
  if (fs::is_directory(status)) {
    PrintError(file + " is a directory, not a project file");
    return false;
  }
  if (!fs::is_regular_file(status)) {
    PrintError(file + " is not a regular file, not a project file");
    return false;
  }
  std::ifstream in(file, std::ios::binary);
  if (!in) {
    PrintError("cannot read " + file + ": " + std::strerror(errno));
    return false;
  }
  char header[16] = {};
  in.read(header, sizeof header);
  const auto got = in.gcount();
  if (got == 0) {
    PrintError(file + " is empty (0 bytes), not a petrodb project file");
    return false;
  }
  if (got < static_cast<std::streamsize>(sizeof header) || std::memcmp(header, "SQLite format 3", 16) != 0) {
    PrintError(file + " is not a petrodb project file (not an SQLite database)");
    return false;
  }
  std::string why;
  if (!HoldsProjectTables(file, why)) {
    PrintError(file + " is not a petrodb project file: " + why);
    return false;
  }
  if (access == Access::Write) {
    const fs::path directory = fs::absolute(file).parent_path();
    if (::access(file.c_str(), W_OK) != 0 || ::access(directory.c_str(), W_OK) != 0) {
      PrintError(file + " is read-only (" + std::strerror(errno) + "); nothing was written");
      return false;
    }
  }
  return true;
}

const std::string* Options::Get(const std::string& name) const {
  for (const auto& [k, v] : named)
    if (k == name) return &v;
  return nullptr;
}

bool ParseOptions(const std::vector<std::string>& args, const std::vector<std::string>& known, Options& out,
                  const std::vector<std::string>& flags) {
  const auto in = [](const std::vector<std::string>& list, const std::string& name) {
    return std::find(list.begin(), list.end(), name) != list.end();
  };
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a.rfind("--", 0) != 0 || a.size() == 2) {
      out.positional.push_back(a);
      continue;
    }
    std::string name = a.substr(2);
    if (in(flags, name)) {
      out.named.emplace_back(name, "");
      continue;
    }
    const auto eq = name.find('=');
    std::string value = eq == std::string::npos ? "" : name.substr(eq + 1);
    if (eq != std::string::npos) name.resize(eq);
    if (!in(known, name)) {
      PrintError(in(flags, name) ? "option --" + name + " takes no value" : "unknown option --" + name);
      return false;
    }
    if (eq == std::string::npos) {
      if (i + 1 == args.size()) {
        PrintError("option --" + name + " needs a value");
        return false;
      }
      value = args[++i];
    }
    out.named.emplace_back(name, value);
  }
  return true;
}

void PrintError(const std::string& text) { std::fprintf(stderr, "petrodb: %s\n", text.c_str()); }

std::string EngineError() { return LastError(); }

namespace {
// The text, then the reason when there is one.
std::string WithReason(const std::string& text, const std::string& reason) {
  return reason.empty() ? text : text + ": " + reason;
}

std::string Listed(const std::vector<std::string>& names, std::size_t most) {
  std::string list;
  for (std::size_t i = 0; i < names.size() && i < most; ++i) list += (i ? ", " : "") + names[i];
  if (names.size() > most) list += ", ... (" + std::to_string(names.size()) + " in all)";
  return list;
}
}  // namespace

void PrintFailure(const std::string& text) { PrintError(WithReason(text, EngineError())); }

std::string LookupError(const std::string& name) { return sql::HoldsQuote(name) ? std::string() : EngineError(); }

void PrintNotFound(const std::string& text, const std::string& name) { PrintError(WithReason(text, LookupError(name))); }

bool HasCurves(const std::string& wellID, const std::vector<std::string>& wanted,
               const std::vector<std::string>& known) {
  for (const auto& name : wanted) {
    const auto same = [&](const std::string& k) { return sql::EqualsIgnoreCase(k, name); };
    if (std::any_of(known.begin(), known.end(), same)) continue;
    PrintError("no curve \"" + name + "\" in well " + wellID +
               (known.empty() ? " (it has no curves)" : " (its curves: " + Listed(known, 20) + ")"));
    return false;
  }
  return true;
}

bool CheckProjectName(IDataFactory& factory, const std::string& file, const std::string& project) {
  auto projects = Create<IBasicProjectData>(factory, "IBasicProjectData");
  std::vector<std::string> names;
  if (!projects) return false;
  projects->GetProjectNames(names);  // false also when there are none
  for (const auto& n : names)
    if (n == project) return true;
  PrintError("no project \"" + project + "\" in " + file +
             (names.empty() ? " (it holds no project)" : " (its projects: " + Listed(names, 10) + ")"));
  return false;
}

bool CheckWellID(IDataFactory& factory, const std::string& file, const std::string& wellID) {
  auto wells = Create<IBasicWellData>(factory, "IBasicWellData");
  WellRecord well;
  if (wells && wells->LoadWell(wellID.c_str(), well)) return true;
  PrintError("no well \"" + wellID + "\" in " + file + " (see petrodb wells list)");
  return false;
}

}  // namespace petrodb::cli
