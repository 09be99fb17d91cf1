#pragma once
// Assembles a text line from fixed-width fields, appending to a string the caller
// keeps from line to line, so that writing a table costs no allocation per line once
// the string has grown to the longest line.
//
//   std::string line;                     // kept by the writer
//   line.clear();
//   LineBuilder(line).fieldIZero(month, 2).text("-").fieldFZero(day, 11, 8);
//
// The numeric fields follow fortran_format.h.
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace orvane {

// The day, month and minute fields of dates are written with a leading zero: a
// blank in the first place of the field becomes "0" (" 5" -> "05").
void leadingBlankToZero(std::span<char> field);

class LineBuilder {
public:
    explicit LineBuilder(std::string& line) : line_(line) {}

    std::size_t size() const { return line_.size(); }

    LineBuilder& text(std::string_view text);
    LineBuilder& blanks(std::size_t count);
    // Right-aligned in width; a longer text keeps its first width characters, as an
    // A edit descriptor writes it.
    LineBuilder& right(std::string_view text, std::size_t width);
    // Left-aligned in width, blank padded at the right; a longer text is cut.
    LineBuilder& left(std::string_view text, std::size_t width);
    // Blanks up to the end of a field that began at `start` and is `width` wide: a
    // number written narrower than its column ("E21.15 in a field of 23") is filled
    // at the right.
    LineBuilder& padFrom(std::size_t start, std::size_t width);
    // The text appended since `start`, its leading blanks dropped, right-aligned in
    // width as right() aligns a text, in place: a column built from its parts.
    LineBuilder& rightAlignFrom(std::size_t start, std::size_t width);

    LineBuilder& fieldI(long long value, int w);
    LineBuilder& fieldF(double value, int w, int d);
    LineBuilder& fieldE(double value, int w, int d);
    LineBuilder& fieldES(double value, int w, int d);
    // I and F with a leading blank made "0".
    LineBuilder& fieldIZero(long long value, int w);
    LineBuilder& fieldFZero(double value, int w, int d);
    // Iw with its leading blanks removed (a value too wide stays w asterisks).
    LineBuilder& fieldITrimmed(long long value, int w);

private:
    std::span<char> lastField(int w);
    std::string& line_;
};

}  // namespace orvane
