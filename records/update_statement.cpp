#include "records/update_statement.h"

#include <cerrno>
#include <cstdlib>

#include "base/fixed_text.h"
#include "records/sql_values.h"

namespace orvane {

void buildUpdateStatement(const OrbitRecord& record, long long id, std::string& statement) {
    statement = "update elements set";
    for (const Field field : tableFields()) {
        if (field == Field::htimeStamp || field == Field::hinfo) continue;
        statement += ' ';
        statement += fieldName(field);
        statement += " = '";
        // Only the text columns were ever escaped; the numeric ones are escaped too,
        // so that an apostrophe typed into a number cannot end the quotes.
        appendDoubled(statement, trimRight(cutAtNul(record.get(field))));
        statement += "',";
    }
    const std::string_view info = trimRight(cutAtNul(record.get(Field::hinfo)));
    if (info.empty()) {
        statement += " hinfo = '";
        statement += kDefaultInfo;
        statement += '\'';
    } else {
        std::string doubled;
        appendDoubled(doubled, info);
        statement += " hinfo = trim('";
        appendWithLineEnds(statement, doubled);
        statement += "', '\r\n ')";
    }
    // The statement is never cut to a buffer: a cut one could lose its where part
    // and change every row.
    statement += " where id = '";
    statement += std::to_string(id);
    statement += '\'';
}

long long recordId(const OrbitRecord& record) {
    const std::string text(trimBoth(cutAtNul(record.get(Field::id))));
    if (text.empty()) return 0;
    errno = 0;
    char* end = nullptr;
    const long long value = std::strtoll(text.c_str(), &end, 10);
    if (end == text.c_str() || errno == ERANGE) return 0;
    return value;
}

}  // namespace orvane
