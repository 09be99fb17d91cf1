#include "records/record_files.h"

#include <fstream>
#include <string>
#include <system_error>

#include "records/els_format.h"
#include "records/list_format.h"
#include "records/text_lines.h"

namespace orvane {
namespace {

FileReadResult readEls(std::string_view text, RecordArray& records) {
    records.reset(forEachLine(text, [](std::size_t, std::string_view) {}));
    forEachLine(text, [&](std::size_t k, std::string_view line) { readElsLine(line, records.records[k]); });
    return {};
}

FileReadResult readList(std::string_view text, RecordArray& records) {
    const auto fail = [&](const ListReadResult& read) {
        records.reset(0);
        return FileReadResult{read.status == ListReadStatus::LineTooLong ? FileReadStatus::LineTooLong
                                                                          : FileReadStatus::MissingItems,
                              read.line};
    };
    const ListReadResult counted = countListRecords(text);
    if (counted.status != ListReadStatus::Ok) return fail(counted);
    records.reset(counted.records);
    const ListReadResult filled = readListRecords(text, records);
    if (filled.status != ListReadStatus::Ok) return fail(filled);
    return {};
}

}  // namespace

FileReadResult readRecordText(std::string_view text, bool els, RecordArray& records) {
    return els ? readEls(text, records) : readList(text, records);
}

FileReadResult readRecordFile(const std::filesystem::path& file, RecordArray& records) {
    records.reset(0);
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return {FileReadStatus::CannotOpen, 0};
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) return {FileReadStatus::CannotOpen, 0};
    if (size > kRecordFileLimit) return {FileReadStatus::TooLarge, 0};
    std::ifstream in(file, std::ios::binary);
    if (!in) return {FileReadStatus::CannotOpen, 0};
    std::string text(static_cast<std::size_t>(size), '\0');
    in.read(text.data(), static_cast<std::streamsize>(size));
    text.resize(static_cast<std::size_t>(in.gcount()));
    if (in.bad()) return {FileReadStatus::CannotOpen, 0};
    return readRecordText(text, isElsPath(file.string()), records);
}

bool writeRecordFile(const std::filesystem::path& file, std::span<const OrbitRecord> records) {
    const bool els = isElsPath(file.string());
    std::filesystem::path partial = file;
    partial += ".part";
    {
        std::ofstream out(partial, std::ios::binary | std::ios::trunc);
        if (!out) return false;
        std::string line;
        for (const OrbitRecord& record : records) {
            line = els ? writeElsLine(record) : writeListLine(record);
            line += '\n';
            out.write(line.data(), static_cast<std::streamsize>(line.size()));
        }
        out.close();
        if (!out) {
            std::error_code ignored;
            std::filesystem::remove(partial, ignored);
            return false;
        }
    }
    std::error_code error;
    std::filesystem::rename(partial, file, error);
    if (error) {
        std::filesystem::remove(partial, error);
        return false;
    }
    return true;
}

}  // namespace orvane
