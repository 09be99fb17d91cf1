#pragma once
// The Import and Export commands without their windows: read a file into the import
// array, ask, check the records and run the insert batch; write chosen records out.
// The caller supplies the file chosen in its dialog, the view and the texts.
#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "records/batch_view.h"
#include "records/insert_batch.h"
#include "records/orbit_record.h"
#include "records/record_files.h"
#include "records/record_texts.h"
#include "records/validation.h"

namespace orvane {

enum class ImportStatus {
    Inserted,     // the batch ran and committed
    Declined,     // the user said Cancel
    ReadFailed,   // the file could not be read as records; the message was shown
    Invalid,      // a record failed the checks; the message was shown
    BatchFailed,  // the catalogue could not take the batch; nothing was added
};

struct ImportResult {
    ImportStatus status = ImportStatus::Inserted;
    FileReadResult read;
    ValidationResult validation;
    InsertBatchResult batch;
};

// "Are you sure you want to import 1 Record?", or "... import" n "Records?".
std::string importQuestion(std::size_t count, const RecordTexts& texts);
std::string exportQuestion(std::size_t count, const RecordTexts& texts);

// Reads `file` into `importArray` (which the batch then owns), asks, checks and
// inserts into the catalogue at `databasePath`.
ImportResult importFile(const std::filesystem::path& file, std::string_view databasePath,
                        RecordArray& importArray, BatchView& view, const RecordTexts& texts,
                        const BatchClock& clock = approximateClockNow);

// The message of a file that does not read as records, and the status back to
// "Ready"; nothing is inserted.
void refuseUnreadableFile(BatchView& view, const RecordTexts& texts);

// The part of an import after the file was read into `importArray`: the question,
// the record checks, and the insert batch. `read` is handed back in the result.
ImportResult insertImportedRecords(std::string_view databasePath, RecordArray& importArray,
                                   const FileReadResult& read, BatchView& view,
                                   const RecordTexts& texts,
                                   const BatchClock& clock = approximateClockNow);

enum class ExportStatus { Written, Declined, WriteFailed };

// Asks, then writes the records in the format of the file name.
ExportStatus exportRecords(const std::filesystem::path& file, std::span<const OrbitRecord> records,
                           BatchView& view, const RecordTexts& texts);

}  // namespace orvane
