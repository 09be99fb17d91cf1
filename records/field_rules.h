#pragma once
// What each field of a record may hold: the table by which the record checks judge
// a batch. Every number has a limit of characters, a type that a strict read must
// accept and a range; texts have a limit; two fields take one of a few values. The
// sentences are keys of section orvErrors.
#include <span>

#include "records/orbit_record.h"

namespace orvane {

enum class RuleKind {
    Integer,  // the four text tests, a strict integer read, the range
    Real,     // the four text tests, a strict real read, the range
    Text,     // only the limit
    Choice,   // one of the listed values
};

// A bound is included when its flag says so; `positive` asks for a value above 0.
struct ValueRange {
    double low = 0.0;
    double high = 0.0;
    bool lowIncluded = true;
    bool highIncluded = true;
    bool positive = false;
};

struct FieldRule {
    Field field;
    RuleKind kind;
    int labelKey;     // the field's label, in quotes
    int limit;        // characters
    // Integer and Real: spaces at messageKey, limit +1, commas +2, range +3, type +4.
    // Text: the limit sentence. Choice: the sentence of the allowed values.
    int messageKey;
    ValueRange range;
    // An error field: the field whose error it is, and the sentence for that field
    // being blank (0 where that field is required anyway).
    bool isError = false;
    Field errorOf = Field::listWork1;
    int mustFillKey = 0;
};

// The rules of the body fields and `hinfo`, in field order.
std::span<const FieldRule> fieldRules();

// The rule of one field; null for fields without one (head, time stamp, calculated).
const FieldRule* ruleOf(Field field);

// The fields that must not be blank.
bool isRequiredField(Field field);

}  // namespace orvane
