#include "records/validation.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

#include "astro/calendar.h"
#include "base/fixed_text.h"
#include "records/field_rules.h"
#include "records/number_text.h"

namespace orvane {
namespace {

struct Fault {
    int kind = 0;
    int labelKey = 0;
    int messageKey = 0;
    Field field = Field::listWork1;
};

bool inRange(const ValueRange& range, double x) {
    if (range.positive) return x > 0.0;
    const bool aboveLow = range.lowIncluded ? x >= range.low : x > range.low;
    const bool belowHigh = range.highIncluded ? x <= range.high : x < range.high;
    return aboveLow && belowHigh;
}

// The value as the checks see it: cut at a NUL, trailing blanks gone.
std::string_view checkedText(const OrbitRecord& record, Field field) {
    return trimRight(cutAtNul(record.get(field)));
}

Fault valueFault(const FieldRule& rule, int messageKey) {
    return {kFaultValue, rule.labelKey, messageKey, rule.field};
}

// The four text tests, the read and the range of a number.
Fault judgeNumber(const FieldRule& rule, std::string_view text) {
    if (text.find(' ') != std::string_view::npos) return valueFault(rule, rule.messageKey);
    if (text.size() > static_cast<std::size_t>(rule.limit)) return valueFault(rule, rule.messageKey + 1);
    if (text.find(',') != std::string_view::npos) return valueFault(rule, rule.messageKey + 2);
    double x = 0.0;
    if (rule.kind == RuleKind::Integer) {
        std::int32_t n = 0;
        if (!readStrictInteger(text, n)) return valueFault(rule, rule.messageKey + 4);
        x = n;
    } else if (!readStrictReal(text, x)) {
        return valueFault(rule, rule.messageKey + 4);
    }
    if (!inRange(rule.range, x)) return valueFault(rule, rule.messageKey + 3);
    return {};
}

Fault judgeChoice(const FieldRule& rule, std::string_view text) {
    const std::string_view value = trimBoth(text);
    const bool allowed = rule.field == Field::htype
                             ? (value == "C" || value == "P" || value == "D")
                             : (value == "I" || value == "II");
    return allowed ? Fault{} : valueFault(rule, rule.messageKey);
}

Fault judgeField(const FieldRule& rule, const OrbitRecord& record) {
    const std::string_view text = checkedText(record, rule.field);
    if (text.empty()) {
        if (isRequiredField(rule.field)) return {kFaultRequired, rule.labelKey, 0, rule.field};
        return {};
    }
    if (rule.isError && rule.mustFillKey != 0 && checkedText(record, rule.errorOf).empty()) {
        const FieldRule* main = ruleOf(rule.errorOf);
        return {kFaultValue, main->labelKey, rule.mustFillKey, rule.errorOf};
    }
    switch (rule.kind) {
        case RuleKind::Integer:
        case RuleKind::Real:
            return judgeNumber(rule, text);
        case RuleKind::Text:
            return text.size() > static_cast<std::size_t>(rule.limit) ? valueFault(rule, rule.messageKey)
                                                                      : Fault{};
        case RuleKind::Choice:
            return judgeChoice(rule, text);
    }
    return {};
}

// A date group of three fields, read after each of them passed its own checks.
struct DateGroup {
    Field year, month, day;
    int monthLabel, dayLabel;
    // The limits of the planetary ephemeris: sentences for a month after March of
    // 3000, a month before February of -3000, and the day at the two ends.
    int lateMonth, earlyMonth, lateDay, earlyDay;
};

constexpr DateGroup kPerihelion{Field::hyear, Field::hmonth, Field::hday, 20, 28, 26, 27, 34, 35};
constexpr DateGroup kEpoch{Field::E_year, Field::E_month, Field::E_day, 42, 50, 48, 49, 56, 57};

bool allFilled(const OrbitRecord& record, const DateGroup& group) {
    return !checkedText(record, group.year).empty() && !checkedText(record, group.month).empty() &&
           !checkedText(record, group.day).empty();
}

std::int32_t integerOf(const OrbitRecord& record, Field field) {
    std::int32_t value = 0;
    readStrictInteger(checkedText(record, field), value);
    return value;
}

double realOf(const OrbitRecord& record, Field field) {
    double value = 0.0;
    readStrictReal(checkedText(record, field), value);
    return value;
}

Fault monthLimit(const OrbitRecord& record, const DateGroup& group) {
    const std::int32_t year = integerOf(record, group.year);
    const std::int32_t month = integerOf(record, group.month);
    if (year == 3000 && month > 3) return {kFaultValue, group.monthLabel, group.lateMonth, group.month};
    if (year == -3000 && month < 2) return {kFaultValue, group.monthLabel, group.earlyMonth, group.month};
    return {};
}

// The epoch's sentence for the last day says "less then 4" while the test stops at
// 3, as the perihelion's does; the sentence is kept as it has always stood.
Fault dayLimit(const OrbitRecord& record, const DateGroup& group) {
    const std::int32_t year = integerOf(record, group.year);
    const std::int32_t month = integerOf(record, group.month);
    const double day = realOf(record, group.day);
    if (year == 3000 && month == 3 && day > 3.0) return {kFaultValue, group.dayLabel, group.lateDay, group.day};
    if (year == -3000 && month == 2 && day < 22.0) return {kFaultValue, group.dayLabel, group.earlyDay, group.day};
    return {};
}

// The decimals of a day as its text gave them (".4537"), or as the value has them
// when the text used an exponent.
std::string dayFraction(std::string_view text, double day) {
    if (text.find_first_of("eEdD") != std::string_view::npos) {
        const double fraction = day - std::floor(day);
        if (fraction == 0.0) return {};
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.15g", fraction);
        return std::string(buffer + 1);  // "0.5" -> ".5"
    }
    const auto point = text.find('.');
    return point == std::string_view::npos ? std::string() : std::string(text.substr(point));
}

// The date there and back through the calendar: a February 30 becomes its day in
// March, and the days dropped in October 1582 become October 15. The day of the
// perihelion keeps its fraction.
void normaliseDate(OrbitRecord& record, const DateGroup& group, bool dayWithFraction) {
    const std::int32_t year = integerOf(record, group.year);
    const std::int32_t month = integerOf(record, group.month);
    const std::string dayText(trimBoth(checkedText(record, group.day)));
    const double day = realOf(record, group.day);
    const CalendarDate date = JulianToCalendar(CalendarToJulian(year, month, std::floor(day)));
    record.set(group.year, integerText(date.year));
    record.set(group.month, integerText(date.month));
    std::string newDay = integerText(static_cast<long long>(std::trunc(date.day)));
    if (dayWithFraction) newDay += dayFraction(dayText, day);
    record.set(group.day, newDay);
}

void normaliseObservationDate(OrbitRecord& record, Field year, Field month, Field day) {
    const DateGroup group{year, month, day, 0, 0, 0, 0, 0, 0};
    if (allFilled(record, group)) normaliseDate(record, group, false);
}

// The checks that follow a field's own: the limits of the calendar, the epoch as a
// group, and the normalisation of each date once it is whole.
Fault afterField(Field field, OrbitRecord& record) {
    Fault fault;
    switch (field) {
        case Field::hmonth: return monthLimit(record, kPerihelion);
        case Field::hday:
            fault = dayLimit(record, kPerihelion);
            if (fault.kind == 0) normaliseDate(record, kPerihelion, true);
            return fault;
        case Field::E_month:
            if (!checkedText(record, Field::E_month).empty()) return monthLimit(record, kEpoch);
            return {};
        case Field::E_day:
            if (!allFilled(record, kEpoch)) return {};
            fault = dayLimit(record, kEpoch);
            if (fault.kind == 0) normaliseDate(record, kEpoch, false);
            return fault;
        case Field::F_day: normaliseObservationDate(record, Field::F_year, Field::F_month, Field::F_day); return {};
        case Field::L_day: normaliseObservationDate(record, Field::L_year, Field::L_month, Field::L_day); return {};
        default: return {};
    }
}

Fault epochGroupFault(const OrbitRecord& record) {
    const bool year = !checkedText(record, Field::E_year).empty();
    const bool month = !checkedText(record, Field::E_month).empty();
    const bool day = !checkedText(record, Field::E_day).empty();
    if ((year || month || day) && !(year && month && day)) {
        return {kFaultIncompleteDate, 58, 0, year ? (month ? Field::E_day : Field::E_month) : Field::E_year};
    }
    return {};
}

Fault judgeRecord(OrbitRecord& record) {
    for (const FieldRule& rule : fieldRules()) {
        if (rule.field == Field::E_year) {
            if (const Fault fault = epochGroupFault(record); fault.kind != 0) return fault;
        }
        if (const Fault fault = judgeField(rule, record); fault.kind != 0) return fault;
        if (const Fault fault = afterField(rule.field, record); fault.kind != 0) return fault;
    }
    return {};
}

}  // namespace

ValidationResult validateRecords(std::span<OrbitRecord> records, const RecordTexts& texts) {
    ValidationResult result;
    for (std::size_t k = 0; k < records.size(); ++k) {
        const Fault fault = judgeRecord(records[k]);
        if (fault.kind == 0) continue;
        result.faultRecord = k + 1;
        result.faultKind = fault.kind;
        result.fieldLabel = texts.error(fault.labelKey);
        result.message = fault.messageKey != 0 ? texts.error(fault.messageKey) : std::string();
        result.focusField = fault.field;
        return result;
    }
    return result;
}

ValidationResult validateRecords(RecordArray& records, const RecordTexts& texts) {
    return validateRecords(std::span<OrbitRecord>(records.records.data(), records.count), texts);
}

std::string validationMessageText(const ValidationResult& result, const RecordTexts& texts,
                                  bool batch) {
    if (result.faultKind == 0) return {};
    const std::string crlf = "\r\n";
    const std::string number = std::to_string(result.faultRecord);
    std::string text = batch ? std::string(kRecordsIncorrect) + crlf : std::string();
    if (result.faultKind == kFaultValue) {
        text += texts.formatError;
        if (batch) text += " " + result.fieldLabel + " " + texts.at + " " + number + " " + texts.recordWord;
        text += crlf + texts.suggestions + crlf + result.message;
        return text;
    }
    const bool group = result.faultKind == kFaultIncompleteDate;
    text += texts.requiredEmpty + crlf + texts.suggestions + crlf;
    text += (group ? texts.fillTheAll : texts.fillThe) + " " + result.fieldLabel + " " +
            (group ? texts.fieldsAt : texts.fieldAt) + " " + number + " " + texts.recordWord;
    return text;
}

}  // namespace orvane
