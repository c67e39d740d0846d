// A small host of the petrodb library: creates a local project from the
// template that ships with the library, stores the project's record and reads
// it back.
//
//   host <parent-directory> <project-name>
#include <cstdio>
#include <memory>
#include <string>

#include "petrodb/Host.h"
#include "petrodb/IDataFactory.h"
#include "petrodb/project/IBasicProjectData.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: host <parent-directory> <project-name>\n");
    return 2;
  }
  const std::string parent = argv[1], name = argv[2];
  const std::string file = parent + "/" + name + "/" + name + ".mdb";

  IDataFactory* factory = CreateDataFactoryObject();
  if (!factory) return 1;
  factory->SetConnectionString(("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file).c_str());
  factory->SetProjectName(name.c_str());

  bool ok = false;
  {
    // The caller owns every data object; ask for it by interface name.
    std::unique_ptr<IDataBase> object(factory->CreateObject("IBasicProjectData"));
    auto* projects = dynamic_cast<IBasicProjectData*>(object.get());
    if (projects) {
      projects->SetConnection(factory->GetConnectionString());
      // The template project is found beside the program or the library
      // (petrodb::ProgramDirectory(); the environment variable PETRODB_PROGRAM_DIR overrides it).
      ok = projects->CreateProject(name.c_str(), parent.c_str(), petrodb::ProgramDirectory().c_str());
      if (ok) std::printf("created %s\n", file.c_str());

      ProjectRecord project;
      project.ProjectName = name;
      project.Description = "made by the example host";
      project.SNmin = 4300000;
      project.SNmax = 4310000;
      project.EWmin = 20500000;
      project.EWmax = 20512000;
      ok = ok && projects->SaveProject(project);

      ProjectRecord loaded;
      ok = ok && projects->LoadProject(name.c_str(), loaded);
      if (ok)
        std::printf("%s: %s; north %.0f to %.0f, east %.0f to %.0f, depths in %s\n", loaded.ProjectName.c_str(),
                    loaded.Description.c_str(), loaded.SNmin, loaded.SNmax, loaded.EWmin, loaded.EWmax,
                    loaded.DepthUnit ? "feet" : "metres");
    }
  }
  // Why an operation failed, naming the file; the messages themselves went to stderr.
  if (!ok) std::fprintf(stderr, "host: failed: %s\n", petrodb::LastError().c_str());
  DeleteDataFactory(factory);
  return ok ? 0 : 1;
}
