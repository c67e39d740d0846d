#pragma once
// The server statements of the project catalogue, carried onto PostgreSQL.
#include <string>

namespace petrodb::db::pg {

// A project database to create from a backup script: what the catalogue's
// "RESTORE ... FROM DISK = '<backup>'" means here.
struct RestorePlan {
  std::string database;  // as the server stores it (unquoted names fold to lower case)
  std::string backup;    // path of the script to load
};

// The statement PostgreSQL runs for a server statement: the sysdatabases lookup
// reads pg_database (names compare ignoring case, as on SQL Server); the
// RESTORE statement becomes "create database <name>; \connect <name>; \i '<backup>'".
// Any other text keeps its meaning; date literals in the module's unpadded form
// are padded as dates are stored.
std::string RewriteServerForPostgres(const std::string& statement);

// A column named like a PostgreSQL system column (xmin, xmax, cmin, cmax, ctid,
// tableoid; any case) as the schema declares it: quoted, first letter upper
// ("\"Xmin\""). Any other name comes back unchanged.
std::string ColumnIdentifier(const std::string& name);

// Quotes every unquoted mention of such a column outside literals, so
// statements reach the table's column, not the system column.
std::string QuoteSystemColumnNames(const std::string& statement);

// True (plan filled) when `sent` is a rewritten RESTORE.
bool ParseRestore(const std::string& sent, RestorePlan& plan);

}  // namespace petrodb::db::pg
