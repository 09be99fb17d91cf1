#include "base/list_directed.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace orvane {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Position of the first non-digit at or after `at` (a plain loop: long tokens of
// hostile input pass through here).
std::size_t skipDigits(std::string_view text, std::size_t at) {
    const char* data = text.data();
    const std::size_t size = text.size();
    while (at < size && data[at] >= '0' && data[at] <= '9') ++at;
    return at;
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool equalsNoCase(std::string_view text, std::string_view word) {
    if (text.size() != word.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (lower(text[i]) != word[i]) return false;
    }
    return true;
}

// [sign] digits, within [low, high].
bool parseInteger(std::string_view token, std::int64_t low, std::int64_t high,
                  std::int64_t& value) {
    std::size_t i = 0;
    bool negative = false;
    if (i < token.size() && (token[i] == '+' || token[i] == '-')) negative = token[i++] == '-';
    if (i == token.size()) return false;
    // Magnitudes up to 2^63 fit; the range test below does the rest.
    const std::uint64_t limit = std::uint64_t{1} << 63;
    std::uint64_t magnitude = 0;
    for (; i < token.size(); ++i) {
        if (!isDigit(token[i])) return false;
        const auto digit = static_cast<std::uint64_t>(token[i] - '0');
        if (magnitude > (limit - digit) / 10) return false;
        magnitude = magnitude * 10 + digit;
    }
    if (negative) {
        if (magnitude > static_cast<std::uint64_t>(-(low + 1)) + 1) return false;
        value = magnitude == limit ? std::numeric_limits<std::int64_t>::min()
                                   : -static_cast<std::int64_t>(magnitude);
    } else {
        if (magnitude > static_cast<std::uint64_t>(high)) return false;
        value = static_cast<std::int64_t>(magnitude);
    }
    return true;
}

// Inf, Infinity, NaN and NaN(chars), any case, with an optional sign.
bool parseSpecialReal(std::string_view token, double& value) {
    bool negative = false;
    if (!token.empty() && (token[0] == '+' || token[0] == '-')) {
        negative = token[0] == '-';
        token.remove_prefix(1);
    }
    if (equalsNoCase(token, "inf") || equalsNoCase(token, "infinity")) {
        value = negative ? -std::numeric_limits<double>::infinity()
                         : std::numeric_limits<double>::infinity();
        return true;
    }
    if (token.size() >= 3 && equalsNoCase(token.substr(0, 3), "nan")) {
        const auto rest = token.substr(3);
        bool inner = true;
        if (!rest.empty()) {
            inner = rest.size() >= 2 && rest.front() == '(' && rest.back() == ')';
            for (std::size_t i = 1; inner && i + 1 < rest.size(); ++i) {
                const char c = rest[i];
                inner = isDigit(c) || (lower(c) >= 'a' && lower(c) <= 'z') || c == '_';
            }
        }
        if (!inner) return false;
        value = std::numeric_limits<double>::quiet_NaN();
        return true;
    }
    return false;
}

// The Fortran real forms: [sign] mantissa [exponent], where the mantissa has digits
// on at least one side of an optional point and the exponent is a letter E, D or Q
// with an optional sign, or a sign alone, followed by digits.
bool parseReal(std::string_view token, double& value) {
    if (parseSpecialReal(token, value)) return true;
    std::size_t i = 0;
    bool negative = false;
    if (i < token.size() && (token[i] == '+' || token[i] == '-')) negative = token[i++] == '-';
    const std::size_t mantissaStart = i;
    const std::size_t integerStart = i;
    i = skipDigits(token, i);
    std::size_t digits = i - integerStart;
    if (i < token.size() && token[i] == '.') {
        const std::size_t fractionStart = ++i;
        i = skipDigits(token, i);
        digits += i - fractionStart;
    }
    if (digits == 0) return false;
    const std::string_view mantissa = token.substr(mantissaStart, i - mantissaStart);
    std::int64_t exponent = 0;
    if (i < token.size()) {
        const char c = lower(token[i]);
        if (c == 'e' || c == 'd' || c == 'q') ++i;
        else if (c != '+' && c != '-') return false;
        bool negativeExponent = false;
        if (i < token.size() && (token[i] == '+' || token[i] == '-')) {
            negativeExponent = token[i++] == '-';
        }
        if (i == token.size()) return false;
        for (; i < token.size(); ++i) {
            if (!isDigit(token[i])) return false;
            // Far beyond the range of double whatever the mantissa: stop counting.
            if (exponent < 1'000'000'000) exponent = exponent * 10 + (token[i] - '0');
        }
        if (negativeExponent) exponent = -exponent;
    }

    // mantissa "e" exponent, in the C form that from_chars reads, free of the locale.
    char small[96];
    std::string large;
    char* buffer = small;
    const std::size_t needed = mantissa.size() + 16;
    if (needed > sizeof small) {
        large.resize(needed);
        buffer = large.data();
    }
    std::memcpy(buffer, mantissa.data(), mantissa.size());
    char* end = buffer + mantissa.size();
    *end++ = 'e';
    end = std::to_chars(end, buffer + needed, exponent).ptr;

    double magnitude = 0.0;
    const auto result = std::from_chars(buffer, end, magnitude);
    if (result.ec == std::errc::result_out_of_range) {
        // Decimal exponent of the leading digit decides: above the range of double it
        // is an infinity, below it zero.
        std::int64_t leading = exponent;
        const auto point = mantissa.find('.');
        const std::size_t integerDigits = point == std::string_view::npos ? mantissa.size() : point;
        const auto firstNonZero = mantissa.find_first_not_of("0.");
        if (firstNonZero == std::string_view::npos) {
            magnitude = 0.0;
        } else {
            if (firstNonZero < integerDigits) {
                leading += static_cast<std::int64_t>(integerDigits - firstNonZero);
            } else {
                leading -= static_cast<std::int64_t>(firstNonZero - integerDigits);
            }
            magnitude = leading > 0 ? std::numeric_limits<double>::infinity() : 0.0;
        }
    } else if (result.ec != std::errc() || result.ptr != end) {
        return false;
    }
    value = negative ? -magnitude : magnitude;
    return true;
}

void copyPadded(std::span<char> field, std::string_view value) {
    if (field.empty()) return;
    const std::size_t n = std::min(field.size(), value.size());
    if (n > 0) std::memcpy(field.data(), value.data(), n);
    std::memset(field.data() + n, ' ', field.size() - n);
}

}  // namespace

bool listFailed(ListStatus status) {
    return status != ListStatus::Ok && status != ListStatus::EndOfList;
}

ListTarget ListTarget::integer(std::int32_t& target) { return {Kind::Int32, &target, 0}; }
ListTarget ListTarget::integer(std::int64_t& target) { return {Kind::Int64, &target, 0}; }
ListTarget ListTarget::real(double& target) { return {Kind::Real, &target, 0}; }
ListTarget ListTarget::text(std::span<char> field) {
    return {Kind::Text, field.data(), field.size()};
}
ListTarget ListTarget::text(std::string& field, std::size_t width) {
    return {Kind::String, &field, width};
}

ListReader::ListReader(std::string_view text, ListOptions options)
    : text_(text), options_(options) {}

// A line ends at LF, at CR LF, or at a CR that ends the text.
bool ListReader::isLineEnd(std::size_t at) const {
    if (at >= text_.size() || text_[at] == '\n') return true;
    return text_[at] == '\r' && (at + 1 == text_.size() || text_[at + 1] == '\n');
}

std::size_t ListReader::nextLineStart(std::size_t at) const {
    const auto lf = text_.find('\n', at);
    return lf == std::string_view::npos ? text_.size() : lf + 1;
}

std::size_t ListReader::tokenEnd(std::size_t at) const {
    // Blank, tab, comma, slash, LF and CR may end a token; a CR only at a line end.
    static constexpr auto stops = [] {
        std::array<bool, 256> table{};
        for (const unsigned char c : {' ', '\t', ',', '/', '\n', '\r'}) table[c] = true;
        return table;
    }();
    const std::size_t size = text_.size();
    const char* data = text_.data();
    for (; at < size; ++at) {
        const auto c = static_cast<unsigned char>(data[at]);
        if (stops[c] && (c != '\r' || isLineEnd(at))) break;
    }
    return at;
}

bool ListReader::atSeparator(std::size_t at) const {
    if (at >= text_.size()) return true;
    const char c = text_[at];
    return isBlank(c) || c == ',' || c == '/' || isLineEnd(at);
}

void ListReader::skipBlanks() {
    while (pos_ < text_.size() && isBlank(text_[pos_])) ++pos_;
}

// Blanks and line ends, empty lines included. False at the end of the text.
bool ListReader::skipBlanksAndLines() {
    for (;;) {
        skipBlanks();
        if (pos_ >= text_.size()) return false;
        if (!isLineEnd(pos_)) return true;
        pos_ = nextLineStart(pos_);
        ++line_;
    }
}

ListStatus ListReader::startItem() {
    if (needSeparator_) {
        // Blanks around one comma, across a line end too, are one separator.
        if (skipBlanksAndLines() && text_[pos_] == ',') ++pos_;
        needSeparator_ = false;
    }
    if (!skipBlanksAndLines()) return ListStatus::EndOfText;
    return ListStatus::Ok;
}

ListStatus ListReader::read(const ListTarget& target) {
    if (sticky_ != ListStatus::Ok) return sticky_;
    if (repeatLeft_ > 0) return readRepeated(target);

    auto status = startItem();
    if (status != ListStatus::Ok) return sticky_ = status;
    const char first = text_[pos_];
    if (first == ',') {
        ++pos_;
        ++items_;
        return ListStatus::Ok;
    }
    if (first == '/') return sticky_ = ListStatus::EndOfList;

    std::size_t start = pos_;
    if (options_.repeatCounts) {
        status = startRepeat(start);
        if (status != ListStatus::Ok) return sticky_ = status;
        if (start != pos_ && repeatNull_) {
            // r* with nothing behind it: the first of r null values.
            pos_ = start;
            needSeparator_ = true;
            ++items_;
            return ListStatus::Ok;
        }
    }

    std::size_t end = start;
    status = assign(target, start, end);
    if (status != ListStatus::Ok) {
        repeatLeft_ = 0;
        return sticky_ = status;
    }
    line_ += static_cast<int>(std::count(text_.begin() + static_cast<std::ptrdiff_t>(pos_),
                                         text_.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
    pos_ = end;
    needSeparator_ = true;
    ++items_;
    return ListStatus::Ok;
}

// "r*c" or "r*" at the reader's position: moves `start` behind the star and keeps
// the count of the repetitions still to come. Without a repeat count nothing changes.
ListStatus ListReader::startRepeat(std::size_t& start) {
    const std::size_t star = skipDigits(text_, pos_);
    if (star == pos_ || star >= text_.size() || text_[star] != '*') return ListStatus::Ok;
    std::int64_t count = 0;
    for (std::size_t i = pos_; i < star && count <= std::numeric_limits<std::int32_t>::max(); ++i) {
        count = count * 10 + (text_[i] - '0');
    }
    if (count == 0 || count > std::numeric_limits<std::int32_t>::max()) return ListStatus::BadRepeat;
    start = star + 1;
    repeatLeft_ = count - 1;
    repeatNull_ = atSeparator(start);
    repeatStart_ = start;
    return ListStatus::Ok;
}

// The second and later appearances of a repeated value: its constant is read again
// for each target, as if it stood there r times.
ListStatus ListReader::readRepeated(const ListTarget& target) {
    --repeatLeft_;
    if (!repeatNull_) {
        std::size_t end = 0;
        const auto status = assign(target, repeatStart_, end);
        if (status != ListStatus::Ok) return sticky_ = status;
    }
    ++items_;
    return ListStatus::Ok;
}

ListStatus ListReader::assign(const ListTarget& target, std::size_t start, std::size_t& end) {
    if (target.kind_ == ListTarget::Kind::Text || target.kind_ == ListTarget::Kind::String) {
        return assignText(target, start, end);
    }
    end = tokenEnd(start);
    const std::string_view token = text_.substr(start, end - start);
    switch (target.kind_) {
        case ListTarget::Kind::Int32: {
            std::int64_t value = 0;
            if (!parseInteger(token, std::numeric_limits<std::int32_t>::min(),
                              std::numeric_limits<std::int32_t>::max(), value)) {
                return ListStatus::BadInteger;
            }
            *static_cast<std::int32_t*>(target.target_) = static_cast<std::int32_t>(value);
            return ListStatus::Ok;
        }
        case ListTarget::Kind::Int64: {
            std::int64_t value = 0;
            if (!parseInteger(token, std::numeric_limits<std::int64_t>::min(),
                              std::numeric_limits<std::int64_t>::max(), value)) {
                return ListStatus::BadInteger;
            }
            *static_cast<std::int64_t*>(target.target_) = value;
            return ListStatus::Ok;
        }
        case ListTarget::Kind::Real: {
            double value = 0.0;
            if (!parseReal(token, value)) return ListStatus::BadReal;
            *static_cast<double*>(target.target_) = value;
            return ListStatus::Ok;
        }
        default:
            return ListStatus::BadText;
    }
}

// Text values. A quoted one is walked twice: once to find its end and check what
// follows, once to copy, so that a malformed text leaves the field as it was.
ListStatus ListReader::assignText(const ListTarget& target, std::size_t start,
                                  std::size_t& end) {
    std::span<char> field;
    if (target.kind_ == ListTarget::Kind::Text) {
        field = {static_cast<char*>(target.target_), target.width_};
    }
    auto store = [&](auto&& copyInto) {
        if (target.kind_ == ListTarget::Kind::String) {
            auto& text = *static_cast<std::string*>(target.target_);
            text.assign(target.width_, ' ');
            field = {text.data(), text.size()};
        }
        if (field.empty()) return;
        std::memset(field.data(), ' ', field.size());
        copyInto(field);
    };

    const char quote = text_[start];
    if (quote != '\'' && quote != '"') {
        end = tokenEnd(start);
        const std::string_view value = text_.substr(start, end - start);
        store([&](std::span<char> f) { copyPadded(f, value); });
        return ListStatus::Ok;
    }

    // Calls emit(run) for each run of characters of the quoted value; returns the
    // position after the closing quote, or npos when the text ends first.
    const char stops[] = {quote, '\n', '\r'};
    const std::string_view stopSet(stops, sizeof stops);
    auto walk = [&](auto&& emit) -> std::size_t {
        std::size_t at = start + 1;
        for (;;) {
            const std::size_t stop = std::min(text_.find_first_of(stopSet, at), text_.size());
            if (stop > at) emit(text_.substr(at, stop - at));
            at = stop;
            if (at >= text_.size()) return std::string_view::npos;
            if (text_[at] != quote) {
                // A line end adds nothing; a CR inside a line is a character.
                if (isLineEnd(at)) {
                    at = nextLineStart(at);
                } else {
                    emit(text_.substr(at, 1));
                    ++at;
                }
                continue;
            }
            if (at + 1 < text_.size() && text_[at + 1] == quote) {
                emit(text_.substr(at, 1));
                at += 2;
                continue;
            }
            return at + 1;
        }
    };
    const std::size_t after = walk([](std::string_view) {});
    if (after == std::string_view::npos) return ListStatus::EndOfText;
    if (!atSeparator(after)) return ListStatus::BadText;
    store([&](std::span<char> f) {
        std::size_t n = 0;
        walk([&](std::string_view run) {
            if (n < f.size()) {
                const std::size_t count = std::min(run.size(), f.size() - n);
                std::memcpy(f.data() + n, run.data(), count);
            }
            n += run.size();
        });
    });
    end = after;
    return ListStatus::Ok;
}

void ListReader::nextRecord() {
    if (pos_ < text_.size()) {
        const std::size_t next = nextLineStart(pos_);
        if (next > 0 && text_[next - 1] == '\n') ++line_;
        pos_ = next;
    }
    items_ = 0;
    needSeparator_ = false;
    sticky_ = ListStatus::Ok;
    repeatLeft_ = 0;
    repeatNull_ = false;
}

ListResult readList(ListReader& reader, std::span<const ListTarget> targets) {
    ListResult result;
    for (const auto& target : targets) {
        result.status = reader.read(target);
        if (result.status != ListStatus::Ok) break;
    }
    result.itemsRead = reader.itemsRead();
    return result;
}

void appendQuotedItem(std::string& out, std::string_view value) {
    out += '\'';
    for (const char c : value) {
        if (c == '\'') out += '\'';
        out += c;
    }
    out += '\'';
}

}  // namespace orvane
