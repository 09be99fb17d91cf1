#pragma once
// Calendar dates and Julian dates. Proleptic Julian calendar up to 1582-10-04,
// Gregorian from 1582-10-15, astronomical year numbering (year 0 exists).
#include <string>

namespace orvane {

// A Julian date in days; the program never attaches a scale to it.
using JulianDate = double;

// The first Gregorian instant, 1582-10-15 0h.
inline constexpr JulianDate kGregorianReform = 2299160.5;

struct CalendarDate {
    int year = 0;
    int month = 1;
    double day = 1.0;  // the fraction is the fraction of the day
};

// Truncating 32-bit arithmetic; the days 1582-10-05 to 14 become 1582-10-15 0h.
JulianDate CalendarToJulian(int year, int month, double day);

// An instant inside the last Julian day (2299159.5, 2299160.5) comes back as 1582-10-15.0.
CalendarDate JulianToCalendar(JulianDate jd);

// sign x (|degrees| + |minutes|/60 + |seconds|/3600); sign is -1 only for '-'.
double SexagesimalToDecimal(char signChar, int degrees, int minutes, double seconds);

struct DayTime {
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
};

// Hours, minutes and seconds of a day fraction, truncated at every stage (never rounded).
DayTime SplitDayFraction(double fraction);

// A number in two columns with a leading blank shown as '0' ("07"); too wide gives "**".
std::string TwoColumnsZeroFilled(int value);

}  // namespace orvane
