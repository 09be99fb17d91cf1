#pragma once
// Fixed-width texts: the catalogue, the settings file and the language table all
// keep their texts blank padded to a width; a text going out is trimmed and cut at
// its first NUL, a text coming in is cut at its NUL and padded again.
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

}  // namespace orvane
