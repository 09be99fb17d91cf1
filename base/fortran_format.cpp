#include "base/fortran_format.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

namespace orvane {
namespace {

void fillStars(std::span<char> field) {
    if (!field.empty()) std::memset(field.data(), '*', field.size());
}

// Right-aligns the pieces in the field, blanks in front.
void putRight(std::span<char> field, std::initializer_list<std::string_view> pieces) {
    std::size_t length = 0;
    for (const auto piece : pieces) length += piece.size();
    if (length > field.size()) {
        fillStars(field);
        return;
    }
    if (field.empty()) return;
    char* at = field.data();
    const std::size_t blanks = field.size() - length;
    std::memset(at, ' ', blanks);
    at += blanks;
    for (const auto piece : pieces) {
        // An empty piece may have no storage at all.
        if (piece.empty()) continue;
        std::memcpy(at, piece.data(), piece.size());
        at += piece.size();
    }
}

bool widthUsable(std::span<char> field) {
    return field.size() <= static_cast<std::size_t>(kMaxFieldWidth);
}

// NaN and infinity as the Fortran run time writes them in F, E and ES fields.
void putNonFinite(std::span<char> field, double value) {
    const std::size_t w = field.size();
    if (std::isnan(value)) {
        putRight(field, {"NaN"});
    } else if (std::signbit(value)) {
        putRight(field, {w >= 9 ? "-Infinity" : "-Inf"});
    } else {
        putRight(field, {w >= 8 ? "Infinity" : "Inf"});
    }
}

std::string_view signOf(double value) {
    return std::signbit(value) ? std::string_view("-") : std::string_view();
}

// The exponent part of E and ES: "E+05", "E-12", and without the letter when it
// needs three digits: "+101".
std::string_view exponentText(int exponent, char (&buffer)[8]) {
    char* at = buffer;
    const int magnitude = exponent < 0 ? -exponent : exponent;
    if (magnitude <= 99) *at++ = 'E';
    *at++ = exponent < 0 ? '-' : '+';
    if (magnitude > 99) *at++ = static_cast<char>('0' + magnitude / 100);
    *at++ = static_cast<char>('0' + magnitude / 10 % 10);
    *at++ = static_cast<char>('0' + magnitude % 10);
    return {buffer, static_cast<std::size_t>(at - buffer)};
}

// Scientific digits of |value| rounded to `digits` significant digits: the digits
// without the point, and the decimal exponent of the first one (d.ddd x 10^e).
struct Scientific {
    char digits[24 + kMaxFieldWidth];
    std::size_t count = 0;
    int exponent = 0;
};

void scientificDigits(double magnitude, int digits, Scientific& out) {
    char text[40 + kMaxFieldWidth];
    const auto result = std::to_chars(text, text + sizeof text, magnitude,
                                      std::chars_format::scientific, digits - 1);
    const std::string_view all(text, static_cast<std::size_t>(result.ptr - text));
    const auto e = all.find('e');
    out.count = 0;
    for (const char c : all.substr(0, e)) {
        if (c != '.') out.digits[out.count++] = c;
    }
    int exponent = 0;
    const auto exponentPart = all.substr(e + 1);
    const char* first = exponentPart.data();
    if (*first == '+') ++first;
    std::from_chars(first, exponentPart.data() + exponentPart.size(), exponent);
    out.exponent = exponent;
}

}  // namespace

void putI(std::span<char> field, long long value) {
    if (!widthUsable(field)) {
        fillStars(field);
        return;
    }
    char text[24];
    const auto result = std::to_chars(text, text + sizeof text, value);
    putRight(field, {std::string_view(text, static_cast<std::size_t>(result.ptr - text))});
}

void putF(std::span<char> field, double value, int d) {
    const std::size_t w = field.size();
    if (!widthUsable(field) || d < 0 || static_cast<std::size_t>(d) >= w + 1) {
        fillStars(field);
        return;
    }
    if (!std::isfinite(value)) {
        putNonFinite(field, value);
        return;
    }
    const double magnitude = std::fabs(value);
    // No field of kMaxFieldWidth holds the integer digits of such a value.
    if (magnitude >= 1e256) {
        fillStars(field);
        return;
    }
    char text[300 + kMaxFieldWidth];
    const auto result =
        std::to_chars(text, text + sizeof text, magnitude, std::chars_format::fixed, d);
    const std::string_view all(text, static_cast<std::size_t>(result.ptr - text));
    const auto point = all.find('.');
    const std::string_view integer = all.substr(0, point);
    const std::string_view decimals =
        point == std::string_view::npos ? std::string_view() : all.substr(point + 1);
    const std::string_view sign = signOf(value);
    // The zero before the point is optional: it goes when the field is too narrow,
    // but a lone point is never written.
    const bool optionalZero = integer == "0" && d > 0;
    const std::size_t full = sign.size() + integer.size() + 1 + decimals.size();
    if (full <= w) {
        putRight(field, {sign, integer, ".", decimals});
    } else if (optionalZero && full - 1 <= w) {
        putRight(field, {sign, ".", decimals});
    } else {
        fillStars(field);
    }
}

namespace {

// What E and ES share before their digits: a width or a d that cannot hold the
// form fills the field with stars, infinities and NaN have their own texts. True
// when the field is done.
bool scientificFieldDone(std::span<char> field, double value, int d, int smallestD) {
    if (!widthUsable(field) || d < smallestD || static_cast<std::size_t>(d) >= field.size()) {
        fillStars(field);
        return true;
    }
    if (!std::isfinite(value)) {
        putNonFinite(field, value);
        return true;
    }
    return false;
}

}  // namespace

void putE(std::span<char> field, double value, int d) {
    const std::size_t w = field.size();
    if (scientificFieldDone(field, value, d, 1)) return;
    Scientific sci;
    const double magnitude = std::fabs(value);
    scientificDigits(magnitude, d, sci);
    // 0.d1d2... shifts the exponent by one; zero keeps the exponent 0.
    const int exponent = magnitude == 0.0 ? 0 : sci.exponent + 1;
    char exponentBuffer[8];
    const std::string_view exponentPart = exponentText(exponent, exponentBuffer);
    const std::string_view digits(sci.digits, sci.count);
    const std::string_view sign = signOf(value);
    const std::size_t full = sign.size() + 2 + digits.size() + exponentPart.size();
    if (full <= w) {
        putRight(field, {sign, "0.", digits, exponentPart});
    } else if (full - 1 <= w) {
        putRight(field, {sign, ".", digits, exponentPart});
    } else {
        fillStars(field);
    }
}

void putES(std::span<char> field, double value, int d) {
    if (scientificFieldDone(field, value, d, 0)) return;
    Scientific sci;
    const double magnitude = std::fabs(value);
    scientificDigits(magnitude, d + 1, sci);
    char exponentBuffer[8];
    const std::string_view exponentPart = exponentText(sci.exponent, exponentBuffer);
    const std::string_view digits(sci.digits, sci.count);
    putRight(field, {signOf(value), digits.substr(0, 1), ".", digits.substr(1), exponentPart});
}

namespace {

std::span<char> grow(std::string& out, int w) {
    const std::size_t at = out.size();
    const std::size_t width = w > 0 ? static_cast<std::size_t>(w) : 0;
    out.resize(at + width);
    return {out.data() + at, width};
}

}  // namespace

void appendI(std::string& out, long long value, int w) { putI(grow(out, w), value); }
void appendF(std::string& out, double value, int w, int d) { putF(grow(out, w), value, d); }
void appendE(std::string& out, double value, int w, int d) { putE(grow(out, w), value, d); }
void appendES(std::string& out, double value, int w, int d) { putES(grow(out, w), value, d); }

std::string formatI(long long value, int w) {
    std::string out;
    appendI(out, value, w);
    return out;
}

std::string formatF(double value, int w, int d) {
    std::string out;
    appendF(out, value, w, d);
    return out;
}

std::string formatE(double value, int w, int d) {
    std::string out;
    appendE(out, value, w, d);
    return out;
}

std::string formatES(double value, int w, int d) {
    std::string out;
    appendES(out, value, w, d);
    return out;
}

}  // namespace orvane
