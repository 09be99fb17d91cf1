#include "records/els_codes.h"

#include <array>
#include <cstdint>

#include "base/fixed_text.h"
#include "records/number_text.h"

namespace orvane {
namespace {

constexpr std::array<std::string_view, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

struct EphemerisLetter {
    char letter;
    std::string_view label;
};

constexpr std::array<EphemerisLetter, 4> kEphemerides{{
    {'d', "JPL DE200"}, {'f', "JPL DE245"}, {'h', "JPL DE403"}, {'j', "JPL DE405"}}};

// A digit is its own value; letters from "A" count on from 10 up to `lastLetter`.
int codeValue(char c, char lastLetter) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= lastLetter) return 10 + (c - 'A');
    return -1;
}

char codeOfValue(std::string_view text, char lastLetter) {
    std::int32_t value = 0;
    if (!readStrictInteger(trimBoth(text), value) || value < 0) return ' ';
    if (value <= 9) return static_cast<char>('0' + value);
    if (value <= 10 + (lastLetter - 'A')) return static_cast<char>('A' + (value - 10));
    return ' ';
}

std::string yearOfPacked(std::string_view three) {
    const char first = three[0];
    if (first >= 'A' && first <= 'L') {
        std::string year = integerText(10 + (first - 'A'));
        year.append(three.substr(1));
        return std::string(trimBoth(year));
    }
    return std::string(trimBoth(three));
}

std::string packedYear(std::string_view yearText) {
    const std::string_view year = trimBoth(yearText);
    std::int32_t value = 0;
    if (year.size() == 4 && readStrictInteger(year, value) && value >= 1000 && value <= 2199) {
        const char letter = static_cast<char>('A' + (value / 100 - 10));
        return std::string(1, letter) + std::string(year.substr(2));
    }
    if (year.size() <= 3) {
        return std::string(3 - year.size(), ' ') + std::string(year);
    }
    return "   ";
}

}  // namespace

std::string monthFromAbbreviation(std::string_view abbreviation) {
    const std::string_view text = trimBoth(abbreviation);
    for (std::size_t k = 0; k < kMonths.size(); ++k) {
        if (kMonths[k] == text) return integerText(static_cast<long long>(k + 1));
    }
    return {};
}

std::string_view abbreviationOfMonth(std::string_view monthNumber) {
    std::int32_t month = 0;
    if (!readStrictInteger(trimBoth(monthNumber), month) || month < 1 || month > 12) return {};
    return kMonths[static_cast<std::size_t>(month - 1)];
}

UnpackedDate unpackDate(std::string_view packed) {
    std::string group(packed.substr(0, 5));
    group.resize(5, ' ');
    UnpackedDate date;
    if (isBlank(group)) return date;
    date.year = yearOfPacked(std::string_view(group).substr(0, 3));
    const int month = codeValue(group[3], 'C');
    const int day = codeValue(group[4], 'V');
    if (month >= 0) date.month = integerText(month);
    if (day >= 0) date.day = integerText(day);
    return date;
}

std::string packDate(std::string_view year, std::string_view month, std::string_view day) {
    if (isBlank(year) && isBlank(month) && isBlank(day)) return "     ";
    std::string packed = packedYear(year);
    packed += codeOfValue(month, 'C');
    packed += codeOfValue(day, 'V');
    return packed;
}

std::string_view ephemerisLabelOfLetter(char letter) {
    for (const auto& entry : kEphemerides) {
        if (entry.letter == letter) return entry.label;
    }
    return {};
}

char letterOfEphemerisLabel(std::string_view label) {
    const std::string_view text = trimBoth(cutAtNul(label));
    for (const auto& entry : kEphemerides) {
        if (entry.label == text) return entry.letter;
    }
    return ' ';
}

}  // namespace orvane
