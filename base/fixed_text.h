#pragma once
// Fixed-width texts: the catalogue, the settings file and the language table all
// keep their texts blank padded to a width; a text going out is trimmed and cut at
// its first NUL, a text coming in is cut at its NUL and padded again.
#include <span>
#include <string>
#include <string_view>

namespace orvane {

// The part before the first NUL.
std::string_view cutAtNul(std::string_view text);

// Without trailing blanks (only ' ', as the fixed-width fields pad with blanks).
std::string_view trimRight(std::string_view text);

// Without leading and trailing blanks.
std::string_view trimBoth(std::string_view text);

// Cut at the first NUL, then blank padded or cut to exactly `width` bytes.
std::string padTo(std::string_view text, std::size_t width);

// What a fixed-width field hands to the outside: cut at NUL, trailing blanks removed.
std::string outgoing(std::string_view field);

// True when the field holds nothing but blanks (or nothing before its NUL).
bool isBlank(std::string_view field);

// Columns `first` to `last` of a fixed-column line, counted from 1 as the record
// layouts count them. A line shorter than that gives what it has (perhaps nothing).
std::string_view columnText(std::string_view line, std::size_t first, std::size_t last);

// The same columns left-adjusted and trimmed: an all-blank field gives "".
std::string_view columnField(std::string_view line, std::size_t first, std::size_t last);

// Writes `text` into `line` from column `first` on (counted from 1), growing the line
// with blanks where it is shorter.
void putColumns(std::string& line, std::size_t first, std::string_view text);

// Blanks the trailing "0" digits of a number written with decimals, from the right:
// at most `maxDigits` of them, stopping at any other character, and never the first
// decimal after the point ("1.500000" -> "1.500   " with 3, "5.00" -> "5.0 ").
void blankTrailingZeros(std::span<char> field, std::size_t maxDigits);

}  // namespace orvane
