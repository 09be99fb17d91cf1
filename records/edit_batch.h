#pragma once
// The Edit command's batch: records of the catalogue are never changed in place but
// written as new records of the user (the old row then removed); the user's own
// records are updated. One transaction; then the list and the statistics follow.
#include <cstddef>
#include <span>
#include <string_view>

#include "records/insert_batch.h"
#include "records/orbit_record.h"
#include "records/search_run.h"

namespace orvane {

struct EditBatchResult {
    BatchStatus status = BatchStatus::Committed;
    std::size_t updated = 0;   // the user's records written over
    std::size_t replaced = 0;  // catalogue records turned into records of the user
    std::size_t skipped = 0;   // records whose statements SQLite rejected
    int sqliteCode = 0;        // code of the failure that ended the batch
};

// The id that divides the catalogue from the user's records: parameter 4 of the
// catalogue as a whole number, 0 when it cannot be read.
long long catalogueBoundary(std::string_view databasePath, ColumnTables& tables);

EditBatchResult editThread(std::string_view databasePath, std::span<const OrbitRecord> batch,
                           const SearchForm& form, SearchSession& session, SearchView& view,
                           const SearchTexts& texts, const BatchClock& clock = approximateClockNow);

}  // namespace orvane
