#pragma once
// round(x, n) as the catalogue view was written against it: the value is rendered
// with "%.*f" by SQLite's old printf (long double arithmetic, half a unit of the last
// place added to the magnitude, at most 16 significant digits, zeros after them) and
// read back by its old text-to-real conversion. The digits count is clamped to 0..30.
#include <string>
#include <string_view>

namespace orvane::sql {

// The "%.*f" text of `value` with `precision` digits after the point.
std::string legacyFixedText(double value, int precision);

// The value of a text of the form [blanks][sign]digits[.digits], accumulated digit
// by digit in long double; at most 18 significant digits after the point count.
double legacyTextToReal(std::string_view text);

// round(value, digits) of the view.
double legacyRound(double value, int digits);

}  // namespace orvane::sql
