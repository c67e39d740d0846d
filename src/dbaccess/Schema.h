#pragma once
// The tables and columns of a project database, described once in the text
// sources under schema/ and rendered for each engine.
//
// Source format, one declaration a line ('#' starts a comment):
//   table <name>                    then its columns, indented: <column> <type> [now]
//                                   ("now": a date column a new row fills with the current time)
//   view <alias> of <table>         a second name for a table
//   view <name>                     a view with a select body: its columns, indented
//                                   (<column> <type>), then the select text, indented,
//                                   beginning with "select"; the columns name the view's
//                                   columns in the order the select gives them
//   alias <table>.<alias> = <column>  a second name for a column (generated column)
//   index <table> <col>[,<col>...]
// Types: text, double, int, date, doubles (an array of doubles), autonumber;
// also char (text), float (double), long (int). A table declared again gains the
// columns it does not have yet.
#include <string>
#include <string_view>
#include <vector>

namespace petrodb::schema {

enum class Type { Text, Double, Int, Date, DoubleArray, AutoNumber };

struct Column {
  std::string name;
  Type type;
  bool defaultNow = false;  // a date column that a new row fills with the current local time
};

struct ColumnAlias {
  std::string alias, column;
};

struct Table {
  std::string name;
  std::vector<Column> columns;
  std::vector<ColumnAlias> aliases;
  const Column* FindColumn(std::string_view name) const;  // ignores case
};

struct View {
  std::string name, table;  // `table`: the table a second name stands for; empty for a select body
  std::string body;         // the select text of a view with a body
  Table shape;              // the columns of a view with a body (named as the view)
};

struct Index {
  std::string table;
  std::vector<std::string> columns;
};

struct Schema {
  std::vector<Table> tables;
  std::vector<View> views;
  std::vector<Index> indexes;
  // A table, or the columns of a view with a select body; ignores case.
  const Table* FindTable(std::string_view name) const;
};

// Throws std::runtime_error naming the line of the first error.
Schema Parse(std::string_view text);
// The schema shipped with this build.
const Schema& Builtin();
// Drops the compatibility aliases (second names of tables and alias columns);
// views with a select body stay.
Schema WithoutAliases(Schema schema);

// One statement per line-separated block, each ending with ";".
std::vector<std::string> RenderSqlite(const Schema& schema);
std::vector<std::string> RenderPostgres(const Schema& schema);

// PostgreSQL keeps system columns under the names xmin, xmax, cmin, cmax, ctid
// and tableoid in every table; a column of such a name (any case; b_aoi_data's
// Xmin, Xmax) is declared quoted, spelt with only its first letter in upper case
// ("\"Xmin\""), so the table can be made at all. Statements on the server spell
// it the same way. Any other name comes back unchanged.
bool IsPostgresSystemColumn(std::string_view name);
std::string PostgresColumnName(const std::string& name);

// Writes a new project file (replacing `path`): 64 KB pages, rollback journal
// (a single file to copy), every table of the schema.
bool CreateSqliteFile(const Schema& schema, const std::string& path, std::string& error);

}  // namespace petrodb::schema
