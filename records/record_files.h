#pragma once
// Record files on disk: read in two passes (count, then fill) into the import
// array, written line by line. The format follows the file name: *.els is the ECS
// text, any other name the list text.
#include <cstddef>
#include <filesystem>
#include <span>

#include "records/orbit_record.h"

namespace orvane {

// Largest record file that is read; far above a catalogue of a million records.
inline constexpr std::uintmax_t kRecordFileLimit = std::uintmax_t{1} << 30;

enum class FileReadStatus {
    Ok,
    CannotOpen,    // missing, unreadable, or not a regular file
    TooLarge,      // above kRecordFileLimit
    MissingItems,  // list text: a record with fewer than 66 items or a malformed item
    LineTooLong,   // list text: a line no record can have
};

struct FileReadResult {
    FileReadStatus status = FileReadStatus::Ok;
    int line = 0;  // line of a fault in the list text
};

// Counts the records, makes the array anew with that many and fills it. On any
// fault the array is left empty.
FileReadResult readRecordFile(const std::filesystem::path& file, RecordArray& records);

// Same, on the text of a file already in memory; `els` chooses the format.
FileReadResult readRecordText(std::string_view text, bool els, RecordArray& records);

// Writes the records, one line each with LF, to a file beside the target that is
// then renamed over it, so a failed write leaves the old file alone. False on failure.
bool writeRecordFile(const std::filesystem::path& file, std::span<const OrbitRecord> records);

}  // namespace orvane
