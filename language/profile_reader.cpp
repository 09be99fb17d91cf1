#include "language/profile_reader.h"

#include <cstddef>
#include <optional>

#include "base/fixed_text.h"

namespace orvane {
namespace {

// The blanks that the profile functions drop around names and values; 0x1A is the
// end-of-file mark of old editors.
constexpr std::string_view kBlanks = " \t\v\f\x1a";

std::string_view trimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(kBlanks);
    return text.substr(first, last - first + 1);
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    const auto lower = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; };
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lower(a[i]) != lower(b[i])) return false;
    }
    return true;
}

// The key number written as the files write it, or nothing.
std::optional<int> keyNumber(std::string_view name, int count) {
    if (name.empty() || name.size() > 9 || name[0] == '0') return std::nullopt;
    int number = 0;
    for (const char c : name) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + (c - '0');
    }
    if (number < 1 || number > count) return std::nullopt;
    return number;
}

std::string_view stripMatchingQuotes(std::string_view value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front()) {
        return value.substr(1, value.size() - 2);
    }
    return value;
}

// The request a section header selects, or -1: unknown names and repeats select none.
int selectSection(std::string_view name, std::span<const ProfileSectionRequest> sections,
                  std::vector<bool>& seen) {
    for (std::size_t s = 0; s < sections.size(); ++s) {
        if (!equalsIgnoringCase(name, sections[s].name)) continue;
        if (seen[s]) return -1;
        seen[s] = true;
        return static_cast<int>(s);
    }
    return -1;
}

void readKeyLine(std::string_view line, const ProfileSectionRequest& section, std::vector<ProfileValue>& values) {
    const auto equals = line.find('=');
    const auto name = trimBlanks(line.substr(0, equals));
    const auto number = keyNumber(name, section.keys);
    if (!number) return;
    ProfileValue& value = values[static_cast<std::size_t>(*number - 1)];
    if (value.present) return;
    value.present = true;
    if (equals == std::string_view::npos) return;
    value.hasValue = true;
    value.text = stripMatchingQuotes(trimBlanks(line.substr(equals + 1)));
}

}  // namespace

std::vector<std::vector<ProfileValue>> ReadNumberedKeys(std::string_view fileText,
                                                        std::span<const ProfileSectionRequest> sections) {
    std::vector<std::vector<ProfileValue>> values(sections.size());
    for (std::size_t s = 0; s < sections.size(); ++s) {
        values[s].resize(static_cast<std::size_t>(sections[s].keys > 0 ? sections[s].keys : 0));
    }
    std::vector<bool> seen(sections.size(), false);
    int current = -1;

    std::size_t position = 0;
    while (position < fileText.size()) {
        auto end = fileText.find_first_of("\r\n", position);
        if (end == std::string_view::npos) end = fileText.size();
        const auto line = trimBlanks(cutAtNul(fileText.substr(position, end - position)));
        position = end + 1;

        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[') {
            const auto close = line.rfind(']');
            if (close == std::string_view::npos) continue;
            current = selectSection(trimBlanks(line.substr(1, close - 1)), sections, seen);
            continue;
        }
        if (current >= 0) {
            const auto index = static_cast<std::size_t>(current);
            readKeyLine(line, sections[index], values[index]);
        }
    }
    return values;
}

}  // namespace orvane
