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

}  // namespace orvane
