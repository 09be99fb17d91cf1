#include "records/delete_batch.h"

#include <sqlite3.h>

#include "catalogue/sql_layer.h"
#include "records/search_estimate.h"
#include "records/update_statement.h"

namespace orvane {

std::string deleteStatement(long long id) {
    return "delete from elements where id = '" + std::to_string(id) + "'";
}

DeleteBatchResult deleteThread(std::string_view databasePath, std::span<const std::size_t> selectedRows,
                               const SearchForm& form, SearchSession& session, SearchView& view,
                               const SearchTexts& texts, const BatchClock& clock) {
    DeleteBatchResult result;
    view.setCatalogueCommandsEnabled(false);
    view.setBusy(true);

    CatalogueDb db;
    if (!beginChangeBatch(databasePath, db, result.status, result.sqliteCode, view, texts)) return result;

    // The batch holds the ids of the selected rows.
    RecordArray batch;
    batch.reset(selectedRows.size());
    std::size_t n = 0;
    for (const std::size_t row : selectedRows) {
        if (row >= session.result.size()) continue;
        batch.records[n++].set(Field::id, session.result.text(row, Field::id));
    }

    view.setStatus(texts.deletingRecords);
    view.setRemainingTime(texts.records.remainingUnknown);
    view.showProgress(static_cast<long long>(n));
    RemainingTimeEstimate estimate(n, clock);
    for (std::size_t k = 0; k < n; ++k) {
        if (sql::execute(db, deleteStatement(recordId(batch.records[k]))) == SQLITE_OK) {
            ++result.deleted;
        } else if (sqlite3_get_autocommit(db.handle) != 0) {
            result.status = BatchStatus::RolledBack;
            result.sqliteCode = db.lastError;
            break;
        } else {
            ++result.skipped;
        }
        view.stepProgress();
        estimate.afterItem(k + 1, view, texts.records);
    }

    batch.reset(0);
    if (!finishChangeBatch(db, result.status, result.sqliteCode, databasePath, form, session, view, texts, clock))
        result.deleted = 0;
    return result;
}

}  // namespace orvane
