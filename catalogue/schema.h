#pragma once
// The catalogue database: the table of orbit records with its time-stamp trigger,
// the indexes, the view e_elements with six calculated columns, and the table of
// five parameters that ties the records to the updates.
#include <array>
#include <string_view>

namespace orvane {

struct CatalogueDb;

// Statement 1: table `elements` and trigger `update_elements_timeStamp`.
extern const std::string_view kElementsStatement;
// Statement 2: every index of `elements`.
extern const std::string_view kIndexesStatement;
// Statement 3: view `e_elements`; the start-up migration runs it again on its own.
extern const std::string_view kViewStatement;
// Statement 4: table `parameters` with its five rows.
extern const std::string_view kParametersStatement;

// The four statements in the order a new catalogue is made with them.
std::array<std::string_view, 4> schemaStatements();

// Executes the four statements in order on an open connection, each as one
// execute. All four are tried; the result is the first failing code, or SQLITE_OK.
int createCatalogueSchema(CatalogueDb& db);

// Opens the database file (SQLite makes it when missing), creates the schema in
// it and closes it again.
int createCatalogue(std::string_view databasePath);

}  // namespace orvane
