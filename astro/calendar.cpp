#include "astro/calendar.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace orvane {

namespace {

// The date arithmetic is 32-bit signed with truncating division. Products are
// formed in 64 bits and wrapped back, so that an absurd year read from a record
// gives a wrong date instead of undefined behaviour.
std::int32_t Wrap32(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

// Truncation of a double to 32 bits, saturating where the value does not fit.
std::int32_t TruncTo32(double value) {
    if (std::isnan(value)) return 0;
    if (value >= 2147483647.0) return std::numeric_limits<std::int32_t>::max();
    if (value <= -2147483648.0) return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(value);
}

// Integer division of 32-bit values truncating toward zero; INT_MIN / -1 cannot occur
// with the positive divisors used here.
std::int32_t Div(std::int32_t a, std::int32_t b) { return a / b; }
std::int32_t Rem(std::int32_t a, std::int32_t b) { return a % b; }

}  // namespace

JulianDate CalendarToJulian(int year, int month, double day) {
    const std::int32_t e = (month == 1 || month == 2) ? 1 : 0;
    const std::int32_t M = Wrap32(std::int64_t{month} + 12 * e);
    // For months 1 to 12 the last term is 0; it is part of the formula all the same.
    const std::int32_t y = Wrap32(std::int64_t{year} - e - Div(Wrap32(14 - std::int64_t{M}), 12));
    const std::int32_t n = Wrap32(1461 * std::int64_t{y} + 6890076);
    const std::int32_t m = Wrap32(std::int64_t{Rem(Wrap32(std::int64_t{M} - 3), 12)} * 153 + 2);

    // The ten dropped days of the reform, fractions included, all fall on 1582-10-15 0h.
    // The test is on the whole day, so 4.9 (a time on the 4th) stays as it is.
    if (year == 1582 && month == 10 && std::trunc(day) > 4.0) day = std::fmax(day, 15.0);

    const double jd = static_cast<double>(Div(m, 5)) + static_cast<double>(Div(n, 4)) - 1401.0 - 0.5 - 1.0 + day;
    // The calendar is chosen by the computed instant, not by the date fields.
    if (jd < kGregorianReform) return jd;
    const std::int32_t century = Div(Wrap32(std::int64_t{y} + 4900), 100);
    const std::int32_t correction = Wrap32(std::int64_t{Div(Wrap32(std::int64_t{century} * 3), 4)} - 38);
    return jd - static_cast<double>(correction);
}

CalendarDate JulianToCalendar(JulianDate jd) {
    // The last Julian day is moved forward to the first Gregorian instant.
    if (jd > 2299159.5 && jd < kGregorianReform) jd = kGregorianReform;

    double w;
    if (jd >= kGregorianReform) {
        // The count of Gregorian centuries is taken from the day number (the whole day
        // that holds the instant, counted from noon), so that it steps at midnight of
        // March 1 in the century years. Counted from the instant itself it would step at
        // 0h, 6h, 12h or 18h and give back "February 29" of 1800, 1900, 2200 ... or
        // March 1 for the end of February 28 of 2100.
        const double dayNumber = std::trunc(jd + 0.5);
        w = jd - 38.0 + 1401.5 + std::trunc(std::trunc((dayNumber + 68569.0) / 36524.25) * 3.0 * 0.25);
    } else {
        w = 1401.5 + jd;
    }
    const double whole = std::trunc(w);
    const std::int32_t a = Wrap32(4 * std::int64_t{TruncTo32(w)} + 3);
    const std::int32_t b = Rem(a, 1461);
    const std::int32_t c = Wrap32(5 * std::int64_t{Div(b, 4)} + 2);

    CalendarDate date;
    date.day = static_cast<double>(Div(Rem(c, 153), 5)) + 1.0 + (w - whole);
    const std::int32_t k = Rem(Wrap32(std::int64_t{Div(c, 153)} + 2), 12);
    date.month = k + 1;
    date.year = Wrap32(std::int64_t{Div(14 - date.month, 12)} + Div(a, 1461) - 4716);
    return date;
}

double SexagesimalToDecimal(char signChar, int degrees, int minutes, double seconds) {
    // Magnitudes first: a sign carried by the numbers themselves is dropped.
    const double sign = (signChar == '-') ? -1.0 : 1.0;
    return sign * (std::fabs(static_cast<double>(degrees)) + std::fabs(static_cast<double>(minutes)) / 60.0 +
                   std::fabs(seconds) / 3600.0);
}

DayTime SplitDayFraction(double fraction) {
    DayTime t;
    double rest = fraction * 24.0;
    t.hours = TruncTo32(rest);
    rest = (rest - std::trunc(rest)) * 60.0;
    t.minutes = TruncTo32(rest);
    rest = (rest - std::trunc(rest)) * 60.0;
    t.seconds = TruncTo32(rest);
    return t;
}

std::string TwoColumnsZeroFilled(int value) {
    if (value > 99 || value < -9) return "**";
    std::string text(2, '0');
    if (value < 0) {
        text[0] = '-';
        text[1] = static_cast<char>('0' - value);
    } else {
        text[0] = static_cast<char>('0' + value / 10);
        text[1] = static_cast<char>('0' + value % 10);
    }
    return text;
}

}  // namespace orvane
