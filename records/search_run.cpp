#include "records/search_run.h"

#include <sqlite3.h>

#include "catalogue/sql_layer.h"
#include "records/query_clause.h"
#include "records/search_estimate.h"

namespace orvane {
namespace {

long long countOn(CatalogueDb& db, std::string_view clause, ColumnTables& tables, int& failure) {
    Statement statement;
    bool done = true;
    if (sql::prepareSelect(db, "e_elements", tables.count, statement, clause) == SQLITE_OK) {
        sql::nextRow(statement, tables.count, done);
    }
    if (db.lastError != SQLITE_OK && failure == SQLITE_OK) failure = db.lastError;
    sql::finalize(statement);
    return done ? 0 : sql::getInt(tables.count[0]);
}

// Reads the rows of the clause into `result`, which was made for them.
void readRows(CatalogueDb& db, std::string_view clause, SearchSession& session, SearchResult& result,
              SearchView& view, const SearchTexts& texts, const BatchClock& clock, int& failure) {
    const std::size_t total = result.capacity();
    view.showProgress(static_cast<long long>(total));
    view.setStatus(texts.records.readingElements);
    view.setRemainingTime(texts.records.remainingUnknown);
    RemainingTimeEstimate estimate(total, clock);
    Statement statement;
    if (sql::prepareSelect(db, "e_elements", session.tables.allColumns, statement, clause) == SQLITE_OK) {
        bool done = false;
        while (result.size() < total) {
            sql::nextRow(statement, session.tables.allColumns, done);
            if (done) break;
            if (!result.appendRow(session.tables.allColumns)) {
                failure = SQLITE_NOMEM;
                break;
            }
            view.stepProgress();
            estimate.afterItem(result.size(), view, texts.records);
        }
    }
    if (db.lastError != SQLITE_OK && db.lastError != SQLITE_DONE && failure == SQLITE_OK) {
        failure = db.lastError;
    }
    sql::finalize(statement);
    view.hideProgress();
    view.setRemainingTime("");
}

SearchOutcome searchBody(std::string_view databasePath, const SearchForm& form, SearchSession& session,
                         SearchView& view, const SearchTexts& texts, const BatchClock& clock) {
    SearchOutcome outcome;
    const std::string clause = buildQueryClause(form);
    if (!queryClauseFits(clause)) {
        view.setStatus(texts.tooLongQuery);
        view.showError(kErrorTitle, kTooLongQuery);
        outcome.status = SearchStatus::TooLong;
        return outcome;
    }

    CatalogueDb db;
    int failure = sql::open(databasePath, db);
    const long long hits = failure == SQLITE_OK ? countOn(db, clause, session.tables, failure) : 0;
    const std::size_t rows = hits > 0 ? static_cast<std::size_t>(hits) : 0;

    std::vector<ColumnSlot> columns = buildColumnSlots(form, texts);
    if (columns.empty()) {
        sql::close(db);
        view.setStatus(texts.noColumns);
        view.showError(kErrorTitle, kNoColumnsSelected);
        outcome.status = SearchStatus::NoColumns;
        outcome.count = hits;
        outcome.sqliteCode = failure;
        return outcome;
    }

    // The list goes on showing the previous result while this one is read; it is
    // replaced (and the previous one freed) only when the new one is complete.
    SearchResult fresh;
    if (!fresh.reset(rows) && failure == SQLITE_OK) failure = SQLITE_NOMEM;
    if (fresh.capacity() > 0 && failure == SQLITE_OK) {
        readRows(db, clause + sortClause(form), session, fresh, view, texts, clock, failure);
    }
    sql::close(db);

    session.result = std::move(fresh);
    session.columns = std::move(columns);
    session.queryClause = clause;
    session.count = static_cast<long long>(session.result.size());
    session.inForce = true;
    view.showResult(session.columns, session.result);
    view.setResultText(texts.resultText(session.count));
    view.setStatus(texts.records.ready);
    outcome.count = session.count;
    outcome.sqliteCode = failure;
    return outcome;
}

}  // namespace

long long countHits(std::string_view databasePath, std::string_view clause, ColumnTables& tables) {
    CatalogueDb db;
    int failure = sql::open(databasePath, db);
    const long long hits = failure == SQLITE_OK ? countOn(db, clause, tables, failure) : 0;
    sql::close(db);
    return hits;
}

SearchOutcome searchDirect(std::string_view databasePath, const SearchForm& form, SearchSession& session,
                           SearchView& view, const SearchTexts& texts, const BatchClock& clock) {
    const SearchOutcome outcome = searchBody(databasePath, form, session, view, texts, clock);
    view.focusList();
    return outcome;
}

SearchOutcome searchThread(std::string_view databasePath, const SearchForm& form, SearchSession& session,
                           SearchView& view, const SearchTexts& texts, const BatchClock& clock) {
    view.setCatalogueCommandsEnabled(false);
    view.setBusy(true);
    const SearchOutcome outcome = searchBody(databasePath, form, session, view, texts, clock);
    view.setBusy(false);
    view.setCatalogueCommandsEnabled(true);
    return outcome;
}

void refreshAfterBatch(std::string_view databasePath, const SearchForm& form, SearchSession& session,
                       SearchView& view, const SearchTexts& texts, const BatchClock& clock) {
    const bool inForce = session.inForce && view.searchListFilledByForm();
    const long long hits = inForce ? countHits(databasePath, session.queryClause, session.tables) : 0;
    view.refreshStatistics();
    if (!inForce) return;
    if (hits == 0) {
        session.result.reset(0);
        session.count = 0;
        view.clearList();
        view.setSelectionCommandsEnabled(false);
        view.setResultText(texts.noMatches);
    } else if (hits > session.count) {
        // New hits are only noted: the list stays as the user sees it.
        session.count = hits;
    } else {
        // Also when hits fell: a list that still showed removed rows would hand their
        // ids to the next command.
        searchDirect(databasePath, form, session, view, texts, clock);
    }
}

bool beginChangeBatch(std::string_view databasePath, CatalogueDb& db, BatchStatus& status, int& sqliteCode,
                      SearchView& view, const SearchTexts& texts) {
    if (sql::open(databasePath, db) == SQLITE_OK && sql::begin(db) == SQLITE_OK) return true;
    status = BatchStatus::OpenFailed;
    sqliteCode = db.lastError;
    sql::close(db);
    view.setBusy(false);
    view.setCatalogueCommandsEnabled(true);
    view.setStatus(texts.records.ready);
    return false;
}

bool finishChangeBatch(CatalogueDb& db, BatchStatus& status, int& sqliteCode, std::string_view databasePath,
                       const SearchForm& form, SearchSession& session, SearchView& view,
                       const SearchTexts& texts, const BatchClock& clock) {
    view.hideProgress();
    view.setRemainingTime("");
    if (status == BatchStatus::Committed && sql::commit(db) != SQLITE_OK) {
        status = BatchStatus::RolledBack;
        sqliteCode = db.lastError;
    }
    const bool committed = status != BatchStatus::RolledBack;
    if (!committed) sql::rollback(db);
    sql::close(db);

    refreshAfterBatch(databasePath, form, session, view, texts, clock);
    view.setBusy(false);
    view.setCatalogueCommandsEnabled(true);
    view.setStatus(texts.records.ready);
    return committed;
}

}  // namespace orvane
