#pragma once
// Loading of a language file over the built-in English texts.
//
// File name: the stored language name is a file name, "English.lng" by default, and
// older settings may hold a bare language name. The file is the language folder
// joined with the name, with ".lng" appended only when the name does not already end
// in ".lng" (in any case), so "English.lng" and "English" both read English.lng.
// A name is trimmed of blanks and cut at a NUL first; an empty name, "." or "..", or
// a name holding a path separator reads no file, as the language list only ever
// offers plain names from the language folder.
//
// Encoding: language files are "ANSI" text. A file that starts with a UTF-8 byte
// order mark, or that is valid UTF-8 as a whole, is read as UTF-8; a file with a
// UTF-16 byte order mark is read as UTF-16; any other file is read as Windows-1251,
// the code page the program's own Cyrillic texts came from. Values are then held in
// UTF-8. Widths are counted in characters in every case.
//
// Only the first 32 MiB of a file are read; no language file comes near that.
#include <filesystem>
#include <optional>
#include <string_view>

#include "language/language_table.h"

namespace orvane {

enum class LanguageLoad {
    fileRead,     // the file was read; keys it lacks kept their defaults
    noFile,       // no readable file at the path: every text is the default
    invalidName,  // the name cannot be a file of the language folder: defaults
};

inline constexpr std::size_t kMaxLanguageFileBytes = std::size_t{32} << 20;

// The language file for a stored language name, or nothing for an unusable name.
std::optional<std::filesystem::path> LanguageFilePath(const std::filesystem::path& languageFolder,
                                                      std::string_view languageName);

// Fills the current texts of `table`: for every section and key the file's value,
// or the default where the file, the section or the key is missing; each text cut
// at width - 1 characters; in orvMenu the first backslash-t pair becomes a TAB.
LanguageLoad LoadLanguage(LanguageTable& table, const std::filesystem::path& languageFolder,
                          std::string_view languageName);

// The same for the program-wide table.
LanguageLoad LoadLanguage(const std::filesystem::path& languageFolder, std::string_view languageName);

}  // namespace orvane
