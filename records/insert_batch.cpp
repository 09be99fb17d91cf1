#include "records/insert_batch.h"

#include <sqlite3.h>

#include <chrono>
#include <cmath>
#include <ctime>

#include "catalogue/sql_layer.h"
#include "records/search_estimate.h"

namespace orvane {
namespace {

std::string clockPart(double value) {
    if (!(value > 0.0)) return "0";
    std::string text = std::to_string(static_cast<long long>(std::min(value, 99999999.0)));
    return text.substr(0, 8);
}

void finish(BatchView& view, const RecordTexts& texts) {
    view.setCatalogueCommandsEnabled(true);
    view.setStatus(texts.ready);
}

}  // namespace

double approximateClockNow() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    return (utc.tm_year + 1900) * 31536000.0 + (utc.tm_mon + 1) * 2592000.0 + utc.tm_mday * 86400.0 +
           utc.tm_hour * 3600.0 + utc.tm_min * 60.0 + utc.tm_sec + static_cast<double>(ms) / 1000.0;
}

std::string remainingTimeText(double seconds, const RecordTexts& texts) {
    const double hours = std::trunc(seconds / 3600.0);
    const double minutes = std::trunc((seconds - hours * 3600.0) / 60.0);
    const double rest = std::trunc(seconds - hours * 3600.0 - minutes * 60.0);
    return texts.remainingTime + " " + clockPart(hours) + texts.hoursSuffix + " " + clockPart(minutes) +
           texts.minutesSuffix + " " + clockPart(rest) + texts.secondsSuffix;
}

InsertBatchResult insertRecords(std::string_view databasePath, std::span<const OrbitRecord> records,
                                const InsertMode& mode, BatchView& view, const RecordTexts& texts,
                                const BatchClock& clock) {
    InsertBatchResult result;
    view.setCatalogueCommandsEnabled(false);

    CatalogueDb db;
    if (sql::open(databasePath, db) == SQLITE_OK) {
        // Every column has an index; with SQLite's small default page cache a large
        // batch spends most of its time moving index pages to and from the disk.
        sql::execute(db, "PRAGMA cache_size=-131072");
    }
    if (db.lastError != SQLITE_OK || sql::begin(db) != SQLITE_OK) {
        result.status = BatchStatus::OpenFailed;
        result.sqliteCode = db.lastError;
        sql::close(db);
        finish(view, texts);
        return result;
    }

    view.setStatus(texts.addingRecords);
    view.setRemainingTime(texts.remainingUnknown);
    view.showProgress(static_cast<long long>(records.size()));
    RemainingTimeEstimate estimate(records.size(), clock);
    std::string statement;
    for (std::size_t k = 0; k < records.size(); ++k) {
        buildInsertStatement(records[k], k, mode, statement);
        if (sql::execute(db, statement) == SQLITE_OK) {
            ++result.inserted;
        } else if (sqlite3_get_autocommit(db.handle) != 0) {
            // SQLite ended the transaction itself (disk full, I/O error): going on
            // would write the rest record by record, so the batch stops here.
            result.status = BatchStatus::RolledBack;
            result.sqliteCode = db.lastError;
            break;
        } else {
            ++result.skipped;  // a rejected statement is skipped, as it always was
        }
        view.stepProgress();
        estimate.afterItem(k + 1, view, texts);
    }

    view.hideProgress();
    view.setStatus("");
    view.setRemainingTime("");
    if (result.status == BatchStatus::Committed && sql::commit(db) != SQLITE_OK) {
        result.status = BatchStatus::RolledBack;
        result.sqliteCode = db.lastError;
    }
    if (result.status == BatchStatus::RolledBack) {
        sql::rollback(db);
        result.inserted = 0;
    }
    statement.clear();
    sql::close(db);

    if (view.searchListFilledByForm()) view.rerunSearch();
    view.refreshStatistics();
    finish(view, texts);
    return result;
}

}  // namespace orvane
