#include "language/load_language.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "base/fixed_text.h"
#include "language/profile_reader.h"
#include "language/text_encoding.h"

namespace orvane {
namespace {

constexpr std::string_view kExtension = ".lng";

bool endsWithExtension(std::string_view name) {
    if (name.size() < kExtension.size()) return false;
    const auto tail = name.substr(name.size() - kExtension.size());
    for (std::size_t i = 0; i < tail.size(); ++i) {
        const char c = (tail[i] >= 'A' && tail[i] <= 'Z') ? static_cast<char>(tail[i] - 'A' + 'a') : tail[i];
        if (c != kExtension[i]) return false;
    }
    return true;
}

// The file's bytes up to the cap, or nothing when there is no readable regular file.
std::optional<std::string> readLanguageBytes(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) || error) return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::string bytes;
    std::array<char, 1 << 16> chunk{};
    while (bytes.size() < kMaxLanguageFileBytes && in) {
        const auto wanted = std::min(chunk.size(), kMaxLanguageFileBytes - bytes.size());
        in.read(chunk.data(), static_cast<std::streamsize>(wanted));
        bytes.append(chunk.data(), static_cast<std::size_t>(in.gcount()));
    }
    if (in.bad()) return std::nullopt;
    return bytes;
}

// A language file as text: UTF-8 bytes, or Windows-1251 bytes to be converted value
// by value (so that a huge file is never converted whole).
struct LanguageText {
    std::string bytes;
    bool windows1251 = false;
};

LanguageText decodeLanguageBytes(std::string raw) {
    const std::string_view view(raw);
    if (view.substr(0, 3) == "\xEF\xBB\xBF") {
        std::string rest(view.substr(3));
        const bool utf8 = isValidUtf8(rest);
        return {std::move(rest), !utf8};
    }
    if (view.substr(0, 2) == "\xFF\xFE") return {utf16ToUtf8(view.substr(2), false), false};
    if (view.substr(0, 2) == "\xFE\xFF") return {utf16ToUtf8(view.substr(2), true), false};
    const bool utf8 = isValidUtf8(view);
    return {std::move(raw), !utf8};
}

// A value of the file as it goes into an entry: cut at width - 1 characters, in UTF-8.
std::string entryText(Section section, std::string_view value, bool windows1251) {
    if (!windows1251) return std::string(fitToEntry(section, value));
    const int width = widthOf(section);
    return windows1251ToUtf8(value.substr(0, width > 1 ? static_cast<std::size_t>(width - 1) : 0));
}

// A menu text keeps its accelerator after a TAB; the files write the TAB as "\t".
void replaceMenuTab(std::string& menuText) {
    const auto pair = menuText.find("\\t");
    if (pair != std::string::npos) menuText.replace(pair, 2, "\t");
}

void fillTable(LanguageTable& table, const LanguageText* file) {
    std::vector<std::vector<ProfileValue>> values;
    if (file != nullptr) {
        std::array<ProfileSectionRequest, kSectionCount> requests{};
        for (std::size_t s = 0; s < kSectionCount; ++s) {
            requests[s] = {kSectionShapes[s].name, kSectionShapes[s].keys};
        }
        values = ReadNumberedKeys(file->bytes, requests);
    }
    for (const Section section : kAllSections) {
        const auto s = static_cast<std::size_t>(section);
        for (int key = 1; key <= keyCount(section); ++key) {
            const ProfileValue* value = values.empty() ? nullptr : &values[s][static_cast<std::size_t>(key - 1)];
            std::string chosen = value != nullptr && value->hasValue
                                     ? entryText(section, value->text, file->windows1251)
                                     : std::string(fitToEntry(section, trimRight(table.defaultEntry(section, key))));
            if (section == Section::orvMenu) replaceMenuTab(chosen);
            table.setCurrent(section, key, chosen);
        }
    }
}

}  // namespace

std::optional<std::filesystem::path> LanguageFilePath(const std::filesystem::path& languageFolder,
                                                      std::string_view languageName) {
    const auto name = trimBoth(cutAtNul(languageName));
    if (name.empty() || name == "." || name == ".." || name.find_first_of("/\\") != std::string_view::npos) {
        return std::nullopt;
    }
    std::string fileName(name);
    if (!endsWithExtension(fileName)) fileName += kExtension;
    return languageFolder / fileName;
}

LanguageLoad LoadLanguage(LanguageTable& table, const std::filesystem::path& languageFolder,
                          std::string_view languageName) {
    try {
        const auto path = LanguageFilePath(languageFolder, languageName);
        std::optional<std::string> bytes;
        if (path) bytes = readLanguageBytes(*path);
        if (!bytes) {
            fillTable(table, nullptr);
            return path ? LanguageLoad::noFile : LanguageLoad::invalidName;
        }
        const LanguageText file = decodeLanguageBytes(std::move(*bytes));
        fillTable(table, &file);
        return LanguageLoad::fileRead;
    } catch (...) {
        // Out of memory on a monstrous file: the program still has its English texts.
        try {
            fillTable(table, nullptr);
        } catch (...) {
            table.resetToDefaults();
        }
        return LanguageLoad::noFile;
    }
}

LanguageLoad LoadLanguage(const std::filesystem::path& languageFolder, std::string_view languageName) {
    return LoadLanguage(programLanguage(), languageFolder, languageName);
}

}  // namespace orvane
