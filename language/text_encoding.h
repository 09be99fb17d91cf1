#pragma once
// Conversions between the encodings that language files come in and the UTF-8 that
// the language table holds.
#include <cstddef>
#include <string>
#include <string_view>

namespace orvane {

// Strict UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isValidUtf8(std::string_view bytes);

// Appends the UTF-8 form of a code point; surrogates and values above U+10FFFF
// become U+FFFD.
void appendUtf8(std::string& out, char32_t codePoint);

// Windows-1251 (the Cyrillic ANSI code page) to UTF-8. The one unassigned byte,
// 0x98, becomes U+FFFD.
std::string windows1251ToUtf8(std::string_view bytes);

// UTF-16 without its byte order mark to UTF-8. Unpaired surrogates and a lone
// final byte become U+FFFD.
std::string utf16ToUtf8(std::string_view bytes, bool bigEndian);

// The longest prefix of at most `count` characters of a UTF-8 text, never ending
// inside a sequence. Bytes that do not start a valid sequence count one each.
std::string_view firstCharacters(std::string_view utf8, std::size_t count);

// Number of characters of a valid UTF-8 text.
std::size_t characterCount(std::string_view utf8);

}  // namespace orvane
