// Any bytes as an ECS file: read, check and write back every record.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "records/els_format.h"
#include "records/insert_statement.h"
#include "records/record_files.h"
#include "records/validation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    orvane::RecordArray records;
    if (orvane::readRecordText(text, true, records).status != orvane::FileReadStatus::Ok) return 0;
    static const orvane::RecordTexts texts;
    std::string statement;
    for (std::size_t k = 0; k < records.count; ++k) {
        const std::string line = orvane::writeElsLine(records.records[k]);
        if (line.size() != orvane::kElsLineWidth) __builtin_trap();
        orvane::buildInsertStatement(records.records[k], k, {}, statement);
    }
    orvane::validateRecords(records, texts);
    return 0;
}
