#include "catalogue/sql_text.h"

#include "base/fixed_text.h"

namespace orvane::sql {

std::string toSqlText(std::string_view field) {
    // The NUL goes behind the last non-blank byte; an earlier NUL still ends the
    // text for SQLite, together with any blanks that stood before it. So the
    // blanks go first and the NUL cuts second, the other way round from a field
    // handed to the rest of the program.
    return std::string(cutAtNul(trimRight(field)));
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

std::string padText(std::string_view text, std::size_t width) { return padTo(text, width); }

std::string_view trimRightText(std::string_view text) { return trimRight(cutAtNul(text)); }

std::string_view trimText(std::string_view text) { return trimBoth(cutAtNul(text)); }

}  // namespace orvane::sql
