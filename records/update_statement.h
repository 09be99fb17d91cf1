#pragma once
// The statement that writes an edited record of the user back over its row.
#include <string>

#include "records/orbit_record.h"

namespace orvane {

inline constexpr std::string_view kDefaultInfo = "No Information Available...";

// "update elements set comet = '1', name = '', ... hinfo = ... where id = '12'": every
// column of the table in order, a blank field clearing its column; `hinfo` last, its
// default text when blank; the time stamp is left to the table's trigger. `id` is
// the record's id read as a whole number, so that nothing but a number names the row.
void buildUpdateStatement(const OrbitRecord& record, long long id, std::string& statement);

// The whole number at the start of the record's `id` field (blanks before it
// allowed); 0 when it has none.
long long recordId(const OrbitRecord& record);

}  // namespace orvane
