// petrodb new / info / demo: projects and the guided tour.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sstream>

#include "Command.h"
#include "petrodb/Host.h"
#include "petrodb/project/IBasicProjectData.h"

namespace petrodb::cli {
namespace {

namespace fs = std::filesystem;

bool ParseNumber(const std::string& text, double& out) {
  char* end = nullptr;
  out = std::strtod(text.c_str(), &end);
  return !text.empty() && end && *end == '\0';
}

// --extent SNmin,SNmax,EWmin,EWmax
bool ParseExtent(const std::string& text, ProjectRecord& record) {
  std::stringstream in(text);
  std::string part;
  double v[4];
  for (double& value : v) {
    if (!std::getline(in, part, ',') || !ParseNumber(part, value)) return false;
  }
  if (std::getline(in, part, ',')) return false;
  record.SNmin = v[0];
  record.SNmax = v[1];
  record.EWmin = v[2];
  record.EWmax = v[3];
  return true;
}

int New(const std::vector<std::string>& args) {
  Options options;
  if (!ParseOptions(args, {"description", "extent", "depth-unit"}, options)) return kUsage;
  const std::string& parent = options.positional.at(0);
  const std::string& name = options.positional.at(1);
  ProjectRecord record;
  record.ProjectName = name;
  if (const auto* d = options.Get("description")) record.Description = *d;
  if (const auto* e = options.Get("extent"); e && !ParseExtent(*e, record)) {
    PrintError("--extent takes four numbers: SNmin,SNmax,EWmin,EWmax");
    return kUsage;
  }
  if (const auto* u = options.Get("depth-unit")) {
    if (*u == "m" || *u == "metres" || *u == "meters") record.DepthUnit = 0;
    else if (*u == "ft" || *u == "feet") record.DepthUnit = 1;
    else {
      PrintError("--depth-unit is m or ft");
      return kUsage;
    }
  }
  if (name.empty() || name == "." || name == ".." || name.find('/') != std::string::npos) {
    PrintError("\"" + name + "\" cannot name a project (it becomes a directory and a file name)");
    return kUsage;
  }
  std::error_code ec;
  if (!fs::is_directory(parent, ec)) {
    PrintError(fs::exists(parent, ec) ? parent + " is not a directory" : "no directory " + parent);
    return kFailed;
  }
  if (::access(parent.c_str(), W_OK) != 0) {
    PrintError("cannot write in " + parent + ": " + std::strerror(errno));
    return kFailed;
  }
  const std::string file = (fs::path(parent) / name / (name + ".mdb")).string();
  auto factory = MakeFactory(ProjectConnection(file), name);
  auto projects = Create<IBasicProjectData>(*factory, "IBasicProjectData");
  if (!projects->CreateProject(name.c_str(), parent.c_str(), ProgramDirectory().c_str())) {
    if (!EngineError().empty()) PrintFailure("cannot create " + file);
    return kFailed;
  }
  if (!projects->SaveProject(record)) {
    PrintFailure("cannot record project " + name + " in " + file);
    return kFailed;
  }
  projects->TouchRecentProject(name.c_str(), 0);
  std::printf("created %s\n", file.c_str());
  return kOk;
}

void PrintProject(const ProjectRecord& p) {
  std::printf("project %s\n", p.ProjectName.c_str());
  if (!p.Description.empty()) std::printf("  description   %s\n", p.Description.c_str());
  std::printf("  created       %s\n", p.CreatedDate.c_str());
  std::printf("  extent        SN %g .. %g, EW %g .. %g\n", p.SNmin, p.SNmax, p.EWmin, p.EWmax);
  std::printf("  depth unit    %s\n", p.DepthUnit ? "feet" : "metres");
  std::printf("  ellipsoid     %d %s (a = %.1f, 1/f = %g)\n", p.Ellipsoid.EllipsoidID,
              p.Ellipsoid.EllipsoidDescription.c_str(), p.Ellipsoid.SemiMajor, p.Ellipsoid.Flattering);
  std::printf("  projection    %d %s, zone %d (%d-degree), false easting %.1f\n", p.Projection.ProjectionType,
              p.Projection.ProjectionDescription.c_str(), p.Projection.indexZone, p.Projection.ZoneType,
              p.Projection.FalseEasting);
}

int ServerCreate(const std::vector<std::string>& args) {
  const std::string& server = args.at(0);
  const std::string& name = args.at(1);
  auto factory = MakeFactory(server);
  auto projects = Create<IBasicProjectData>(*factory, "IBasicProjectData");
  if (!projects->CreateProjectDatabase(name.c_str(), server.c_str())) {
    // Without an engine's reason the server answered, and it has the database.
    const std::string reason = EngineError();
    PrintError(reason.empty() ? "database " + name + " exists on the server already"
                              : "cannot create database " + name + ": " + reason);
    return kFailed;
  }
  std::printf("created database %s\n", name.c_str());
  return kOk;
}

int Info(const std::vector<std::string>& args) {
  const std::string& file = args.at(0);
  if (!CheckProjectFile(file)) return kFailed;
  auto factory = MakeFactory(ProjectConnection(file));
  auto projects = Create<IBasicProjectData>(*factory, "IBasicProjectData");
  // An empty list answers false too; only an engine error makes it a failure.
  std::vector<std::string> names;
  if (!projects->GetProjectNames(names) && !EngineError().empty()) {
    PrintFailure("cannot read the projects of " + file);
    return kFailed;
  }
  if (names.empty()) std::printf("no projects in %s\n", file.c_str());
  int result = kOk;
  for (const auto& name : names) {
    ProjectRecord record;
    if (projects->LoadProject(name.c_str(), record)) {
      PrintProject(record);
    } else {
      PrintFailure("cannot read project " + name + " of " + file);
      result = kFailed;
    }
  }
  std::vector<std::string> recent;
  if (projects->GetRecentProjects(recent)) {
    std::printf("recent projects:");
    for (const auto& name : recent) std::printf(" %s", name.c_str());
    std::printf("\n");
  } else if (!EngineError().empty()) {
    PrintFailure("cannot read the recent projects of " + file);
    result = kFailed;
  }
  return result;
}

int Demo(const std::vector<std::string>& given) {
  Options options;
  if (!ParseOptions(given, {}, options, {"force"})) return kUsage;
  const std::vector<std::string>& args = options.positional;
  const bool force = options.Has("force");
  if (args.size() > 1) return kUsage;
  std::string directory;
  std::error_code ec;
  if (!args.empty()) {
    directory = args[0];
    fs::create_directories(directory, ec);
    std::error_code probe;
    if (!fs::is_directory(directory, probe)) {
      PrintError("cannot make the directory " + directory + ": " +
                 (ec ? ec.message() : std::string("a file of that name is in the way")));
      return kFailed;
    }
    if (::access(directory.c_str(), W_OK) != 0) {
      PrintError("cannot write in " + directory + ": " + std::strerror(errno));
      return kFailed;
    }
  } else {
    std::string pattern = (fs::temp_directory_path(ec) / "petrodb-demo-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
      PrintError("cannot make a directory for the demo");
      return kFailed;
    }
    directory = pattern;
  }
  DemoContext context;
  context.project = "Demo";
  context.directory = directory;
  context.file = (fs::path(directory) / "Demo" / "Demo.mdb").string();
  if (fs::exists(context.file, ec)) {
    if (!force) {
      PrintError(context.file + " already exists; add --force to replace it with a new demo project");
      return kFailed;
    }
    fs::remove(context.file, ec);
  }
  context.connection = ProjectConnection(context.file);
  auto factory = MakeFactory(context.connection, context.project);
  context.factory = factory.get();
  std::printf("petrodb demo in %s\n", directory.c_str());
  for (const auto& step : DemoSteps()) {
    std::printf("\n== %s ==\n", step.title);
    if (!step.run(context)) {
      PrintFailure(std::string("demo step failed: ") + step.title);
      return kFailed;
    }
  }
  std::printf("\ndemo finished; project file %s\n", context.file.c_str());
  return kOk;
}

bool DemoProject(DemoContext& c) {
  auto projects = Create<IBasicProjectData>(*c.factory, "IBasicProjectData");
  if (!projects->CreateProject(c.project.c_str(), c.directory.c_str(), ProgramDirectory().c_str())) return false;
  std::printf("created %s from the template\n", c.file.c_str());
  ProjectRecord record;
  record.ProjectName = c.project;
  record.Description = "Demonstration field";
  record.SNmin = 4300000;
  record.SNmax = 4320000;
  record.EWmin = 20500000;
  record.EWmax = 20520000;
  if (!projects->SaveProject(record) || !projects->TouchRecentProject(c.project.c_str(), 0)) return false;
  ProjectRecord loaded;
  if (!projects->LoadProject(c.project.c_str(), loaded)) return false;
  PrintProject(loaded);
  std::printf("depth unit through the factory: %s (factor %g)\n", c.factory->GetDepthUnitName(),
              c.factory->GetDepthFactor(c.factory->IsDepthInFeet() != 0));
  return true;
}

const CommandRegistration kNew{Command{
    "new", "<parent-dir> <name> [--description TEXT] [--extent SNmin,SNmax,EWmin,EWmax] [--depth-unit m|ft]",
    "create <parent-dir>/<name>/<name>.mdb from the template and record the project in it", &New, 2, 2}};
const CommandRegistration kServerCreate{
    Command{"server-create", "<server-connection> <name>",
            "create project database <name> on a server from the backup beside the program", &ServerCreate, 2, 2}};
const CommandRegistration kInfo{
    Command{"info", "<file>", "show the projects of a project file and the recently used ones", &Info, 1, 1}};
const CommandRegistration kDemo{Command{"demo", "[dir] [--force]",
                                        "create a project in [dir] (default: a new temporary directory) and "
                                        "walk through the library's data objects",
                                        &Demo, 0, 1}};
const DemoRegistration kDemoProject{DemoStep{10, "projects", &DemoProject}};

}  // namespace
}  // namespace petrodb::cli
