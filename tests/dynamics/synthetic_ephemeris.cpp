#include "synthetic_ephemeris.h"

#include <bit>
#include <cstring>

namespace orvane::testing {

SyntheticEphemeris De406Layout(int records) {
    SyntheticEphemeris e;
    e.ipt = {{{3, 14, 4},
              {171, 12, 1},
              {207, 9, 2},
              {261, 10, 1},
              {291, 6, 1},
              {309, 6, 1},
              {327, 6, 1},
              {345, 6, 1},
              {363, 6, 1},
              {381, 12, 8},
              {669, 12, 1},
              {705, 12, 1}}};
    e.lpt = {0, 0, 0};
    e.records = records;
    e.recordDoubles = 728;
    for (int i = 0; i < 20; ++i) e.constants[static_cast<std::size_t>(i)] = 1000.0 + i;
    // GM1, GM2, GMB, GM4 .. GM9, GMS at positions 9 to 18.
    const double gm[10] = {1e-11, 2e-10, 9e-10, 4e-11, 5e-7, 6e-8, 7e-9, 8e-9, 9e-12, 3e-4};
    for (int i = 0; i < 10; ++i) e.constants[static_cast<std::size_t>(8 + i)] = gm[i];
    return e;
}

double SyntheticCoefficient(int series, int component, int granule, int record, int k) {
    switch (k) {
        case 0:
            return 1.0e6 * (series + 1) + 1.0e4 * component + 100.0 * record + 10.0 * granule;
        case 1:
            return 5.0e3 * (series + 1) + 7.0 * component - 3.0 * granule;
        case 2:
            return 300.0 + 11.0 * component + record;
        case 3:
            return -20.0 - granule + 2.0 * component;
        default:
            return 0.0;
    }
}

CubicValue SyntheticCubic(int series, int component, int granule, int record, double tc) {
    const double a0 = SyntheticCoefficient(series, component, granule, record, 0);
    const double a1 = SyntheticCoefficient(series, component, granule, record, 1);
    const double a2 = SyntheticCoefficient(series, component, granule, record, 2);
    const double a3 = SyntheticCoefficient(series, component, granule, record, 3);
    // T2 = 2x^2 - 1, T3 = 4x^3 - 3x.
    CubicValue c;
    c.value = a0 + a1 * tc + a2 * (2 * tc * tc - 1) + a3 * (4 * tc * tc * tc - 3 * tc);
    c.first = a1 + a2 * 4 * tc + a3 * (12 * tc * tc - 3);
    c.second = a2 * 4 + a3 * 24 * tc;
    return c;
}

void PutDouble(std::string& bytes, std::size_t offset, double value) {
    auto bits = std::bit_cast<std::uint64_t>(value);
    for (int i = 0; i < 8; ++i) {
        bytes[offset + static_cast<std::size_t>(i)] = static_cast<char>(bits & 0xff);
        bits >>= 8;
    }
}

void PutInt32(std::string& bytes, std::size_t offset, std::int32_t value) {
    auto bits = static_cast<std::uint32_t>(value);
    for (int i = 0; i < 4; ++i) {
        bytes[offset + static_cast<std::size_t>(i)] = static_cast<char>(bits & 0xff);
        bits >>= 8;
    }
}

std::string BuildEphemerisFile(const SyntheticEphemeris& e) {
    const std::size_t recordBytes = static_cast<std::size_t>(e.recordDoubles) * 8;
    std::string bytes((2 + static_cast<std::size_t>(e.records)) * recordBytes, '\0');

    const char* titles[3] = {"JPL Planetary Ephemeris DE406/LE406 (test layout)",
                             "Start Epoch: JED= 2451536.5", "Final Epoch: JED= 2451792.5"};
    for (int i = 0; i < 3; ++i) {
        std::string t = titles[i];
        t.resize(84, ' ');
        bytes.replace(static_cast<std::size_t>(84 * i), 84, t);
    }
    for (int i = 0; i < 400; ++i) {
        std::string name = i < e.ncon ? "C" + std::to_string(i + 1) : "";
        name.resize(6, ' ');
        bytes.replace(252 + static_cast<std::size_t>(6 * i), 6, name);
    }
    PutDouble(bytes, 2652, e.start);
    PutDouble(bytes, 2660, e.start + e.span * e.records);
    PutDouble(bytes, 2668, e.span);
    PutInt32(bytes, 2676, e.ncon);
    PutDouble(bytes, 2680, e.au);
    PutDouble(bytes, 2688, e.emrat);
    for (std::size_t i = 0; i < 12; ++i) {
        PutInt32(bytes, 2696 + 12 * i, e.ipt[i].offset);
        PutInt32(bytes, 2700 + 12 * i, e.ipt[i].coefficients);
        PutInt32(bytes, 2704 + 12 * i, e.ipt[i].granules);
    }
    PutInt32(bytes, 2840, e.numde);
    PutInt32(bytes, 2844, e.lpt.offset);
    PutInt32(bytes, 2848, e.lpt.coefficients);
    PutInt32(bytes, 2852, e.lpt.granules);

    for (std::size_t i = 0; i < 400; ++i) PutDouble(bytes, recordBytes + 8 * i, e.constants[i]);

    for (int r = 0; r < e.records; ++r) {
        const std::size_t base = (2 + static_cast<std::size_t>(r)) * recordBytes;
        PutDouble(bytes, base, e.start + e.span * r);
        PutDouble(bytes, base + 8, e.start + e.span * (r + 1));
        for (int s = 0; s < 12; ++s) {
            const SeriesLayout& l = e.ipt[static_cast<std::size_t>(s)];
            if (l.coefficients == 0) continue;
            const int components = s < 11 ? 3 : 2;
            for (int g = 0; g < l.granules; ++g) {
                for (int c = 0; c < components; ++c) {
                    for (int k = 0; k < l.coefficients; ++k) {
                        const std::size_t index = static_cast<std::size_t>(
                            l.offset - 1 + (g * components + c) * l.coefficients + k);
                        PutDouble(bytes, base + 8 * index, SyntheticCoefficient(s, c, g, r, k));
                    }
                }
            }
        }
    }
    return bytes;
}

}  // namespace orvane::testing
