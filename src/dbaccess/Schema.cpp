#include "dbaccess/Schema.h"

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <sstream>
#include <stdexcept>

#include "dbaccess/SqlText.h"

namespace petrodb::schema {

extern const char* const kSchemaText;

namespace {

std::vector<std::string> Words(const std::string& line) {
  std::istringstream in(line);
  std::vector<std::string> words;
  for (std::string w; in >> w;) words.push_back(w);
  return words;
}

Type ParseType(const std::string& word, int line) {
  const std::string w = sql::AsciiLower(word);
  if (w == "text" || w == "char") return Type::Text;
  if (w == "double" || w == "float") return Type::Double;
  if (w == "int" || w == "long") return Type::Int;
  if (w == "date") return Type::Date;
  if (w == "doubles") return Type::DoubleArray;
  if (w == "autonumber") return Type::AutoNumber;
  throw std::runtime_error("schema line " + std::to_string(line) + ": unknown type \"" + word + "\"");
}

[[noreturn]] void Fail(int line, const std::string& what) {
  throw std::runtime_error("schema line " + std::to_string(line) + ": " + what);
}

Table& TableNamed(Schema& s, const std::string& name) {
  for (auto& t : s.tables)
    if (sql::EqualsIgnoreCase(t.name, name)) return t;
  s.tables.push_back(Table{name, {}, {}});
  return s.tables.back();
}

std::string SqliteType(Type t) {
  switch (t) {
    case Type::Text: return "TEXT COLLATE NOCASE";
    case Type::Double: return "REAL";
    case Type::Int: return "INTEGER";
    case Type::Date: return "DATETEXT";  // ISO text; the type name marks date columns
    case Type::DoubleArray: return "BLOB";
    case Type::AutoNumber: return "INTEGER PRIMARY KEY AUTOINCREMENT";
  }
  return "TEXT";
}

std::string PostgresType(Type t) {
  switch (t) {
    case Type::Text: return "citext";
    case Type::Double: return "double precision";
    case Type::Int: return "integer";
    case Type::Date: return "timestamp(0)";
    case Type::DoubleArray: return "bytea";
    case Type::AutoNumber: return "serial primary key";
  }
  return "citext";
}

std::string IndexName(const Index& index) {
  std::string name = "ix_" + index.table;
  for (const auto& c : index.columns) name += "_" + c;
  return sql::AsciiLower(name);
}

// "create view v as select * from t;", or, for a view with a body,
// "create view v (c1, c2, ...) as <select>;" (both engines take the column list).
template <class NameFn>
std::string ViewDdl(const View& v, NameFn columnName) {
  if (v.body.empty()) return "create view " + v.name + " as select * from " + v.table + ";";
  std::string cols;
  for (const auto& c : v.shape.columns) cols += (cols.empty() ? "" : ", ") + columnName(c.name);
  return "create view " + v.name + " (" + cols + ") as\n  " + v.body + ";";
}

}  // namespace

const Column* Table::FindColumn(std::string_view name) const {
  for (const auto& c : columns)
    if (sql::EqualsIgnoreCase(c.name, name)) return &c;
  return nullptr;
}

const Table* Schema::FindTable(std::string_view name) const {
  for (const auto& t : tables)
    if (sql::EqualsIgnoreCase(t.name, name)) return &t;
  for (const auto& v : views)
    if (!v.body.empty() && sql::EqualsIgnoreCase(v.name, name)) return &v.shape;
  return nullptr;
}

Schema Parse(std::string_view text) {
  Schema schema;
  std::istringstream in{std::string(text)};
  std::string line;
  int number = 0;
  Table* current = nullptr;
  std::size_t bodyView = 0;  // 1 + the index of the view with a body being read; 0 for none
  while (std::getline(in, line)) {
    ++number;
    if (const auto hash = line.find('#'); hash != std::string::npos) line.resize(hash);
    const auto words = Words(line);
    if (words.empty()) continue;
    const bool indented = line[0] == ' ' || line[0] == '\t';
    if (indented && bodyView) {
      View& v = schema.views[bodyView - 1];
      if (v.body.empty() && sql::AsciiLower(words[0]) != "select") {
        if (words.size() != 2) Fail(number, "expected \"<column> <type>\" or the select text");
        if (v.shape.FindColumn(words[0])) Fail(number, "column " + words[0] + " declared twice");
        v.shape.columns.push_back(Column{words[0], ParseType(words[1], number)});
        continue;
      }
      const auto first = line.find_first_not_of(" \t");
      const auto last = line.find_last_not_of(" \t\r");
      v.body += (v.body.empty() ? "" : "\n  ") + line.substr(first, last - first + 1);
      continue;
    }
    bodyView = 0;
    if (indented) {
      if (!current) Fail(number, "a column outside a table");
      if (words.size() != 2 && words.size() != 3) Fail(number, "expected \"<column> <type> [now]\"");
      const Type type = ParseType(words[1], number);
      const bool defaultNow = words.size() == 3;
      if (defaultNow && (type != Type::Date || sql::AsciiLower(words[2]) != "now"))
        Fail(number, "only a date column can take \"now\"");
      if (const Column* existing = current->FindColumn(words[0])) {
        if (existing->type != type) Fail(number, "column " + words[0] + " declared again with another type");
        continue;
      }
      current->columns.push_back(Column{words[0], type, defaultNow});
      continue;
    }
    current = nullptr;
    const std::string keyword = sql::AsciiLower(words[0]);
    if (keyword == "table" && words.size() == 2) {
      current = &TableNamed(schema, words[1]);
    } else if (keyword == "view" && words.size() == 4 && sql::AsciiLower(words[2]) == "of") {
      schema.views.push_back(View{words[1], words[3], {}, {}});
    } else if (keyword == "view" && words.size() == 2) {
      schema.views.push_back(View{words[1], {}, {}, Table{words[1], {}, {}}});
      bodyView = schema.views.size();
    } else if (keyword == "alias" && words.size() == 4 && words[2] == "=") {
      const auto dot = words[1].find('.');
      if (dot == std::string::npos) Fail(number, "expected <table>.<alias>");
      Table& t = TableNamed(schema, words[1].substr(0, dot));
      t.aliases.push_back(ColumnAlias{words[1].substr(dot + 1), words[3]});
    } else if (keyword == "index" && words.size() == 3) {
      Index index{words[1], {}};
      std::istringstream cols(words[2]);
      for (std::string c; std::getline(cols, c, ',');)
        if (!c.empty()) index.columns.push_back(c);
      schema.indexes.push_back(index);
    } else {
      Fail(number, "cannot read \"" + line + "\"");
    }
  }
  for (const auto& t : schema.tables) {
    if (t.columns.empty()) throw std::runtime_error("schema: table " + t.name + " has no columns");
    for (const auto& a : t.aliases)
      if (!t.FindColumn(a.column))
        throw std::runtime_error("schema: alias " + t.name + "." + a.alias + " names no column " + a.column);
  }
  for (const auto& v : schema.views) {
    if (v.table.empty() && (v.body.empty() || v.shape.columns.empty()))
      throw std::runtime_error("schema: view " + v.name + " needs its columns and a select text");
    if (!v.table.empty() && !schema.FindTable(v.table))
      throw std::runtime_error("schema: view " + v.name + " of unknown table " + v.table);
  }
  for (const auto& i : schema.indexes)
    if (!schema.FindTable(i.table)) throw std::runtime_error("schema: index on unknown table " + i.table);
  return schema;
}

const Schema& Builtin() {
  static const Schema schema = Parse(kSchemaText);
  return schema;
}

Schema WithoutAliases(Schema schema) {
  std::erase_if(schema.views, [](const View& v) { return v.body.empty(); });
  for (auto& t : schema.tables) t.aliases.clear();
  return schema;
}

std::vector<std::string> RenderSqlite(const Schema& schema) {
  std::vector<std::string> out;
  for (const auto& t : schema.tables) {
    std::string ddl = "create table " + t.name + " (";
    for (std::size_t i = 0; i < t.columns.size(); ++i) {
      ddl += (i ? ", " : "") + t.columns[i].name + " " + SqliteType(t.columns[i].type);
      if (t.columns[i].defaultNow) ddl += " DEFAULT (strftime('%Y-%m-%d %H:%M:%S','now','localtime'))";
    }
    for (const auto& a : t.aliases) {
      const Column* source = t.FindColumn(a.column);
      ddl += ", " + a.alias + " " + SqliteType(source->type) + " generated always as (" + a.column + ") virtual";
    }
    out.push_back(ddl + ");");
  }
  for (const auto& i : schema.indexes) {
    std::string cols;
    for (const auto& c : i.columns) cols += (cols.empty() ? "" : ", ") + c;
    out.push_back("create index " + IndexName(i) + " on " + i.table + " (" + cols + ");");
  }
  for (const auto& v : schema.views) out.push_back(ViewDdl(v, [](const std::string& c) { return c; }));
  return out;
}

bool IsPostgresSystemColumn(std::string_view name) {
  static constexpr std::string_view kSystem[] = {"xmin", "xmax", "cmin", "cmax", "ctid", "tableoid"};
  for (auto s : kSystem)
    if (sql::EqualsIgnoreCase(name, s)) return true;
  return false;
}

std::string PostgresColumnName(const std::string& name) {
  if (!IsPostgresSystemColumn(name)) return name;
  std::string spelt = sql::AsciiLower(name);
  spelt[0] = static_cast<char>(spelt[0] - 'a' + 'A');
  return "\"" + spelt + "\"";
}

std::vector<std::string> RenderPostgres(const Schema& schema) {
  std::vector<std::string> out;
  out.push_back("create extension if not exists citext;");
  for (const auto& t : schema.tables) {
    std::string ddl = "create table " + t.name + " (";
    for (std::size_t i = 0; i < t.columns.size(); ++i) {
      ddl += (i ? ", " : "") + PostgresColumnName(t.columns[i].name) + " " + PostgresType(t.columns[i].type);
      if (t.columns[i].defaultNow) ddl += " DEFAULT localtimestamp(0)";
    }
    for (const auto& a : t.aliases) {
      const Column* source = t.FindColumn(a.column);
      ddl += ", " + a.alias + " " + PostgresType(source->type) + " generated always as (" + a.column + ") stored";
    }
    out.push_back(ddl + ");");
    for (const auto& c : t.columns)
      if (c.type == Type::DoubleArray)  // doubles barely compress: store them out of line, uncompressed
        out.push_back("alter table " + t.name + " alter column " + c.name + " set storage external;");
  }
  for (const auto& i : schema.indexes) {
    std::string cols;
    for (const auto& c : i.columns) cols += (cols.empty() ? "" : ", ") + c;
    out.push_back("create index " + IndexName(i) + " on " + i.table + " (" + cols + ");");
  }
  for (const auto& v : schema.views) out.push_back(ViewDdl(v, PostgresColumnName));
  return out;
}

bool CreateSqliteFile(const Schema& schema, const std::string& path, std::string& error) {
  const std::string temporary = path + ".partial";
  std::error_code ec;
  std::filesystem::remove(temporary, ec);
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(temporary.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
    error = db ? sqlite3_errmsg(db) : "out of memory";
    sqlite3_close(db);
    return false;
  }
  std::string script = "pragma page_size=65536; pragma journal_mode=delete; begin;";
  for (const auto& statement : RenderSqlite(schema)) script += statement;
  script += "commit;";
  char* message = nullptr;
  const bool ok = sqlite3_exec(db, script.c_str(), nullptr, nullptr, &message) == SQLITE_OK;
  if (!ok) error = message ? message : "cannot create the schema";
  sqlite3_free(message);
  sqlite3_close(db);
  if (ok) std::filesystem::rename(temporary, path, ec);
  if (ok && ec) error = ec.message();
  if (!ok || ec) std::filesystem::remove(temporary, ec);
  return ok && error.empty();
}

}  // namespace petrodb::schema
