#pragma once
// Time scales. Everything that moves runs on one uniform scale, printed as TT; the only
// conversion a task needs is TerrestrialToUniversal, to point a surface observer. The
// general converter among nine scales stands beside it as a library.
#include <cstdint>
#include <string>
#include <vector>

#include "astro/calendar.h"

namespace orvane {

// ---- Delta T -------------------------------------------------------------------------

inline constexpr int kDeltaTTableSize = 372;
extern const double kDeltaTTable[kDeltaTTableSize];  // seconds; layout in deltat_table.cpp

// Besselian year of an instant; whole days and fraction are added separately.
double BesselianYearOf(JulianDate jd);

// TT - UT in seconds for a Besselian year: 0 up to 1820.5, 66.7 from 2012.5 on, else the
// third-order Bessel interpolation of kDeltaTTable.
double DeltaT(double year);

// jd - DeltaT(BesselianYearOf(jd))/86400.
JulianDate TerrestrialToUniversal(JulianDate jd);

// ---- General converter among nine scales ---------------------------------------------

// Scale digits of the two-digit conversion codes (first digit from, second digit to).
enum TimeScaleDigit : int {
    kScaleUT1 = 1,         // hub of the Earth-rotation group
    kScaleUT2 = 2,
    kScaleTAI = 3,         // hub of the atomic group
    kScaleUTC = 4,
    kScaleUTCVariant = 5,  // UTC with the small offsets of 1968 to 1972
    kScaleET = 6,
    kScaleUT1R = 7,
    kScaleTDB = 8,
    kScaleTT = 9,
};

inline constexpr int kScaleGood = 0;
inline constexpr int kScaleBeforeTable = -1;      // instant before the first entry of a table
inline constexpr int kScaleOutsideUt1Series = -2;  // no TAI - UT1 value for the instant
inline constexpr int kScaleUnknownCode = -3;       // a digit outside 1 to 9: the input is copied

// Evenly spaced values of TAI - UT1 in seconds, the bridge between the two groups.
// Before atomic time the same series stands for ET - 32.184 s - UT1.
struct Ut1Series {
    double firstJd = 0.0;
    double step = 0.0;
    std::vector<double> taiMinusUt1;
};

// Reads a series from text: '#' starts a comment; the first two numbers are the first
// instant (JD) and the step (days), the rest are the values in seconds. At least six
// values. Returns 0, or -1 for anything else (the series is then left empty).
int ReadUt1Series(const std::string& text, Ut1Series& series);

struct ScaleConversion {
    int status = kScaleGood;
    double offsetSeconds = 0.0;  // target minus source; 0 on any failure
    JulianDate jd = 0.0;         // the instant on the target scale
};

// Converts an instant by a two-digit code (43: TAI to UTC ...). Conversions between the
// Earth-rotation group (1, 2, 7) and the atomic group need the series; without it, or
// outside its span, the status is kScaleOutsideUt1Series.
ScaleConversion ConvertTimeScale(int code, JulianDate jd, const Ut1Series* series);

// The pieces of the converter, in seconds.
// TAI - UTC: status -1 before 1956-01-01 (2435473.5), else 0.
int TaiMinusUtc(JulianDate jdUtc, double& seconds);
double UtcVariantMinusUtc(JulianDate jd);
double Ut2MinusUt1(JulianDate jd);
double Ut1MinusUt1R(JulianDate jd);
double TdbMinusTt(JulianDate jd);
// Interpolated TAI - UT1 with its corrections; status 0 or kScaleOutsideUt1Series.
int TaiMinusUt1(const Ut1Series& series, JulianDate jd, double& seconds);

// One row of the 41-term tidal series of UT1 - UT1R.
struct Ut1rTerm {
    std::int8_t multipliers[5];  // l, l', F, D, Omega
    std::int16_t coefficient;    // 1e-7 s
};
inline constexpr int kUt1rTermCount = 41;
extern const Ut1rTerm kUt1rTerms[kUt1rTermCount];

// The stepped part of TAI - UTC: a row holds until its end instant.
struct LeapRow {
    float end;  // JD, stored in single precision: 2453736.6 thus reads 2453736.5
    double value;
};
inline constexpr int kLeapRowCount = 37;
extern const LeapRow kLeapRows[kLeapRowCount];

// The piecewise-linear part of TAI - UTC from 1956 to 1961.
inline constexpr int kEarlyUtcPoints = 24;
extern const double kEarlyUtcInstants[kEarlyUtcPoints];
extern const double kEarlyUtcValues[kEarlyUtcPoints];

}  // namespace orvane
