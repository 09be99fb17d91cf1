#include "tasks/coordinate_text.h"

#include <cmath>

#include "base/line_builder.h"

namespace orvane {

namespace {

struct Sexagesimal {
    bool negative = false;
    long long whole = 0;
    long long minutes = 0;
    double seconds = 0.0;
};

// Each part truncated; the seconds keep the rest and are rounded only by their form.
Sexagesimal split(double value) {
    Sexagesimal s;
    s.negative = std::signbit(value);
    const double v = std::fabs(value);
    s.whole = static_cast<long long>(std::trunc(v));
    const double minutes = (v - std::trunc(v)) * 60.0;
    s.minutes = static_cast<long long>(std::trunc(minutes));
    s.seconds = (minutes - std::trunc(minutes)) * 60.0;
    return s;
}

// I3 of the signed whole part, with the sign also for -0.
void appendWhole(LineBuilder& b, const Sexagesimal& s) {
    std::string field;  // three characters: no allocation
    LineBuilder(field).fieldI(s.whole, 3);
    if (s.negative) {
        const auto firstDigit = field.find_first_not_of(' ');
        if (firstDigit != std::string::npos && firstDigit > 0 && field[firstDigit] != '*') {
            field[firstDigit - 1] = '-';
        } else {
            field.assign(3, '*');
        }
    }
    b.text(field);
}

void appendSexagesimal(LineBuilder& b, const Sexagesimal& s, int secondsWidth, int secondsDecimals,
                       std::string_view first, std::string_view second, std::string_view third) {
    appendWhole(b, s);
    b.text(first).fieldIZero(s.minutes, 2).text(second).fieldFZero(s.seconds, secondsWidth, secondsDecimals).text(third);
}

std::string sexagesimal(const Sexagesimal& s, int secondsWidth, int secondsDecimals, std::string_view first,
                        std::string_view second, std::string_view third) {
    std::string text;
    LineBuilder b(text);
    appendSexagesimal(b, s, secondsWidth, secondsDecimals, first, second, third);
    return text;
}

}  // namespace

void AppendHours(LineBuilder& b, double hours) { appendSexagesimal(b, split(hours), 5, 2, " ", " ", ""); }

void AppendDegrees(LineBuilder& b, double degrees) { appendSexagesimal(b, split(degrees), 4, 1, " ", " ", ""); }

CoordinateText HoursText(double hours) {
    const Sexagesimal s = split(hours);
    return {sexagesimal(s, 5, 2, " ", " ", ""), sexagesimal(s, 5, 2, "h ", "m ", "s")};
}

CoordinateText DegreesText(double degrees, const TaskTexts& texts) {
    const Sexagesimal s = split(degrees);
    return {sexagesimal(s, 4, 1, " ", " ", ""),
            sexagesimal(s, 4, 1, texts.degreeSign + " ", texts.minuteSign + " ", texts.secondSign)};
}

}  // namespace orvane
