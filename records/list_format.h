#pragma once
// The list text of orbit records (any file name that is not *.els): one record per
// line, every field from `comet` to `K2_err` and then `hinfo` as a quoted text,
// separated by ", ". It carries the whole record apart from `htimeStamp`.
#include <cstddef>
#include <string>
#include <string_view>

#include "records/orbit_record.h"

namespace orvane {

// Items of one record in the list text, and the widths they are read into.
inline constexpr std::size_t kListItemCount = 66;
inline constexpr std::size_t kListTextWidth = 70;
inline constexpr std::size_t kListInfoWidth = 5010;

// Longest line that the reader takes. A written record stays far below it (its
// longest form, every apostrophe doubled, is under 20,000 characters); a longer line
// is no record of this program.
inline constexpr std::size_t kListLineLimit = 24000;

// One record as a line, without the line end. Apostrophes are doubled; in `hinfo`
// every CR becomes "\" and every LF "n", so a CR LF line end travels as "\n".
std::string writeListLine(const OrbitRecord& record);

enum class ListReadStatus {
    Ok,
    MissingItems,  // a record has fewer than 66 items, or an item is malformed
    LineTooLong,   // a line longer than kListLineLimit
};

struct ListReadResult {
    ListReadStatus status = ListReadStatus::Ok;
    std::size_t records = 0;  // records counted (pass 1) or filled (pass 2)
    int line = 0;             // line of the fault, counted from 1
};

// Pass 1: the number of whole records of 66 list-directed items in the text.
ListReadResult countListRecords(std::string_view text);

// Pass 2: reads exactly `records.count` records into the array.
ListReadResult readListRecords(std::string_view text, RecordArray& records);

}  // namespace orvane
