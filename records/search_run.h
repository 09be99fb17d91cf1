#pragma once
// The search: the forms become a clause, the hits are counted, read from the view
// e_elements into the result array and handed to the list. searchThread is the
// body of the Search command's own thread; searchDirect is the same body for
// workers that refresh the list after they changed the catalogue.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/column_tables.h"
#include "catalogue/sql_layer.h"
#include "records/batch_view.h"
#include "records/insert_batch.h"
#include "records/search_columns.h"
#include "records/search_form.h"
#include "records/search_result.h"
#include "records/search_texts.h"

namespace orvane {

// What the search shows besides what every batch shows. The main window forwards
// each call to its own thread without waiting; tests record the calls.
class SearchView : public BatchView {
public:
    // The busy cursor while a search runs on its thread.
    virtual void setBusy(bool busy) = 0;
    // A message box with OK and the stop icon.
    virtual void showError(std::string_view title, std::string_view text) = 0;
    // The list takes the new columns and rows of the session; the pop-up menu of the
    // columns is rebuilt with one checked item per column. The row count is set last.
    virtual void showResult(const std::vector<ColumnSlot>& columns, const SearchResult& result) = 0;
    // "Search Results: 3 Matches found" or "Search Results: No Matches found".
    virtual void setResultText(std::string_view text) = 0;
    // The list emptied, and the commands that need a selected row.
    virtual void clearList() = 0;
    virtual void setSelectionCommandsEnabled(bool enabled) = 0;
    // After a refresh from a worker: the main window active, the focus on the list.
    virtual void focusList() = 0;
};

// The last search and what it found. A search reads into an array of its own and
// replaces `result` and `columns` only just before it calls showResult, so the list
// can read the previous ones on the window thread until then.
struct SearchSession {
    ColumnTables tables = buildColumnTables();
    std::string queryClause;  // without its order clause; the batches count with it
    long long count = 0;      // hits of the clause when it was last counted
    bool inForce = false;     // a search filled the list
    std::vector<ColumnSlot> columns;
    SearchResult result;
};

enum class SearchStatus {
    Found,      // the list shows the hits (perhaps none: an SQL error finds nothing)
    TooLong,    // the clause is over 4000 characters; nothing changed
    NoColumns,  // no column is ticked; nothing changed
};

struct SearchOutcome {
    SearchStatus status = SearchStatus::Found;
    long long count = 0;   // hits counted
    int sqliteCode = 0;    // SQLite code of the first failure, 0 when none
};

SearchOutcome searchDirect(std::string_view databasePath, const SearchForm& form, SearchSession& session,
                           SearchView& view, const SearchTexts& texts,
                           const BatchClock& clock = approximateClockNow);

SearchOutcome searchThread(std::string_view databasePath, const SearchForm& form, SearchSession& session,
                           SearchView& view, const SearchTexts& texts,
                           const BatchClock& clock = approximateClockNow);

// "select count(*) from e_elements" with the clause; 0 when it fails.
long long countHits(std::string_view databasePath, std::string_view clause, ColumnTables& tables);

// What follows a batch that changed the catalogue: the hits of the search in force
// counted again, the statistics refreshed, and the list read again when the count
// is unchanged (or fell), emptied when it fell to zero, left when it rose.
void refreshAfterBatch(std::string_view databasePath, const SearchForm& form, SearchSession& session,
                       SearchView& view, const SearchTexts& texts, const BatchClock& clock);

// The start of an edit or delete batch: the catalogue opened and a transaction
// begun. When either fails the connection is closed, the commands are given back,
// the status says "Ready" and the answer is false, with the failure in status and
// sqliteCode.
bool beginChangeBatch(std::string_view databasePath, CatalogueDb& db, BatchStatus& status, int& sqliteCode,
                      SearchView& view, const SearchTexts& texts);

// The end of an edit or delete batch: a batch that went through is committed, one that
// failed, or whose commit failed, is rolled back; then the connection is closed, the
// search in force refreshed and the commands given back. False when rolled back.
bool finishChangeBatch(CatalogueDb& db, BatchStatus& status, int& sqliteCode, std::string_view databasePath,
                       const SearchForm& form, SearchSession& session, SearchView& view,
                       const SearchTexts& texts, const BatchClock& clock);

}  // namespace orvane
