#pragma once
// The batch that adds the records of an import (or of an update) to the catalogue:
// one transaction, a progress bar, an estimate of the time left that only falls,
// and the refresh of the lists at the end. It runs on a worker; the view forwards
// what it shows to the window thread.
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "records/batch_view.h"
#include "records/insert_statement.h"
#include "records/orbit_record.h"
#include "records/record_texts.h"

namespace orvane {

// Seconds by the approximate clock of all estimates: year x 31536000 + month x
// 2592000 + day x 86400 + hour x 3600 + minute x 60 + second + ms / 1000, from the
// system's UTC time.
double approximateClockNow();

using BatchClock = std::function<double()>;

// "Remaining time: 0h 1m 23s": whole hours, minutes and seconds, each with its
// suffix; a negative part shows as 0.
std::string remainingTimeText(double seconds, const RecordTexts& texts);

enum class BatchStatus {
    Committed,        // every statement ran (a failing one is skipped) and the batch is in
    OpenFailed,       // the catalogue could not be opened or the transaction begun
    RolledBack,       // SQLite gave up the transaction, or the commit failed: nothing is in
};

struct InsertBatchResult {
    BatchStatus status = BatchStatus::Committed;
    std::size_t inserted = 0;  // statements that SQLite accepted
    std::size_t skipped = 0;   // statements that it rejected
    int sqliteCode = 0;        // code of the failure that ended the batch
};

InsertBatchResult insertRecords(std::string_view databasePath, std::span<const OrbitRecord> records,
                                const InsertMode& mode, BatchView& view, const RecordTexts& texts,
                                const BatchClock& clock = approximateClockNow);

}  // namespace orvane
