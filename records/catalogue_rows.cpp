#include "records/catalogue_rows.h"

#include <sqlite3.h>

#include <vector>

#include "catalogue/column_tables.h"

namespace orvane {

void recordFromRow(std::span<const ColumnProperty> columns, OrbitRecord& record) {
    for (std::size_t k = 0; k < columns.size() && k < kElementColumns.size(); ++k) {
        Field field{};
        if (!fieldByName(kElementColumns[k].name, field)) continue;
        record.set(field, sql::getText(columns[k], kElementColumns[k].width));
    }
}

int loadCatalogueRecords(std::string_view databasePath, std::string_view extraClause, RecordArray& records) {
    records.reset(0);
    ColumnTables tables = buildColumnTables();
    CatalogueDb db;
    if (sql::open(databasePath, db) != SQLITE_OK) {
        sql::close(db);
        return db.lastError;
    }
    Statement statement;
    const int code = sql::prepareSelect(db, "e_elements", tables.allColumns, statement, extraClause);
    std::vector<OrbitRecord> rows;
    bool done = false;
    while (code == SQLITE_OK) {
        sql::nextRow(statement, tables.allColumns, done);
        if (done) break;
        rows.emplace_back();
        recordFromRow(tables.allColumns, rows.back());
    }
    sql::finalize(statement);
    sql::close(db);
    records.records = std::move(rows);
    records.count = records.records.size();
    return code;
}

}  // namespace orvane
