#pragma once
// Nutation in longitude and obliquity by the IAU 1980 theory, with the rotation from the
// mean equator of date to the true equator (N) and from the true equator to the true
// ecliptic (E).
#include "astro/calendar.h"
#include "astro/frames.h"

namespace orvane {

struct NutationRow {
    int frequency;     // whole cycles a Julian century
    double psi;        // longitude amplitude, 1e-4"
    double psiRate;    // its rate, 1e-4" a century
    double eps;        // obliquity amplitude, 1e-4"
    double epsRate;    // its rate, 1e-4" a century
    double phase;      // cycles at J2000
    double phaseRate;  // cycles a century beyond the whole ones
};
inline constexpr int kNutationRowCount = 106;
extern const NutationRow kNutationRows[kNutationRowCount];

struct Nutation {
    double dpsi = 0.0;      // radians
    double deps = 0.0;      // radians
    double dpsiRate = 0.0;  // radians a day; 0 unless asked for
    double depsRate = 0.0;
    Matrix3 N;              // mean equator of date to true equator of date
    Matrix3 E;              // true equator of date to true ecliptic of date
};

// `set` 1 sums rows 1 to 30, 2 rows 31 to 106, anything else all rows. `rates` nonzero
// adds the time derivatives.
Nutation NutationMatrices(int set, int rates, JulianDate jd);

}  // namespace orvane
