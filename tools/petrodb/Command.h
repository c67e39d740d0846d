#pragma once
// The petrodb host's commands. Each command group registers itself from its own
// file; `main` only dispatches.
#include <memory>
#include <string>
#include <vector>

#include "petrodb/IDataFactory.h"

namespace petrodb::cli {

// Exit codes scripts can rely on.
enum ExitCode { kOk = 0, kFailed = 1, kUsage = 2 };

struct Command {
  const char* name;     // first word(s), e.g. "new" or "wells import"
  // Arguments after the name. Its options declare how they are given: "[--csv]"
  // or "[-v]" is a flag, "[--out <las>]" takes the word after it as its value.
  const char* usage;
  const char* summary;  // one line for --help
  int (*run)(const std::vector<std::string>& args);
  int minArgs = 0;
  int maxArgs = 0;  // -1: any number
};

struct CommandRegistration {
  explicit CommandRegistration(Command command);
};
const std::vector<Command>& Commands();

// Whether the command's usage gives `option` ("--out", "-v") a value; an option
// the usage does not name is taken to have one (as "--name value" or "--name=value").
bool OptionTakesValue(const Command& command, const std::string& option);
// How many positional arguments the words after the command's name hold.
std::size_t CountPositional(const Command& command, const std::vector<std::string>& args);

// A step of `petrodb demo`, run in ascending order on one fresh project.
struct DemoContext {
  std::string directory;   // where the demo's project lives
  std::string file;        // the project file
  std::string connection;  // its connection string
  std::string project;     // the project name inside it
  IDataFactory* factory = nullptr;
};
struct DemoStep {
  int order;
  const char* title;
  bool (*run)(DemoContext& context);
};
struct DemoRegistration {
  explicit DemoRegistration(DemoStep step);
};
const std::vector<DemoStep>& DemoSteps();

// "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=<file>"
std::string ProjectConnection(const std::string& file);

// A factory that is deleted with the scope.
struct FactoryDeleter {
  void operator()(IDataFactory* f) const { DeleteDataFactory(f); }
};
using FactoryPtr = std::unique_ptr<IDataFactory, FactoryDeleter>;
FactoryPtr MakeFactory(const std::string& connection, const std::string& project = "");

// Creates the object for an interface, connected to the factory's connection.
template <class Interface>
std::unique_ptr<Interface> Create(IDataFactory& factory, const char* interfaceName) {
  IDataBase* object = factory.CreateObject(interfaceName);
  if (object) object->SetConnection(factory.GetConnectionString());
  return std::unique_ptr<Interface>(static_cast<Interface*>(object));
}

// Checks, before the library opens it, that `file` is a project file: it
// exists, is a regular file that can be read, is an SQLite database that is not
// damaged at its start, and holds the project tables; for a command that
// writes, also that the file and its directory (where the engine keeps its
// log) can be written. Prints why not, naming the path. Never writes anything.
enum class Access { Read, Write };
bool CheckProjectFile(const std::string& file, Access access = Access::Read);

// Whether the project file holds a project of this name, and whether the well
// is in it; print what is there instead (so a typo never writes) and say no.
bool CheckProjectName(IDataFactory& factory, const std::string& file, const std::string& project);
bool CheckWellID(IDataFactory& factory, const std::string& file, const std::string& wellID);

// Option parsing: "--name value" (or "--name=value") pairs and "--flag"s,
// anywhere among the positional arguments.
struct Options {
  std::vector<std::string> positional;
  std::vector<std::pair<std::string, std::string>> named;  // a flag has the value ""
  const std::string* Get(const std::string& name) const;
  bool Has(const std::string& name) const { return Get(name) != nullptr; }
};
// False (with a message) for an option in neither `known` (options with a
// value) nor `flags` (options without one), or an option without its value.
bool ParseOptions(const std::vector<std::string>& args, const std::vector<std::string>& known, Options& out,
                  const std::vector<std::string>& flags = {});

void PrintError(const std::string& text);
// The engine's reason for the last failed operation of this thread ("disk
// full", "database is locked by another process", ...), or "" when it gave none.
std::string EngineError();
// PrintError for an operation of the library that failed: the text, then the
// engine's reason when it gave one.
void PrintFailure(const std::string& text);
// After a lookup of `name` found nothing: the engine's reason, or "" when it gave
// none or the name holds a quote or a NUL (no record can have it; nothing was asked).
std::string LookupError(const std::string& name);
// PrintError for a lookup of `name` that found nothing, with LookupError's reason.
void PrintNotFound(const std::string& text, const std::string& name);
// True when every curve of `wanted` is one of the well's `known` curves (names
// compare ignoring case, as the project does); otherwise says which is not,
// listing the known ones.
bool HasCurves(const std::string& wellID, const std::vector<std::string>& wanted,
               const std::vector<std::string>& known);

}  // namespace petrodb::cli
