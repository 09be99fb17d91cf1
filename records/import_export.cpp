#include "records/import_export.h"

namespace orvane {
namespace {

std::string question(std::size_t count, const std::string& one, const std::string& many,
                     const std::string& word) {
    if (count == 1) return one;
    return many + " " + std::to_string(count) + " " + word;
}

void backToReady(BatchView& view, const RecordTexts& texts) {
    view.hideProgress();
    view.setStatus(texts.ready);
}

}  // namespace

std::string importQuestion(std::size_t count, const RecordTexts& texts) {
    return question(count, texts.importOne, texts.importMany, texts.importRecords);
}

std::string exportQuestion(std::size_t count, const RecordTexts& texts) {
    return question(count, texts.exportOne, texts.exportMany, texts.exportRecords);
}

void refuseUnreadableFile(BatchView& view, const RecordTexts& texts) {
    view.showMessage(texts.messageTitle, std::string(kWrongItemCount) + "\r\n" + texts.suggestions,
                     MessageIcon::Information);
    backToReady(view, texts);
}

ImportResult insertImportedRecords(std::string_view databasePath, RecordArray& importArray,
                                   const FileReadResult& read, BatchView& view,
                                   const RecordTexts& texts, const BatchClock& clock) {
    ImportResult result;
    result.read = read;
    if (!view.askOkCancel(texts.importTitle, importQuestion(importArray.count, texts))) {
        result.status = ImportStatus::Declined;
        backToReady(view, texts);
        return result;
    }
    result.validation = validateRecords(importArray, texts);
    if (result.validation.faultKind != 0) {
        result.status = ImportStatus::Invalid;
        view.showMessage(texts.messageTitle, validationMessageText(result.validation, texts, true),
                         MessageIcon::Information);
        backToReady(view, texts);
        return result;
    }
    result.batch = insertRecords(databasePath,
                                 std::span<const OrbitRecord>(importArray.records.data(), importArray.count),
                                 InsertMode{}, view, texts, clock);
    result.status = result.batch.status == BatchStatus::Committed ? ImportStatus::Inserted
                                                                   : ImportStatus::BatchFailed;
    return result;
}

ImportResult importFile(const std::filesystem::path& file, std::string_view databasePath,
                        RecordArray& importArray, BatchView& view, const RecordTexts& texts,
                        const BatchClock& clock) {
    view.setStatus(texts.readingElements);
    view.showProgress(0);
    const FileReadResult read = readRecordFile(file, importArray);
    if (read.status != FileReadStatus::Ok) {
        refuseUnreadableFile(view, texts);
        ImportResult result;
        result.status = ImportStatus::ReadFailed;
        result.read = read;
        return result;
    }
    view.hideProgress();
    return insertImportedRecords(databasePath, importArray, read, view, texts, clock);
}

ExportStatus exportRecords(const std::filesystem::path& file, std::span<const OrbitRecord> records,
                           BatchView& view, const RecordTexts& texts) {
    if (!view.askOkCancel(texts.exportTitle, exportQuestion(records.size(), texts))) {
        return ExportStatus::Declined;
    }
    view.setStatus(texts.exportingElements);
    const bool written = writeRecordFile(file, records);
    view.setStatus(texts.ready);
    return written ? ExportStatus::Written : ExportStatus::WriteFailed;
}

}  // namespace orvane
