#pragma once
// Texts crossing the border to SQLite. The catalogue code keeps every text in a
// fixed-width field padded with blanks; SQLite wants NUL-terminated texts without
// the padding, and what it hands back must become a padded field again.
#include <cstddef>
#include <string>
#include <string_view>

namespace orvane::sql {

// What SQLite receives for a field: the trailing blanks go first, then the text
// ends at its first NUL, as if a NUL had been written behind the last non-blank
// byte of a buffer one byte longer than the field. Leading blanks survive; a field
// of blanks becomes the empty text.
std::string toSqlText(std::string_view field);

// A field of `width` bytes from a NUL-terminated text, with strncpy semantics:
// at most `width` bytes are taken, everything from the first NUL on is blank.
// A null pointer gives a field of blanks.
std::string fromSqlText(const char* text, std::size_t width);

// `text` cut at its first NUL, then blank padded or cut to `width` bytes.
std::string padText(std::string_view text, std::size_t width);

// `text` cut at its first NUL, without trailing blanks.
std::string_view trimRightText(std::string_view text);

// `text` cut at its first NUL, without leading and trailing blanks.
std::string_view trimText(std::string_view text);

}  // namespace orvane::sql
