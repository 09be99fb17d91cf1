#include "records/number_text.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace orvane {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t skipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && isDigit(text[at])) ++at;
    return at;
}

}  // namespace

bool readStrictInteger(std::string_view text, std::int32_t& value) {
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t digits = at;
    at = skipDigits(text, at);
    if (at == digits || at != text.size()) return false;
    long long result = 0;
    for (std::size_t k = digits; k < text.size(); ++k) {
        result = result * 10 + (text[k] - '0');
        if (result > static_cast<long long>(std::numeric_limits<std::int32_t>::max()) + 1) return false;
    }
    if (text[0] == '-') result = -result;
    if (result < std::numeric_limits<std::int32_t>::min() ||
        result > std::numeric_limits<std::int32_t>::max()) {
        return false;
    }
    value = static_cast<std::int32_t>(result);
    return true;
}

bool readStrictReal(std::string_view text, double& value) {
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t intStart = at;
    at = skipDigits(text, at);
    std::size_t mantissaDigits = at - intStart;
    if (at < text.size() && text[at] == '.') {
        const std::size_t fracStart = ++at;
        at = skipDigits(text, at);
        mantissaDigits += at - fracStart;
    }
    if (mantissaDigits == 0) return false;
    std::string copy(text.substr(0, at));
    if (at < text.size()) {
        const char letter = text[at];
        if (letter != 'e' && letter != 'E' && letter != 'd' && letter != 'D') return false;
        ++at;
        std::size_t expStart = at;
        if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
        const std::size_t expDigits = at;
        at = skipDigits(text, at);
        if (at == expDigits || at != text.size()) return false;
        copy += 'e';
        copy.append(text.substr(expStart));
    }
    errno = 0;
    char* end = nullptr;
    const double result = std::strtod(copy.c_str(), &end);
    if (end != copy.c_str() + copy.size() || !std::isfinite(result)) return false;
    value = result;
    return true;
}

std::string integerText(long long value) { return std::to_string(value); }

}  // namespace orvane
