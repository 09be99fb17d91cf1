#include "language/language_table.h"

#include <algorithm>
#include <array>

#include "base/fixed_text.h"
#include "language/default_texts.h"
#include "language/text_encoding.h"

namespace orvane {
namespace {

// Byte offset of each section in an array, and the size of the array.
constexpr std::array<std::size_t, kSectionCount + 1> kSectionOffsets = [] {
    std::array<std::size_t, kSectionCount + 1> offsets{};
    for (std::size_t s = 0; s < kSectionCount; ++s) {
        const auto section = static_cast<Section>(s);
        offsets[s + 1] = offsets[s] + static_cast<std::size_t>(keyCount(section)) * entryBytes(section);
    }
    return offsets;
}();

constexpr std::size_t kTableBytes = kSectionOffsets[kSectionCount];

std::size_t entryOffset(Section section, int key) {
    return kSectionOffsets[static_cast<std::size_t>(section)] +
           static_cast<std::size_t>(key - 1) * entryBytes(section);
}

std::string_view entryIn(const std::vector<char>& table, Section section, int key) {
    if (!isValidSection(section) || !isValidKey(section, key)) return {};
    return {table.data() + entryOffset(section, key), entryBytes(section)};
}

void storeIn(std::vector<char>& table, Section section, int key, std::string_view utf8) {
    if (!isValidSection(section) || !isValidKey(section, key)) return;
    const auto fitted = fitToEntry(section, cutAtNul(utf8));
    char* entry = table.data() + entryOffset(section, key);
    std::fill(std::copy(fitted.begin(), fitted.end(), entry), entry + entryBytes(section), ' ');
}

// Left-adjusted, without trailing blanks: the form in which every text is used.
std::string adjusted(std::string_view entry) {
    return std::string(trimBoth(entry));
}

}  // namespace

std::string_view fitToEntry(Section section, std::string_view utf8) {
    const int width = widthOf(section);
    return firstCharacters(utf8, width > 1 ? static_cast<std::size_t>(width - 1) : 0);
}

LanguageTable::LanguageTable() : defaults_(kTableBytes, ' '), current_(kTableBytes, ' ') {
    for (const Section section : kAllSections) {
        for (int key = 1; key <= keyCount(section); ++key) {
            storeIn(defaults_, section, key, defaultText(section, key));
        }
    }
    current_ = defaults_;
}

std::string LanguageTable::text(Section section, int key) const {
    return adjusted(currentEntry(section, key));
}

std::string_view LanguageTable::currentEntry(Section section, int key) const {
    return entryIn(current_, section, key);
}

std::string_view LanguageTable::defaultEntry(Section section, int key) const {
    return entryIn(defaults_, section, key);
}

void LanguageTable::setCurrent(Section section, int key, std::string_view utf8) {
    storeIn(current_, section, key, utf8);
}

void LanguageTable::resetToDefaults() {
    current_ = defaults_;
}

LanguageTable& programLanguage() {
    static LanguageTable table;
    return table;
}

std::string text(Section section, int key) {
    return programLanguage().text(section, key);
}

void ResetLanguage() {
    programLanguage().resetToDefaults();
}

}  // namespace orvane
