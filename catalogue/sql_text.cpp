#include "catalogue/sql_text.h"

namespace orvane::sql {

namespace {

std::string_view cutAtNul(std::string_view text) {
    const std::size_t nul = text.find('\0');
    return nul == std::string_view::npos ? text : text.substr(0, nul);
}

std::string_view withoutTrailingBlanks(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

}  // namespace

std::string toSqlText(std::string_view field) {
    // The NUL goes behind the last non-blank byte; an earlier NUL still ends the
    // text for SQLite, together with any blanks that stood before it.
    return std::string(cutAtNul(withoutTrailingBlanks(field)));
}

std::string fromSqlText(const char* text, std::size_t width) {
    std::string field(width, ' ');
    if (text != nullptr) {
        for (std::size_t k = 0; k < width && text[k] != '\0'; ++k) {
            field[k] = text[k];
        }
    }
    return field;
}

std::string padText(std::string_view text, std::size_t width) {
    std::string field(cutAtNul(text).substr(0, width));
    field.resize(width, ' ');
    return field;
}

std::string_view trimRightText(std::string_view text) {
    return withoutTrailingBlanks(cutAtNul(text));
}

std::string_view trimText(std::string_view text) {
    std::string_view kept = trimRightText(text);
    const std::size_t first = kept.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : kept.substr(first);
}

}  // namespace orvane::sql
