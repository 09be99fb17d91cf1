#include "records/insert_statement.h"

#include "base/fixed_text.h"
#include "records/sql_values.h"

namespace orvane {
namespace {

void dropLastComma(std::string& list) {
    if (!list.empty() && list.back() == ',') list.pop_back();
}

}  // namespace

void buildInsertStatement(const OrbitRecord& record, std::size_t index, const InsertMode& mode,
                          std::string& statement) {
    std::string columns = "insert or replace into elements(";
    std::string values = ") values(";
    for (const Field field : tableFields()) {
        if (field == Field::hinfo) continue;
        if (field == Field::htimeStamp && !(mode.catalogueUpdate && index >= mode.firstUserIndex)) {
            continue;
        }
        const std::string_view value = trimRight(cutAtNul(record.get(field)));
        if (value.empty()) continue;
        columns += ' ';
        columns += fieldName(field);
        columns += ',';
        // The text columns were always escaped; the numeric ones and `comet` are
        // escaped too, so that an apostrophe from a file cannot end the quotes.
        values += " '";
        appendDoubled(values, value);
        values += "',";
    }
    const std::string_view info = trimRight(cutAtNul(record.get(Field::hinfo)));
    if (!info.empty()) {
        columns += " hinfo,";
        std::string doubled;
        appendDoubled(doubled, info);
        values += " trim('";
        appendWithLineEnds(values, doubled);
        values += "', '\r\n '),";
    }
    dropLastComma(columns);
    dropLastComma(values);
    statement = columns;
    statement += values;
    statement += ')';
}

}  // namespace orvane
