#include "records/record_texts.h"

namespace orvane {

RecordTexts::RecordTexts() : errors(kErrorTextCount + 1) {}

const std::string& RecordTexts::error(int key) const {
    static const std::string none;
    if (key < 1 || static_cast<std::size_t>(key) >= errors.size()) return none;
    return errors[static_cast<std::size_t>(key)];
}

RecordTexts loadRecordTexts(const TextLookup& lookup) {
    RecordTexts texts;
    for (int key = 1; key <= kErrorTextCount; ++key) {
        texts.errors[static_cast<std::size_t>(key)] = lookup("orvErrors", key);
    }
    const auto status = [&](int key) { return lookup("orvStatus", key); };
    texts.readingElements = status(2);
    texts.ready = status(4);
    texts.exportingElements = status(5);
    texts.remainingUnknown = status(17);
    texts.remainingTime = status(18);
    texts.hoursSuffix = status(19);
    texts.minutesSuffix = status(20);
    texts.secondsSuffix = status(21);
    texts.addingRecords = status(25);

    const auto wnd = [&](int key) { return lookup("orvWnd", key); };
    texts.importOne = wnd(1);
    texts.importMany = wnd(2);
    texts.importRecords = wnd(3);
    texts.importTitle = wnd(4);

    const auto edit = [&](int key) { return lookup("orvEdit", key); };
    texts.exportMany = edit(60);
    texts.exportRecords = edit(61);
    texts.exportOne = edit(62);
    texts.exportTitle = edit(63);
    texts.messageTitle = edit(64);
    texts.formatError = edit(65);
    texts.suggestions = edit(66);
    texts.requiredEmpty = edit(80);
    texts.at = edit(82);
    texts.recordWord = edit(83);
    texts.fillThe = edit(84);
    texts.fieldAt = edit(85);
    texts.fillTheAll = edit(86);
    texts.fieldsAt = edit(87);
    return texts;
}

}  // namespace orvane
