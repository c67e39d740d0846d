// Renders the template project file and the server backup from the schema.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

#include "dbaccess/Schema.h"

int main(int argc, char** argv) {
  std::string sqlitePath, postgresPath;
  for (int i = 1; i + 1 < argc; i += 2) {
    if (!std::strcmp(argv[i], "--sqlite")) sqlitePath = argv[i + 1];
    else if (!std::strcmp(argv[i], "--postgres")) postgresPath = argv[i + 1];
  }
  if (sqlitePath.empty() && postgresPath.empty()) {
    std::fprintf(stderr, "usage: petrodb_schemagen [--sqlite Projects.mdb] [--postgres orvex.bak]\n");
    return 2;
  }
  try {
    const auto& schema = petrodb::schema::Builtin();
    if (!sqlitePath.empty()) {
      std::string error;
      if (!petrodb::schema::CreateSqliteFile(schema, sqlitePath, error)) {
        std::fprintf(stderr, "petrodb_schemagen: %s: %s\n", sqlitePath.c_str(), error.c_str());
        return 1;
      }
    }
    if (!postgresPath.empty()) {
      std::ofstream out(postgresPath, std::ios::trunc);
      out << "-- petrodb project database (PostgreSQL); generated from the schema\n";
      for (const auto& statement : petrodb::schema::RenderPostgres(schema)) out << statement << "\n";
      if (!out) {
        std::fprintf(stderr, "petrodb_schemagen: cannot write %s\n", postgresPath.c_str());
        return 1;
      }
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "petrodb_schemagen: %s\n", e.what());
    return 1;
  }
  return 0;
}
