#include "astro/timescales.h"

namespace orvane {

// The zonal tide terms of UT1 - UT1R with periods under 35 days (Yoder, Williams and
// Parke 1981, the table of short-period terms as the IERS Conventions 1996 reprint it),
// copied from the project reference file shared/reference/ut1r_41_terms.txt (its
// provenance: GPSTk IERS1996UT1mUTCData.hpp, cross-checked against a second copy). Each row
// holds the multipliers of l, l', F, D and Omega and the coefficient in units of 1e-7 s
// (the source gives 1e-4 s; -7.76e-4 s is stored as -7760). Rows by increasing period.
const Ut1rTerm kUt1rTerms[kUt1rTermCount] = {
    {{1, 0, 2, 2, 2}, -20},  // 5.64 days
    {{2, 0, 2, 0, 1}, -40},  // 6.85 days
    {{2, 0, 2, 0, 2}, -100},  // 6.86 days
    {{0, 0, 2, 2, 1}, -50},  // 7.09 days
    {{0, 0, 2, 2, 2}, -120},  // 7.10 days
    {{1, 0, 2, 0, 0}, -40},  // 9.11 days
    {{1, 0, 2, 0, 1}, -410},  // 9.12 days
    {{1, 0, 2, 0, 2}, -990},  // 9.13 days
    {{3, 0, 0, 0, 0}, -20},  // 9.18 days
    {{-1, 0, 2, 2, 1}, -80},  // 9.54 days
    {{-1, 0, 2, 2, 2}, -200},  // 9.56 days
    {{1, 0, 0, 2, 0}, -80},  // 9.61 days
    {{2, 0, 2, -2, 2}, 20},  // 12.81 days
    {{0, 1, 2, 0, 2}, 30},  // 13.17 days
    {{0, 0, 2, 0, 0}, -300},  // 13.61 days
    {{0, 0, 2, 0, 1}, -3210},  // 13.63 days
    {{0, 0, 2, 0, 2}, -7760},  // 13.66 days
    {{2, 0, 0, 0, -1}, 20},  // 13.75 days
    {{2, 0, 0, 0, 0}, -340},  // 13.78 days
    {{2, 0, 0, 0, 1}, 20},  // 13.81 days
    {{0, -1, 2, 0, 2}, -20},  // 14.19 days
    {{0, 0, 0, 2, -1}, 50},  // 14.73 days
    {{0, 0, 0, 2, 0}, -730},  // 14.77 days
    {{0, 0, 0, 2, 1}, -50},  // 14.80 days
    {{0, -1, 0, 2, 0}, -50},  // 15.39 days
    {{1, 0, 2, -2, 1}, 50},  // 23.86 days
    {{1, 0, 2, -2, 2}, 100},  // 23.94 days
    {{1, 1, 0, 0, 0}, 40},  // 25.62 days
    {{-1, 0, 2, 0, 0}, 50},  // 26.88 days
    {{-1, 0, 2, 0, 1}, 180},  // 26.98 days
    {{-1, 0, 2, 0, 2}, 440},  // 27.09 days
    {{1, 0, 0, 0, -1}, 530},  // 27.44 days
    {{1, 0, 0, 0, 0}, -8260},  // 27.56 days
    {{1, 0, 0, 0, 1}, 540},  // 27.67 days
    {{0, 0, 0, 1, 0}, 50},  // 29.53 days
    {{1, -1, 0, 0, 0}, -60},  // 29.80 days
    {{-1, 0, 0, 2, -1}, 120},  // 31.66 days
    {{-1, 0, 0, 2, 0}, -1820},  // 31.81 days
    {{-1, 0, 0, 2, 1}, 130},  // 31.96 days
    {{1, 0, -2, 2, -1}, 20},  // 32.61 days
    {{-1, -1, 0, 2, 0}, -90},  // 34.85 days
};

}  // namespace orvane
