#pragma once
// The language table: every text of the user interface, as two arrays of the same
// shape, the built-in defaults and the current texts. Each section is a run of
// fixed-width, blank-padded entries; an entry holds at most width - 1 characters.
//
// The table holds UTF-8 (see default_texts.h), so an entry reserves four bytes per
// character of its width.
//
// There is one program-wide table; it lives to the end of the process and has no
// lock. It is filled on the window thread before any worker starts, and workers
// only read it.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "language/sections.h"

namespace orvane {

class LanguageTable {
public:
    // Both arrays hold the built-in defaults.
    LanguageTable();

    // The current text of (section, key) as all code reads it: trailing blanks cut
    // and left-adjusted. A key outside the section gives an empty text.
    std::string text(Section section, int key) const;

    // The entry exactly as stored, blank padded to its fixed width in bytes.
    std::string_view currentEntry(Section section, int key) const;
    std::string_view defaultEntry(Section section, int key) const;

    // Stores a UTF-8 text as the current entry, cut at width - 1 characters.
    void setCurrent(Section section, int key, std::string_view utf8);

    // Current texts become the defaults again.
    void resetToDefaults();

private:
    std::vector<char> defaults_;
    std::vector<char> current_;
};

// Bytes of one entry of a section.
constexpr std::size_t entryBytes(Section section) {
    constexpr std::size_t kMaxUtf8Bytes = 4;
    return static_cast<std::size_t>(widthOf(section)) * kMaxUtf8Bytes;
}

// The prefix of a UTF-8 text that fits an entry of the section: width - 1 characters.
std::string_view fitToEntry(Section section, std::string_view utf8);

// The program-wide table.
LanguageTable& programLanguage();

// The current text of the program-wide table, as `LanguageTable::text`.
std::string text(Section section, int key);

// The program-wide current texts become the built-in defaults.
void ResetLanguage();

}  // namespace orvane
