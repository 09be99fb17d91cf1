#include "records/edit_batch.h"

#include <sqlite3.h>

#include <cstdlib>
#include <string>

#include "base/fixed_text.h"
#include "catalogue/brief_info.h"
#include "catalogue/sql_layer.h"
#include "records/delete_batch.h"
#include "records/search_estimate.h"
#include "records/update_statement.h"

namespace orvane {
namespace {

enum class Step { Done, Rejected, TransactionLost };

Step run(CatalogueDb& db, const std::string& statement) {
    if (sql::execute(db, statement) == SQLITE_OK) return Step::Done;
    return sqlite3_get_autocommit(db.handle) != 0 ? Step::TransactionLost : Step::Rejected;
}

// A catalogue record becomes a new record of the user: inserted without its id, it
// takes the next free number above the boundary. The old row goes only once the new
// one stands, so a rejected record is never lost.
Step replaceCatalogueRecord(CatalogueDb& db, const OrbitRecord& record, long long id, std::string& statement) {
    buildInsertStatement(record, 0, InsertMode{}, statement);
    const Step inserted = run(db, statement);
    if (inserted != Step::Done) return inserted;
    return run(db, deleteStatement(id));
}

}  // namespace

long long catalogueBoundary(std::string_view databasePath, ColumnTables& tables) {
    const CatalogueParameters parameters = readParameters(databasePath, tables);
    const std::string text(trimBoth(parameters.values[3]));
    return std::strtoll(text.c_str(), nullptr, 10);
}

EditBatchResult editThread(std::string_view databasePath, std::span<const OrbitRecord> batch,
                           const SearchForm& form, SearchSession& session, SearchView& view,
                           const SearchTexts& texts, const BatchClock& clock) {
    EditBatchResult result;
    view.setCatalogueCommandsEnabled(false);
    view.setBusy(true);
    const long long boundary = catalogueBoundary(databasePath, session.tables);

    CatalogueDb db;
    if (!beginChangeBatch(databasePath, db, result.status, result.sqliteCode, view, texts)) return result;

    view.setStatus(texts.editingRecords);
    view.setRemainingTime(texts.records.remainingUnknown);
    view.showProgress(static_cast<long long>(batch.size()));
    RemainingTimeEstimate estimate(batch.size(), clock);
    std::string statement;
    for (std::size_t k = 0; k < batch.size(); ++k) {
        const long long id = recordId(batch[k]);
        Step step;
        if (id <= boundary) {
            step = replaceCatalogueRecord(db, batch[k], id, statement);
            if (step == Step::Done) ++result.replaced;
        } else {
            buildUpdateStatement(batch[k], id, statement);
            step = run(db, statement);
            if (step == Step::Done) ++result.updated;
        }
        if (step == Step::TransactionLost) {
            result.status = BatchStatus::RolledBack;
            result.sqliteCode = db.lastError;
            break;
        }
        if (step == Step::Rejected) ++result.skipped;
        view.stepProgress();
        estimate.afterItem(k + 1, view, texts.records);
    }

    if (!finishChangeBatch(db, result.status, result.sqliteCode, databasePath, form, session, view, texts, clock)) {
        result.updated = 0;
        result.replaced = 0;
    }
    return result;
}

}  // namespace orvane
