#include "Command.h"

#include <algorithm>
#include <cstdio>
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

bool CheckProjectFile(const std::string& file) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(file, ec)) {
    PrintError("no project file at " + file);
    return false;
  }
  std::ifstream in(file, std::ios::binary);
  char header[16] = {};
  in.read(header, sizeof header);
  if (!in || std::string(header, 15) != "SQLite format 3") {
    PrintError(file + " is not a petrodb project file");
    return false;
  }
  return true;
}

const std::string* Options::Get(const std::string& name) const {
  for (const auto& [k, v] : named)
    if (k == name) return &v;
  return nullptr;
}

bool ParseOptions(const std::vector<std::string>& args, const std::vector<std::string>& known, Options& out) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a.rfind("--", 0) != 0 || a.size() == 2) {
      out.positional.push_back(a);
      continue;
    }
    std::string name = a.substr(2), value;
    const auto eq = name.find('=');
    if (eq != std::string::npos) {
      value = name.substr(eq + 1);
      name.resize(eq);
    } else if (i + 1 < args.size()) {
      value = args[++i];
    } else {
      PrintError("option --" + name + " needs a value");
      return false;
    }
    if (std::find(known.begin(), known.end(), name) == known.end()) {
      PrintError("unknown option --" + name);
      return false;
    }
    out.named.emplace_back(name, value);
  }
  return true;
}

void PrintError(const std::string& text) { std::fprintf(stderr, "petrodb: %s\n", text.c_str()); }

}  // namespace petrodb::cli
