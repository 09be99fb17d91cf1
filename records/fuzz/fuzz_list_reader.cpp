// Any bytes as a list file: read, check and write back every record; a written
// record must read back as itself.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "records/insert_statement.h"
#include "records/list_format.h"
#include "records/record_files.h"
#include "records/validation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    orvane::RecordArray records;
    if (orvane::readRecordText(text, false, records).status != orvane::FileReadStatus::Ok) return 0;
    static const orvane::RecordTexts texts;
    std::string statement;
    for (std::size_t k = 0; k < records.count; ++k) {
        orvane::buildInsertStatement(records.records[k], k, {}, statement);
        orvane::RecordArray again;
        const std::string line = orvane::writeListLine(records.records[k]) + "\n";
        if (orvane::readRecordText(line, false, again).status != orvane::FileReadStatus::Ok || again.count != 1) {
            __builtin_trap();
        }
    }
    orvane::validateRecords(records, texts);
    return 0;
}
