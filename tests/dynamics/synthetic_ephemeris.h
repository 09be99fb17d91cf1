#pragma once
// Small JPL binary ephemeris files with known Chebyshev coefficients, built in
// the tests: the DE406 layout (728 doubles, 64-day records) with cubic series
// whose values can be worked out by hand.
#include <array>
#include <cstdint>
#include <string>

#include "dynamics/chebyshev.h"

namespace orvane::testing {

struct SyntheticEphemeris {
    std::array<SeriesLayout, 12> ipt{};
    SeriesLayout lpt{};
    double start = 2451536.5;
    double span = 64.0;
    int records = 4;
    double au = 149597870.691;
    double emrat = 81.30056;
    std::int32_t ncon = 20;
    std::int32_t numde = 406;
    std::array<double, 400> constants{};
    int recordDoubles = 728;
};

// DE406's record: 728 doubles, 64 days, nutations but no librations.
SyntheticEphemeris De406Layout(int records = 4);

// Coefficient k of component `component` of series `series` (0 to 10 bodies
// Mercury to Sun, 11 nutations) in granule `granule` of data record `record`
// (0-based). Only k = 0 to 3 are non-zero; all are small integers, so a value
// at a dyadic local time is exact in double.
double SyntheticCoefficient(int series, int component, int granule, int record, int k);

// a0 + a1 T1 + a2 T2 + a3 T3 and its derivatives with respect to tc.
struct CubicValue {
    double value;
    double first;
    double second;
};
CubicValue SyntheticCubic(int series, int component, int granule, int record, double tc);

// The whole file: header record, constants record, data records.
std::string BuildEphemerisFile(const SyntheticEphemeris& e);

// Writes a little-endian double or 32-bit integer into `bytes` at `offset`.
void PutDouble(std::string& bytes, std::size_t offset, double value);
void PutInt32(std::string& bytes, std::size_t offset, std::int32_t value);

}  // namespace orvane::testing
