#pragma once
// The statement that puts one record into table `elements`. Every value is given as
// a quoted text and SQLite's column affinity turns numbers into numbers; a blank
// field is left out, so its column takes the table's default.
#include <cstddef>
#include <string>

#include "records/orbit_record.h"

namespace orvane {

struct InsertMode {
    // The catalogue update: records at or above `firstUserIndex` of the batch are the
    // user's own and keep their time stamps. A plain import leaves the time stamp out.
    bool catalogueUpdate = false;
    std::size_t firstUserIndex = 0;
};

// "insert or replace into elements( comet, ...) values( '1', ...)". No value can
// leave its quotes: every apostrophe of every column is doubled and each field ends
// at its first NUL. `hinfo` goes through trim(..., CR LF blank) with each "\n"
// (backslash, n) made a CR LF. A record with no value gives a statement that SQLite
// rejects.
void buildInsertStatement(const OrbitRecord& record, std::size_t index, const InsertMode& mode,
                          std::string& statement);

}  // namespace orvane
