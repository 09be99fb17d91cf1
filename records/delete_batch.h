#pragma once
// The Delete command's batch: the rows selected in the result list are removed from
// the catalogue in one transaction, the catalogue's own records as well (a later
// update brings those back); then the list and the statistics follow.
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "records/insert_batch.h"
#include "records/search_run.h"

namespace orvane {

struct DeleteBatchResult {
    BatchStatus status = BatchStatus::Committed;
    std::size_t deleted = 0;  // statements that SQLite accepted
    std::size_t skipped = 0;  // statements that it rejected
    int sqliteCode = 0;
};

// "delete from elements where id = '12'".
std::string deleteStatement(long long id);

// `selectedRows` are rows of the session's result array; others are ignored.
DeleteBatchResult deleteThread(std::string_view databasePath, std::span<const std::size_t> selectedRows,
                               const SearchForm& form, SearchSession& session, SearchView& view,
                               const SearchTexts& texts, const BatchClock& clock = approximateClockNow);

}  // namespace orvane
