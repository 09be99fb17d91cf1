#include "language/text_encoding.h"

#include <array>

namespace orvane {
namespace {

// Length of the valid UTF-8 sequence at the start of `bytes`, or 0 when it is not one.
std::size_t sequenceLength(std::string_view bytes) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    std::size_t length = 0;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0) low = 0xA0;   // overlong
        if (lead == 0xED) high = 0x9F;  // surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0) low = 0x90;   // overlong
        if (lead == 0xF4) high = 0x8F;  // above U+10FFFF
    } else {
        return 0;
    }
    if (bytes.size() < length) return 0;
    if (byte(1) < low || byte(1) > high) return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (byte(i) < 0x80 || byte(i) > 0xBF) return 0;
    }
    return length;
}

// Code points of the bytes 0x80 to 0xBF of Windows-1251; 0xC0 to 0xFF are
// U+0410 to U+044F in order.
constexpr std::array<char16_t, 64> kWindows1251High{
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021,
    0x20AC, 0x2030, 0x0409, 0x2039, 0x040A, 0x040C, 0x040B, 0x040F,
    0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0xFFFD, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F,
    0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6, 0x00A7,
    0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407,
    0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7,
    0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457,
};

}  // namespace

bool isValidUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = sequenceLength(bytes);
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

void appendUtf8(std::string& out, char32_t codePoint) {
    if ((codePoint >= 0xD800 && codePoint <= 0xDFFF) || codePoint > 0x10FFFF) codePoint = 0xFFFD;
    if (codePoint < 0x80) {
        out.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (codePoint >> 6)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else if (codePoint < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (codePoint >> 12)));
        out.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (codePoint >> 18)));
        out.push_back(static_cast<char>(0x80 | ((codePoint >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    }
}

std::string windows1251ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            out.push_back(c);
        } else if (byte < 0xC0) {
            appendUtf8(out, kWindows1251High[byte - 0x80]);
        } else {
            appendUtf8(out, 0x0410 + (byte - 0xC0));
        }
    }
    return out;
}

std::string utf16ToUtf8(std::string_view bytes, bool bigEndian) {
    std::string out;
    out.reserve(bytes.size());
    const auto unitAt = [&](std::size_t i) -> char32_t {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        return bigEndian ? static_cast<char32_t>((first << 8) | second)
                         : static_cast<char32_t>((second << 8) | first);
    };
    const std::size_t units = bytes.size() / 2;
    for (std::size_t u = 0; u < units; ++u) {
        const char32_t unit = unitAt(2 * u);
        if (unit >= 0xD800 && unit <= 0xDBFF && u + 1 < units) {
            const char32_t next = unitAt(2 * (u + 1));
            if (next >= 0xDC00 && next <= 0xDFFF) {
                appendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
                ++u;
                continue;
            }
        }
        appendUtf8(out, unit);  // a lone surrogate turns into U+FFFD there
    }
    if (bytes.size() % 2 != 0) appendUtf8(out, 0xFFFD);
    return out;
}

std::string_view firstCharacters(std::string_view utf8, std::size_t count) {
    std::size_t end = 0;
    for (std::size_t taken = 0; taken < count && end < utf8.size(); ++taken) {
        const std::size_t length = sequenceLength(utf8.substr(end));
        end += length == 0 ? 1 : length;
    }
    return utf8.substr(0, end);
}

std::size_t characterCount(std::string_view utf8) {
    std::size_t count = 0;
    while (!utf8.empty()) {
        const std::size_t length = sequenceLength(utf8);
        utf8.remove_prefix(length == 0 ? 1 : length);
        ++count;
    }
    return count;
}

}  // namespace orvane
