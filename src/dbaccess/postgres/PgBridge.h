#pragma once
// The server statements of the project catalogue, carried onto PostgreSQL.
#include <optional>
#include <string>

#include "dbaccess/Backend.h"

namespace petrodb::db::pg {

// The statement PostgreSQL runs for a server statement: the sysdatabases lookup
// reads pg_database (names compare ignoring case, as on SQL Server); for the
// RESTORE statement, the text "create database <name>; \connect <name>; \i
// '<backup>'" describes in the trace what the backend does for it (it is never
// run as a statement: see RestoreFor). Any other text keeps its meaning; date
// literals need no rewriting, as the server reads them into date columns itself.
std::string RewriteServerForPostgres(const std::string& statement);

// The catalogue's statement "RESTORE FILELISTONLY FROM DISK = '…' RESTORE
// DATABASE <name> FROM DISK = '<backup>' WITH MOVE …" as a request; nullopt for
// every other text. The database name is lower case, as the server folds it.
std::optional<RestoreRequest> RestoreFor(const std::string& statement);

// A column named like a PostgreSQL system column as the schema declares it
// (schema::PostgresColumnName); any other name unchanged.
std::string ColumnIdentifier(const std::string& name);

// Quotes every unquoted mention of such a column outside literals, so
// statements reach the table's column, not the system column.
std::string QuoteSystemColumnNames(const std::string& statement);

}  // namespace petrodb::db::pg
