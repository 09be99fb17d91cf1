#pragma once
// The record checks: one routine judges whether a batch may enter the catalogue,
// for an import and for the record window alike. It walks the records in order and
// the fields of each in field order, stops at the first fault, and normalises the
// dates of what it accepts through the calendar, so the records that reach the
// insert statement are not quite the text that came in.
#include <cstddef>
#include <span>
#include <string>

#include "records/orbit_record.h"
#include "records/record_texts.h"

namespace orvane {

inline constexpr int kFaultValue = 1;           // a value is wrong
inline constexpr int kFaultRequired = 2;        // a required field is empty
inline constexpr int kFaultIncompleteDate = 3;  // a date group is incomplete

struct ValidationResult {
    std::size_t faultRecord = 0;  // 1-based index of the first record at fault; 0 when all pass
    std::string fieldLabel;       // the field's label in quotes
    std::string message;          // the lines of the advice
    int faultKind = 0;
    Field focusField = Field::listWork1;  // the field whose control the record window focuses
};

ValidationResult validateRecords(std::span<OrbitRecord> records, const RecordTexts& texts);
ValidationResult validateRecords(RecordArray& records, const RecordTexts& texts);

// The text of the message box for a fault. For a batch it names the record and
// stands behind "One or more strings contains are incorrect.".
std::string validationMessageText(const ValidationResult& result, const RecordTexts& texts,
                                  bool batch);

}  // namespace orvane
