#pragma once
// Reading of language files, which are Windows initialisation files with numbered
// keys. The rules are those of the Windows profile functions that the files were
// written for:
// - section and key names compare without regard to case;
// - only the first occurrence of a section counts; a repeated section is ignored
//   whole, and within a section the first occurrence of a key wins;
// - blanks around names and values are dropped; a value enclosed in a matching
//   pair of double or single quotes loses that pair;
// - a line whose first non-blank character is ';' is a comment;
// - "key=" is a key with an empty value; a line "key" without '=' names the key but
//   gives it no value, so its default stays;
// - lines end at CR LF, LF or CR, and a line ends at its first NUL byte;
// - a '[' line without a closing ']' is not a section header and is ignored.
// Keys are read only as decimal numbers without leading zeros from 1 to the
// section's count, so "01" or "+1" never match.
#include <span>
#include <string_view>
#include <vector>

namespace orvane {

struct ProfileSectionRequest {
    std::string_view name;
    int keys = 0;
};

// One key as a file gives it.
struct ProfileValue {
    bool present = false;   // the key appears in its section
    bool hasValue = false;  // it has '='; `text` is its value, possibly empty
    std::string_view text;  // a view into the file text given to the reader
};

// values[s][k - 1] for request s and key k. Only the requested sections and keys
// are kept, so a file of any size and number of sections costs no more memory
// than the table it fills. Never fails: malformed lines are skipped.
std::vector<std::vector<ProfileValue>> ReadNumberedKeys(std::string_view fileText,
                                                        std::span<const ProfileSectionRequest> sections);

}  // namespace orvane
