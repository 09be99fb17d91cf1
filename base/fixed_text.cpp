#include "base/fixed_text.h"

namespace orvane {

std::string_view cutAtNul(std::string_view text) {
    const auto nul = text.find('\0');
    return nul == std::string_view::npos ? text : text.substr(0, nul);
}

std::string_view trimRight(std::string_view text) {
    const auto last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view trimBoth(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return trimRight(text.substr(first));
}

std::string padTo(std::string_view text, std::size_t width) {
    std::string out(cutAtNul(text).substr(0, width));
    out.resize(width, ' ');
    return out;
}

std::string outgoing(std::string_view field) {
    return std::string(trimRight(cutAtNul(field)));
}

bool isBlank(std::string_view field) {
    return trimRight(cutAtNul(field)).empty();
}

std::string_view columnText(std::string_view line, std::size_t first, std::size_t last) {
    if (first == 0 || last < first || first > line.size()) return {};
    return line.substr(first - 1, last - first + 1);
}

std::string_view columnField(std::string_view line, std::size_t first, std::size_t last) {
    return trimBoth(columnText(line, first, last));
}

void putColumns(std::string& line, std::size_t first, std::string_view text) {
    if (first == 0) return;
    const std::size_t at = first - 1;
    if (line.size() < at + text.size()) line.resize(at + text.size(), ' ');
    line.replace(at, text.size(), text);
}

void blankTrailingZeros(std::span<char> field, std::size_t maxDigits) {
    std::size_t end = field.size();
    while (end > 0 && field[end - 1] == ' ') --end;
    std::size_t blanked = 0;
    while (blanked < maxDigits && end >= 2 && field[end - 1] == '0' &&
           field[end - 2] >= '0' && field[end - 2] <= '9') {
        // Only digits behind a point are decimals that may go.
        const std::string_view before(field.data(), end - 1);
        if (before.find('.') == std::string_view::npos) break;
        field[--end] = ' ';
        ++blanked;
    }
}

}  // namespace orvane
