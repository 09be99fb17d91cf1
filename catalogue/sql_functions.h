#pragma once
// The SQL functions the catalogue view and the searches rely on. They are added to
// every connection the process opens, and where SQLite has a built-in function of
// the same name (floor, log, pow, round ...) ours takes its place, because the view
// was written against these rules:
//   - a NULL argument gives NULL; any other argument is read as a double;
//   - an error that the mathematics library records (errno) becomes an SQL error
//     carrying the library's message;
//   - a result that is not a number gives NULL.
struct sqlite3;

namespace orvane::sql {

// Arranges, once per process and safely from any thread, that every connection
// opened from now on has the functions. Returns an SQLite result code.
int registerSqlFunctions();

// Adds the functions to one open connection. Returns an SQLite result code.
int addSqlFunctions(sqlite3* db);

}  // namespace orvane::sql
