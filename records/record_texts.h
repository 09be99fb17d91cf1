#pragma once
// The texts that the record operations show: the sentences of the record checks
// (section orvErrors) and the status, question and message texts of import, export
// and the insert batch. They live in the program's language table, which this
// library does not reach; the caller hands them over, read through a lookup.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// The current text of (section, key), the section named as in a language file
// ("orvErrors"); an unknown key gives "".
using TextLookup = std::function<std::string(std::string_view section, int key)>;

inline constexpr int kErrorTextCount = 355;

struct RecordTexts {
    std::vector<std::string> errors;  // orvErrors; key k at index k, index 0 unused

    // orvStatus
    std::string readingElements;   // "Reading elements..."
    std::string ready;             // "Ready"
    std::string exportingElements; // "Export elements..."
    std::string remainingUnknown;  // "Remaining time: ..."
    std::string remainingTime;     // "Remaining time:"
    std::string hoursSuffix;       // "h"
    std::string minutesSuffix;     // "m"
    std::string secondsSuffix;     // "s"
    std::string addingRecords;     // "Adding new Records in progress..."

    // orvWnd
    std::string importOne;      // "Are you sure you want to import 1 Record?"
    std::string importMany;     // "Are you sure you want to import"
    std::string importRecords;  // "Records?"
    std::string importTitle;    // "Confirm Records import"

    // orvEdit
    std::string exportMany;       // "Are you sure you want to export"
    std::string exportRecords;    // "Records?"
    std::string exportOne;        // "Are you sure you want to export 1 Record?"
    std::string exportTitle;      // "Confirm Records export"
    std::string messageTitle;     // "Message"
    std::string formatError;      // "Elements format error!"
    std::string suggestions;      // "Suggestions:"
    std::string requiredEmpty;    // "Required field is empty!"
    std::string at;               // "at"
    std::string recordWord;       // "record."
    std::string fillThe;          // "Fill the"
    std::string fieldAt;          // "field at"
    std::string fillTheAll;       // "Fill the all"
    std::string fieldsAt;         // "fields at"

    RecordTexts();

    // The orvErrors text of `key`, "" outside the section.
    const std::string& error(int key) const;
};

// Reads every text above through the lookup.
RecordTexts loadRecordTexts(const TextLookup& lookup);

// The two messages of a batch that stand in no section of the language table.
inline constexpr std::string_view kWrongItemCount =
    "One or more strings contains an incorrect number of elements.";
inline constexpr std::string_view kRecordsIncorrect = "One or more strings contains are incorrect.";

}  // namespace orvane
