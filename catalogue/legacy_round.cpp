#include "catalogue/legacy_round.h"

#include <cmath>

namespace orvane::sql {

namespace {

using Wide = long double;

// One digit of the normalised value, and the value moved on by one place. After 16
// digits the old printf writes zeros, whatever the value still holds.
char nextDigit(Wide& value, int& count) {
    if (count++ >= 16) {
        return '0';
    }
    const int digit = static_cast<int>(value);
    value = (value - static_cast<Wide>(digit)) * 10.0;
    return static_cast<char>('0' + digit);
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::string legacyFixedText(double value, int precision) {
    if (precision < 0) {
        precision = 6;
    }
    if (precision > 165) {
        precision = 165;
    }
    Wide real = value;
    std::string text;
    if (real < 0.0) {
        real = -real;
        text += '-';
    }
    Wide rounder = 0.5;
    for (int k = precision; k > 0; --k) {
        rounder *= 0.1;
    }
    real += rounder;
    if (std::isnan(real)) {
        return "NaN";
    }
    int exponent = 0;
    if (real > 0.0) {
        while (real >= 1e32 && exponent <= 350) {
            real *= 1e-32;
            exponent += 32;
        }
        while (real >= 1e8 && exponent <= 350) {
            real *= 1e-8;
            exponent += 8;
        }
        while (real >= 10.0 && exponent <= 350) {
            real *= 0.1;
            exponent++;
        }
        while (real < 1e-8 && exponent >= -350) {
            real *= 1e8;
            exponent -= 8;
        }
        while (real < 1.0 && exponent >= -350) {
            real *= 10.0;
            exponent--;
        }
        if (exponent > 350 || exponent < -350) {
            return text + "Inf";
        }
    }
    int count = 0;
    int place = exponent;
    if (place < 0) {
        text += '0';
    } else {
        for (; place >= 0; --place) {
            text += nextDigit(real, count);
        }
    }
    if (precision > 0) {
        text += '.';
    }
    for (++place; place < 0 && precision > 0; --precision, ++place) {
        text += '0';
    }
    while ((precision--) > 0) {
        text += nextDigit(real, count);
    }
    return text;
}

double legacyTextToReal(std::string_view text) {
    std::size_t k = 0;
    while (k < text.size() && (text[k] == ' ' || (text[k] >= '\t' && text[k] <= '\r'))) {
        ++k;
    }
    bool negative = false;
    if (k < text.size() && (text[k] == '-' || text[k] == '+')) {
        negative = text[k] == '-';
        ++k;
    }
    while (k < text.size() && text[k] == '0') {
        ++k;
    }
    Wide value = 0.0;
    int significant = 0;
    while (k < text.size() && isDigit(text[k])) {
        value = value * 10.0 + (text[k] - '0');
        ++k;
        ++significant;
    }
    if (k < text.size() && text[k] == '.') {
        Wide divisor = 1.0;
        ++k;
        if (significant == 0) {
            while (k < text.size() && text[k] == '0') {
                divisor *= 10.0;
                ++k;
            }
        }
        while (k < text.size() && isDigit(text[k])) {
            if (significant < 18) {
                value = value * 10.0 + (text[k] - '0');
                divisor *= 10.0;
                ++significant;
            }
            ++k;
        }
        value /= divisor;
    }
    return static_cast<double>(negative ? -value : value);
}

double legacyRound(double value, int digits) {
    if (digits > 30) {
        digits = 30;
    }
    if (digits < 0) {
        digits = 0;
    }
    return legacyTextToReal(legacyFixedText(value, digits));
}

}  // namespace orvane::sql
