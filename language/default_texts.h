#pragma once
// The built-in English texts of the language table.
//
// Encoding: every text of the table, built in or read from a language file, is held
// in UTF-8, the encoding that the windows take without conversion. The built-in
// texts are almost all ASCII; the exceptions are the degree sign in the diagram and
// observer labels and the two Cyrillic letters "МБ" (U+041C U+0411, bytes D0 9C D0 91)
// in the sizes of the ephemeris downloads, which came from a Windows-1251 build and
// are kept as the Cyrillic letters so that they show as they always did.
//
// Menu texts separate an accelerator by the two characters backslash and 't';
// the loader turns the first such pair into a TAB.
#include <span>
#include <string_view>

#include "language/sections.h"

namespace orvane {

// The defaults of one section, key k at index k - 1; empty for an invalid section.
std::span<const std::string_view> defaultSectionTexts(Section section);

// The default of (section, key) as compiled in; empty for a key outside the section.
std::string_view defaultText(Section section, int key);

}  // namespace orvane
