// Any bytes as an MPC comet-elements file: every record the reader makes must pass
// the record checks as it stands, and write as an ECS line and an insert statement.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "records/els_format.h"
#include "records/insert_statement.h"
#include "records/mpc_elements.h"
#include "records/validation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    static const orvane::RecordTexts texts;
    orvane::OrbitRecord one;
    if (orvane::readMpcCometLine(text, one).status == orvane::MpcLineStatus::Ok) {
        orvane::RecordArray single;
        single.reset(1);
        single.records[0] = one;
        if (orvane::validateRecords(single, texts).faultKind != 0) __builtin_trap();
    }
    orvane::RecordArray records;
    const orvane::MpcFileResult result = orvane::readMpcCometText(text, records);
    if (result.read != records.count || records.records.size() != records.count) __builtin_trap();
    std::string statement;
    for (std::size_t k = 0; k < records.count; ++k) {
        if (orvane::writeElsLine(records.records[k]).size() != orvane::kElsLineWidth) __builtin_trap();
        orvane::buildInsertStatement(records.records[k], k, {}, statement);
    }
    if (orvane::validateRecords(records, texts).faultKind != 0) __builtin_trap();
    return 0;
}
