#pragma once
// The small codes of the ECS line: month abbreviations, packed dates and the
// letters of the planetary ephemeris an orbit's computer used.
#include <string>
#include <string_view>

namespace orvane {

// "Jan" to "Dec" give "1" to "12"; any other text gives "".
std::string monthFromAbbreviation(std::string_view abbreviation);

// The month number "1" to "12" (also "09") gives "Jan" to "Dec"; anything else "".
std::string_view abbreviationOfMonth(std::string_view monthNumber);

struct UnpackedDate {
    std::string year;
    std::string month;
    std::string day;
};

// Five characters: a year of three (a first letter "A" to "L" is the century 10 to
// 21), then month and day as one character each (digits, "A" = 10 ... "C" = 12 for
// the month, "A" = 10 ... "V" = 31 for the day). A blank group gives three blanks.
UnpackedDate unpackDate(std::string_view packed);

// The reverse; always five characters. A four-digit year from 1000 to 2199 takes
// its century letter; a year of up to three characters (also a negative one) is
// written as it stands, right-adjusted; a year that has neither form, and a month or
// day without a character, leave their places blank.
std::string packDate(std::string_view year, std::string_view month, std::string_view day);

// "d" "JPL DE200", "f" "JPL DE245", "h" "JPL DE403", "j" "JPL DE405"; else "".
std::string_view ephemerisLabelOfLetter(char letter);

// The letter of one of those four labels, or ' ' for any other text.
char letterOfEphemerisLabel(std::string_view label);

}  // namespace orvane
