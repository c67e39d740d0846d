// petrodb wells import / wells list / import, and the demo's wells and groups.
#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>

#include "Command.h"
#include "Progress.h"
#include "dbaccess/Schema.h"
#include "dbaccess/SqlText.h"
#include "formats/Csv.h"
#include "petrodb/IBasicDataOper.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/project/IWellGroupData.h"

namespace petrodb::cli {
namespace {

using csv::Row;
using csv::Table;
using csv::Where;

bool Number(const std::string& cell, double& value) {
  return sql::ParseWholeNumber(cell, value);
}

// ---- wells import ----

using WellSetter = bool (*)(WellRecord&, const std::string&);

// The columns of a well record a CSV file may name; WellID is required.
const std::map<std::string, WellSetter, std::less<>>& WellColumns() {
  static const std::map<std::string, WellSetter, std::less<>> columns = {
      // A key is spliced into statements between quotes: one holding a quote cannot be stored.
      {"WellID",
       [](WellRecord& w, const std::string& v) {
         w.WellID = v;
         return !v.empty() && !sql::HoldsQuote(v);
       }},
      {"WellName", [](WellRecord& w, const std::string& v) { w.WellName = v; return true; }},
      {"WellType", [](WellRecord& w, const std::string& v) { w.WellType = v; return true; }},
      {"Well_SN", [](WellRecord& w, const std::string& v) { return v.empty() || Number(v, w.Well_SN); }},
      {"Well_EW", [](WellRecord& w, const std::string& v) { return v.empty() || Number(v, w.Well_EW); }},
      {"WellFlag",
       [](WellRecord& w, const std::string& v) {
         if (v.size() > 1) return false;
         if (!v.empty()) w.WellFlag = v[0];
         return true;
       }},
      {"WellSymbol",
       [](WellRecord& w, const std::string& v) {
         double d = 0;
         if (v.empty()) return true;
         if (!Number(v, d) || d != static_cast<int>(d)) return false;
         w.WellSymbol = static_cast<int>(d);
         return true;
       }},
      {"Kb", [](WellRecord& w, const std::string& v) { return v.empty() || Number(v, w.Kb); }},
      {"Ekb", [](WellRecord& w, const std::string& v) { return v.empty() || Number(v, w.Ekb); }},
      {"WellDepth", [](WellRecord& w, const std::string& v) { return v.empty() || Number(v, w.WellDepth); }},
  };
  return columns;
}

const char* Expected(const std::string& column) {
  if (column == "WellID") return "a well ID (not empty, without a single quote)";
  if (column == "WellFlag") return "one character";
  if (column == "WellSymbol") return "a whole number";
  return "a number";
}

int WellsImport(const std::vector<std::string>& args) {
  const std::string &file = args[0], &project = args[1], &csv = args[2];
  if (!CheckProjectFile(file, Access::Write)) return kFailed;
  Table table;
  std::string error;
  if (!csv::ReadFile(csv, table, error)) {
    PrintError(error);
    return kFailed;
  }
  std::vector<WellSetter> setters;
  bool hasID = false;
  for (std::size_t j = 0; j < table.header.size(); ++j) {
    const auto found = WellColumns().find(table.header[j]);
    if (found == WellColumns().end()) {
      PrintError(Where(csv, 1, std::to_string(j + 1)) + "\"" + table.header[j] +
                 "\" is not a column of a well (WellID, WellName, WellType, Well_SN, Well_EW, WellFlag, "
                 "WellSymbol, Kb, Ekb, WellDepth)");
      return kFailed;
    }
    hasID = hasID || found->first == "WellID";
    setters.push_back(found->second);
  }
  if (!hasID) {
    PrintError(csv + ": line 1: the header has no WellID column");
    return kFailed;
  }
  auto factory = MakeFactory(ProjectConnection(file), project);
  if (!CheckProjectName(*factory, file, project)) return kFailed;
  auto data = Create<IBasicWellData>(*factory, "IBasicWellData");
  // A well the project has keeps the columns the file does not name.
  std::vector<WellRecord> existing;
  data->LoadProjectWells(project.c_str(), existing);
  std::map<std::string, WellRecord> byID;
  for (auto& w : existing) byID.emplace(w.WellID, std::move(w));
  // Every row is checked before anything is written.
  std::vector<WellRecord> wells;
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const Row& row = table.rows[i];
    if (row.size() > setters.size()) {
      PrintError(Where(csv, table.lines[i], std::to_string(setters.size() + 1)) + "more cells than the header has");
      return kFailed;
    }
    WellRecord well;
    for (std::size_t j = 0; j < row.size(); ++j)
      if (table.header[j] == "WellID")
        if (const auto found = byID.find(row[j]); found != byID.end()) well = found->second;
    for (std::size_t j = 0; j < row.size(); ++j)
      if (!setters[j](well, row[j])) {
        PrintError(Where(csv, table.lines[i], table.header[j]) + "\"" + row[j] + "\" is not " +
                   Expected(table.header[j]));
        return kFailed;
      }
    if (well.WellID.empty()) {
      PrintError(Where(csv, table.lines[i], "WellID") + "the well ID is empty");
      return kFailed;
    }
    wells.push_back(well);
  }
  ProgressBar progress("wells import", wells.size(), "wells");
  for (std::size_t i = 0; i < wells.size(); ++i) {
    progress.Set(i);
    if (!data->SaveWells(project, std::vector<WellRecord>{wells[i]})) {
      progress.Finish();
      PrintFailure(Where(csv, table.lines[i], "WellID") + "saving well " + wells[i].WellID + " failed; " +
                 (i == 0 ? std::string("nothing was imported")
                         : std::to_string(i) + " well(s) of the lines before it were saved"));
      return kFailed;
    }
  }
  progress.Set(wells.size());
  progress.Finish();
  std::printf("imported %zu well(s) into project %s\n", wells.size(), project.c_str());
  return kOk;
}

// ---- wells list ----

int WellsList(const std::vector<std::string>& args) {
  const std::string &file = args[0], &project = args[1];
  if (!CheckProjectFile(file)) return kFailed;
  auto factory = MakeFactory(ProjectConnection(file), project);
  // A mistyped project is said, not listed as a project without wells.
  if (!CheckProjectName(*factory, file, project)) return kFailed;
  auto data = Create<IBasicWellData>(*factory, "IBasicWellData");
  auto groups = Create<IWellGroupData>(*factory, "IWellGroupData");
  std::vector<WellRecord> wells;
  if (!data->LoadAllWells(project.c_str(), wells)) {
    PrintFailure("cannot read the wells of project " + project);
    return kFailed;
  }
  // Each group's members, read once; a list is printed only when all of it was read.
  std::vector<WellGroupRecord> projectGroups;
  if (!groups->LoadProjectGroups(project.c_str(), projectGroups)) {
    PrintFailure("cannot read the well groups of project " + project);
    return kFailed;
  }
  std::vector<std::vector<std::string>> members(projectGroups.size());
  for (std::size_t g = 0; g < projectGroups.size(); ++g)
    if (!data->GetGroupWellIDs(project.c_str(), projectGroups[g].GroupID.c_str(), members[g])) {
      PrintFailure("cannot read the members of well group " + projectGroups[g].GroupID);
      return kFailed;
    }
  std::printf("%-12s %-16s %-8s %14s %14s %4s %6s %9s %9s %9s  %s\n", "WellID", "WellName", "WellType", "Well_SN",
              "Well_EW", "Flag", "Symbol", "Kb", "Ekb", "WellDepth", "groups");
  for (const auto& w : wells) {
    std::string memberOf;
    for (std::size_t g = 0; g < projectGroups.size(); ++g)
      if (std::binary_search(members[g].begin(), members[g].end(), w.WellID))
        memberOf += (memberOf.empty() ? "" : ", ") +
                    (projectGroups[g].GroupName.empty() ? projectGroups[g].GroupID : projectGroups[g].GroupName);
    std::printf("%-12s %-16s %-8s %14.2f %14.2f %4c %6d %9.2f %9.2f %9.2f  %s\n", w.WellID.c_str(),
                w.WellName.c_str(), w.WellType.c_str(), w.Well_SN, w.Well_EW, w.WellFlag ? w.WellFlag : ' ',
                w.WellSymbol, w.Kb, w.Ekb, w.WellDepth, memberOf.c_str());
  }
  std::printf("%zu well(s)\n", wells.size());
  return kOk;
}

// ---- import <table> ----

// The type text the import gives a column: "double", "int" or "text".
std::optional<std::string> TypeText(schema::Type type) {
  switch (type) {
    case schema::Type::Double: return "double";
    case schema::Type::Int: return "int";
    case schema::Type::Text:
    case schema::Type::Date: return "text";
    default: return std::nullopt;
  }
}

// A date as the project files store and compare them: "Y-M-D" with an optional
// "H:M[:S]", numbers unpadded or padded, each within its range.
bool IsDate(const std::string& cell) {
  int y = 0, mo = 0, d = 0, h = 0, mi = 0, sec = 0, used = 0;
  const int n = std::sscanf(cell.c_str(), "%4d-%2d-%2d%n %2d:%2d%n:%2d%n", &y, &mo, &d, &used, &h, &mi, &used, &sec,
                            &used);
  if (n < 3 || static_cast<std::size_t>(used) != cell.size()) return false;
  static const int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
  return y >= 1 && mo >= 1 && mo <= 12 && d >= 1 && d <= (mo == 2 && !leap ? 28 : kDays[mo - 1]) && h >= 0 &&
         h < 24 && mi >= 0 && mi < 60 && sec >= 0 && sec < 60;
}

int ImportTable(const std::vector<std::string>& args) {
  const std::string &file = args[0], &tableName = args[1], &csv = args[2];
  if (!CheckProjectFile(file, Access::Write)) return kFailed;
  const schema::Table* target = schema::Builtin().FindTable(tableName);
  if (!target) {
    PrintError("no table " + tableName + " in the project schema");
    return kFailed;
  }
  Table table;
  std::string error;
  if (!csv::ReadFile(csv, table, error)) {
    PrintError(error);
    return kFailed;
  }
  std::vector<std::string> names, types;
  std::vector<bool> dates;
  for (std::size_t j = 0; j < table.header.size(); ++j) {
    const schema::Column* column = target->FindColumn(table.header[j]);
    const auto type = column ? TypeText(column->type) : std::nullopt;
    if (!type) {
      PrintError(Where(csv, 1, std::to_string(j + 1)) + "\"" + table.header[j] + "\" is " +
                 (column ? "a column that cannot be imported from text" : "not a column of " + target->name));
      return kFailed;
    }
    names.push_back(column->name);
    types.push_back(*type);
    dates.push_back(column->type == schema::Type::Date);
  }
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const Row& row = table.rows[i];
    if (row.size() > names.size()) {
      PrintError(Where(csv, table.lines[i], std::to_string(names.size() + 1)) + "more cells than the header has");
      return kFailed;
    }
    for (std::size_t j = 0; j < row.size(); ++j) {
      double value = 0;
      if (row[j].empty() || (dates[j] ? IsDate(row[j]) : types[j] == "text" || Number(row[j], value))) continue;
      PrintError(Where(csv, table.lines[i], names[j]) + "\"" + row[j] + "\" is not " +
                 (dates[j] ? "a date (YYYY-MM-DD or YYYY-MM-DD HH:MM:SS)" : "a number"));
      return kFailed;
    }
  }
  auto factory = MakeFactory(ProjectConnection(file));
  auto oper = Create<IBasicDataOper>(*factory, "IBasicDataOper");
  if (!oper->ImportRows(target->name.c_str(), names, types, table.rows)) {
    PrintFailure("importing into " + target->name + " failed; nothing was imported");
    return kFailed;
  }
  std::printf("imported %zu row(s) into %s\n", table.rows.size(), target->name.c_str());
  return kOk;
}

// ---- demo ----

bool DemoWells(DemoContext& c) {
  auto wells = Create<IBasicWellData>(*c.factory, "IBasicWellData");
  auto groups = Create<IWellGroupData>(*c.factory, "IWellGroupData");
  if (!wells || !groups) return false;
  const char* project = c.project.c_str();
  const std::vector<WellGroupRecord> policies = {
      {"G-D1", "D-1 wells (by ID)", 0, "D-1", ""},
      {"G-N", "North wells (by name)", 1, "", "North"},
      {"G-M", "Hand-picked", -1, "", ""},
  };
  if (!groups->SaveGroups(project, policies, {})) return false;
  for (const auto& g : policies)
    std::printf("group %-5s %-22s policy %2d  %s\n", g.GroupID.c_str(), g.GroupName.c_str(), g.GroupPolicy,
                g.GroupPolicy < 0    ? "(members added by hand)"
                : g.GroupPolicy == 0 ? ("(well IDs containing \"" + g.WellIDPolicy + "\")").c_str()
                                     : ("(well names containing \"" + g.WellNamePolicy + "\")").c_str());
  std::vector<WellRecord> saved;
  auto add = [&](const char* id, const char* name, double sn, double ew, double kb, double depth) {
    WellRecord w;
    w.WellID = id;
    w.WellName = name;
    w.WellType = "oil";
    w.Well_SN = sn;
    w.Well_EW = ew;
    w.Kb = kb;
    w.Ekb = kb - 5;
    w.WellDepth = depth;
    saved.push_back(w);
  };
  add("D-101", "North 1", 4305000, 20505000, 1210, 3200);
  add("D-102", "South 2", 4302000, 20512000, 1195, 3350);
  add("D-201", "North 3", 4316000, 20508000, 1222, 3100);
  add("X-7", "", 4311000, 20515000, 1201, 2950);
  if (!wells->SaveWells(project, saved)) return false;
  if (!wells->AddWellToGroup("G-M", "X-7")) return false;
  std::printf("saved %zu wells; SaveWell joined them to groups by policy:\n", saved.size());
  for (const auto& g : policies) {
    std::vector<std::string> names;
    if (!wells->GetGroupWellDisplayNames(project, g.GroupID.c_str(), names)) return false;
    std::string list;
    for (const auto& n : names) list += (list.empty() ? "" : ", ") + n;
    std::printf("  %-22s %s\n", g.GroupName.c_str(), list.empty() ? "(none)" : list.c_str());
  }
  std::printf("wells in project %s: %d\n", project, wells->GetProjectWellCount(project));
  return true;
}

const CommandRegistration kWellsImport{Command{
    "wells import", "<file> <project> <csv>",
    "save the wells of a CSV file (header: WellID, WellName, WellType, Well_SN, Well_EW, WellFlag, WellSymbol, "
    "Kb, Ekb, WellDepth) into a project; groups take them in by their naming policy",
    &WellsImport, 3, 3}};
const CommandRegistration kWellsList{Command{"wells list", "<file> <project>",
                                             "list the wells of a project with their groups", &WellsList, 2, 2}};
const CommandRegistration kImport{Command{
    "import", "<file> <table> <csv>",
    "append the rows of a CSV file to a table (header: column names; types from the schema), all or nothing",
    &ImportTable, 3, 3}};
const DemoRegistration kDemo{DemoStep{20, "wells and groups: membership by naming policy", &DemoWells}};

}  // namespace
}  // namespace petrodb::cli
