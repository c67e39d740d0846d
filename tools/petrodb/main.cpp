// petrodb: the command-line host of the petrodb library.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "Command.h"
#include "Glossary.h"

namespace {

void PrintHelp(std::FILE* out) {
  std::fprintf(out,
               "petrodb - project databases of the oil-field and geology suite\n\n"
               "usage: petrodb [--lang en|zh] <command> [arguments]\n\ncommands:\n");
  for (const auto& c : petrodb::cli::Commands())
    std::fprintf(out, "  petrodb %s %s\n      %s\n", c.name, c.usage, c.summary);
  std::fprintf(out,
               "\nThe library's messages are shown in their original Chinese with an English gloss after\n"
               "them; --lang zh (anywhere on the line) shows the original alone.\n"
               "A project file is an SQLite database (\".mdb\" by name). Set PETRODB_SQL_TRACE=<file> to\n"
               "record every statement sent. Exit codes: 0 success, 1 the operation failed, 2 usage error.\n");
}

// The command whose (possibly two-word) name starts the arguments.
const petrodb::cli::Command* Find(const std::vector<std::string>& args, std::size_t& words) {
  const petrodb::cli::Command* best = nullptr;
  for (const auto& c : petrodb::cli::Commands()) {
    const std::string name = c.name;
    const auto space = name.find(' ');
    if (space == std::string::npos) {
      if (!args.empty() && args[0] == name && !best) {
        best = &c;
        words = 1;
      }
    } else if (args.size() >= 2 && args[0] == name.substr(0, space) && args[1] == name.substr(space + 1)) {
      words = 2;
      return &c;
    }
  }
  return best;
}

// What to say of a command line no command takes: for a known first word, the
// command meant and its verbs.
std::string Unknown(const std::vector<std::string>& args) {
  std::string verbs;
  for (const auto& c : petrodb::cli::Commands()) {
    const std::string name = c.name;
    if (name.rfind(args[0] + " ", 0) == 0 && name.find('|') == std::string::npos)
      verbs += (verbs.empty() ? "" : ", ") + name.substr(args[0].size() + 1);
  }
  if (verbs.empty()) return "unknown command \"" + args[0] + "\" (see petrodb --help)";
  const std::string said = args.size() > 1 ? args[0] + " " + args[1] : args[0];
  return "unknown command \"" + said + "\": petrodb " + args[0] + " takes " + verbs + " (see petrodb " + args[0] +
         " --help)";
}

int Run(std::vector<std::string> args);

}  // namespace

// Nothing a user types ends in an uncaught exception: anything unexpected is
// said on one line and the command fails.
int main(int argc, char** argv) {
  try {
    return Run(std::vector<std::string>(argv + 1, argv + argc));
  } catch (const std::exception& e) {
    petrodb::cli::PrintError(std::string("unexpected failure: ") + e.what());
  } catch (...) {
    petrodb::cli::PrintError("unexpected failure");
  }
  return petrodb::cli::kFailed;
}

namespace {

// Takes the global option "--lang en|zh" (or "--lang=zh") out of the arguments,
// wherever it stands; false (with a message) for another language.
bool TakeLanguage(std::vector<std::string>& args) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    std::string value;
    std::size_t words = 1;
    if (args[i].rfind("--lang=", 0) == 0) {
      value = args[i].substr(7);
    } else if (args[i] == "--lang") {
      if (i + 1 == args.size()) value = "";
      else value = args[i + 1];
      words = 2;
    } else {
      continue;
    }
    if (value != "en" && value != "zh") {
      petrodb::cli::PrintError("--lang takes en (original and English gloss) or zh (original alone)");
      return false;
    }
    petrodb::cli::SetGlossed(value == "en");
    args.erase(args.begin() + static_cast<long>(i), args.begin() + static_cast<long>(i + std::min(words, args.size() - i)));
    --i;
  }
  return true;
}

int Run(std::vector<std::string> args) {
  petrodb::cli::InstallLibraryHandlers();
  if (!TakeLanguage(args)) return petrodb::cli::kUsage;
  if (args.empty() || args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
    PrintHelp(args.empty() ? stderr : stdout);
    return args.empty() ? petrodb::cli::kUsage : petrodb::cli::kOk;
  }
  std::size_t words = 0;
  const petrodb::cli::Command* command = Find(args, words);
  if (!command && args.size() == 2 && (args[1] == "--help" || args[1] == "-h")) {
    bool any = false;
    for (const auto& c : petrodb::cli::Commands())
      if (std::string(c.name).rfind(args[0] + " ", 0) == 0 && !std::strchr(c.name, '|')) {
        std::printf("usage: petrodb %s %s\n  %s\n", c.name, c.usage, c.summary);
        any = true;
      }
    if (any) return petrodb::cli::kOk;
  }
  if (!command) {
    petrodb::cli::PrintError(Unknown(args));
    return petrodb::cli::kUsage;
  }
  std::vector<std::string> rest(args.begin() + static_cast<long>(words), args.end());
  for (const auto& a : rest)
    if (a == "--help" || a == "-h") {
      std::printf("usage: petrodb %s %s\n  %s\n", command->name, command->usage, command->summary);
      return petrodb::cli::kOk;
    }
  const std::size_t positional = petrodb::cli::CountPositional(*command, rest);
  if (static_cast<int>(positional) < command->minArgs ||
      (command->maxArgs >= 0 && static_cast<int>(positional) > command->maxArgs)) {
    std::fprintf(stderr, "usage: petrodb %s %s\n", command->name, command->usage);
    return petrodb::cli::kUsage;
  }
  return command->run(rest);
}

}  // namespace
