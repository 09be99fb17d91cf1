#include "records/list_format.h"

#include <array>

#include "base/fixed_text.h"
#include "base/list_directed.h"

namespace orvane {
namespace {

// The fields of one list record in item order.
constexpr std::array<Field, kListItemCount> makeListFields() {
    std::array<Field, kListItemCount> fields{};
    for (std::size_t k = 0; k + 1 < kListItemCount; ++k) {
        fields[k] = fieldAt(fieldIndex(kFirstBodyField) + static_cast<int>(k));
    }
    fields[kListItemCount - 1] = Field::hinfo;
    return fields;
}

constexpr std::array<Field, kListItemCount> kListFields = makeListFields();

std::string infoForList(std::string_view info) {
    std::string out(info);
    for (char& c : out) {
        if (c == '\r') c = '\\';
        if (c == '\n') c = 'n';
    }
    return out;
}

// Scratch texts of one record and the list targets that point at them.
struct ScratchRecord {
    std::array<std::string, kListItemCount> items;
    std::array<ListTarget, kListItemCount> targets;

    ScratchRecord() : targets(makeTargets(items)) {}

    static std::array<ListTarget, kListItemCount> makeTargets(std::array<std::string, kListItemCount>& items) {
        return [&]<std::size_t... k>(std::index_sequence<k...>) {
            return std::array<ListTarget, kListItemCount>{ListTarget::text(
                items[k], k + 1 == kListItemCount ? kListInfoWidth : kListTextWidth)...};
        }(std::make_index_sequence<kListItemCount>());
    }

    void blankAll() {
        for (auto& item : items) item.clear();
    }
};

std::size_t longestLineStart(std::string_view text, std::size_t limit) {
    std::size_t start = 0;
    while (start < text.size()) {
        const auto lf = text.find('\n', start);
        const std::size_t end = lf == std::string_view::npos ? text.size() : lf;
        if (end - start > limit) return start;
        start = end + 1;
    }
    return std::string_view::npos;
}

int lineOfOffset(std::string_view text, std::size_t offset) {
    int line = 1;
    for (std::size_t k = 0; k < offset && k < text.size(); ++k) {
        if (text[k] == '\n') ++line;
    }
    return line;
}

// Reads records until the text ends; `store` takes each record (and may stop the
// walk by returning false).
template <typename Store>
ListReadResult walkRecords(std::string_view text, Store&& store) {
    ListReadResult result;
    const std::size_t longLine = longestLineStart(text, kListLineLimit);
    if (longLine != std::string_view::npos) {
        result.status = ListReadStatus::LineTooLong;
        result.line = lineOfOffset(text, longLine);
        return result;
    }
    ScratchRecord scratch;
    ListReader reader(text);
    while (!reader.atEnd()) {
        scratch.blankAll();
        const int firstLine = reader.lineNumber();
        const std::size_t firstByte = reader.position();
        const ListResult read = readList(reader, scratch.targets);
        // Only blanks and empty lines left end the text; anything else that gives
        // no item (a quote that never closes) is a fault.
        if (read.status == ListStatus::EndOfText && read.itemsRead == 0 &&
            text.find_first_not_of(" \t\r\n", firstByte) == std::string_view::npos) {
            break;
        }
        if (listFailed(read.status)) {
            result.status = ListReadStatus::MissingItems;
            result.line = firstLine;
            return result;
        }
        if (!store(scratch.items)) break;
        ++result.records;
        reader.nextRecord();
    }
    return result;
}

}  // namespace

std::string writeListLine(const OrbitRecord& record) {
    std::string line;
    for (std::size_t k = 0; k < kListFields.size(); ++k) {
        const Field field = kListFields[k];
        if (k > 0) line += ", ";
        const std::string_view value = trimRight(cutAtNul(record.get(field)));
        appendQuotedItem(line, field == Field::hinfo ? std::string_view(infoForList(value)) : value);
    }
    return line;
}

ListReadResult countListRecords(std::string_view text) {
    return walkRecords(text, [](const auto&) { return true; });
}

ListReadResult readListRecords(std::string_view text, RecordArray& records) {
    std::size_t next = 0;
    ListReadResult result = walkRecords(text, [&](const std::array<std::string, kListItemCount>& items) {
        if (next >= records.count) return false;
        OrbitRecord& record = records.records[next++];
        record.clear();
        for (std::size_t k = 0; k < kListItemCount; ++k) record.set(kListFields[k], items[k]);
        return true;
    });
    if (result.status == ListReadStatus::Ok && result.records < records.count) {
        result.status = ListReadStatus::MissingItems;
    }
    return result;
}

}  // namespace orvane
