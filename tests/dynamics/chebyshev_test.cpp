// Chebyshev evaluation of one series against the closed forms
// T_n(cos t) = cos nt, T_n' = n sin nt / sin t, and
// T_n'' = (x T_n' - n^2 T_n) / (1 - x^2), for every degree of a 14-term series.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "dynamics/chebyshev.h"

namespace {

using orvane::ChebyshevSeries;
using orvane::SeriesLayout;

struct Closed {
    double value, first, second;
};

Closed ClosedForm(int n, double x) {
    const double t = std::acos(x);
    Closed c;
    c.value = std::cos(n * t);
    c.first = n * std::sin(n * t) / std::sin(t);
    c.second = (x * c.first - n * n * c.value) / (1.0 - x * x);
    return c;
}

// One component, one granule, 14 coefficients starting at word 3; only
// coefficient `degree` is 1.
std::vector<double> UnitRecord(int degree) {
    std::vector<double> record(2 + 14, 0.0);
    record[static_cast<std::size_t>(2 + degree)] = 1.0;
    return record;
}

TEST(Chebyshev, EveryDegreeMatchesTheClosedFormsWithItsDerivatives) {
    const SeriesLayout layout{3, 14, 1};
    const double span = 2.0;  // scale 2 na / span = 1: derivatives are per unit of tc
    for (int degree = 0; degree < 14; ++degree) {
        const auto record = UnitRecord(degree);
        ChebyshevSeries cheb;
        cheb.Reserve(14);
        for (const double tc : {-0.9, -0.37, 0.0, 0.25, 0.61, 0.93}) {
            const double tau = (tc + 1.0) / 2.0;
            double out[3];
            cheb.Evaluate(record.data(), layout, 1, tau, span, 3, out);
            const Closed want = ClosedForm(degree, tc);
            EXPECT_NEAR(out[0], want.value, 1e-12) << degree << " " << tc;
            EXPECT_NEAR(out[1], want.first, 1e-10 * (1 + std::fabs(want.first))) << degree << " " << tc;
            EXPECT_NEAR(out[2], want.second, 1e-9 * (1 + std::fabs(want.second))) << degree << " " << tc;
        }
    }
}

TEST(Chebyshev, DerivativesScaleWithGranulesOverTheSpan) {
    // Four granules in 32 days: d(tc)/dt = 2 * 4 / 32 per day.
    const SeriesLayout layout{3, 3, 4};
    std::vector<double> record(2 + 3 * 4, 0.0);
    // Granule 2 (third): value 5 + 3 T1 + 2 T2.
    record[2 + 2 * 3 + 0] = 5.0;
    record[2 + 2 * 3 + 1] = 3.0;
    record[2 + 2 * 3 + 2] = 2.0;
    ChebyshevSeries cheb;
    cheb.Reserve(3);
    double out[3];
    // tau = 0.625: x = 2.5, granule 2, tc = 0.
    cheb.Evaluate(record.data(), layout, 1, 0.625, 32.0, 3, out);
    EXPECT_EQ(out[0], 5.0 - 2.0);
    EXPECT_EQ(out[1], 3.0 * 0.25);
    EXPECT_EQ(out[2], 2.0 * 4.0 * 0.25 * 0.25);
}

TEST(Chebyshev, KeptPolynomialsGiveTheSameValuesWhateverTheOrderOfCalls) {
    const SeriesLayout small{3, 5, 1};
    const SeriesLayout large{3, 14, 1};
    std::vector<double> record(2 + 3 * 14);
    for (std::size_t i = 0; i < record.size(); ++i) record[i] = std::sin(1.0 + 0.7 * static_cast<double>(i));
    ChebyshevSeries kept;
    kept.Reserve(14);
    const double taus[] = {0.3, 0.3, 0.3, 0.8, 0.8, 0.3};
    const int orders[] = {1, 3, 2, 2, 3, 3};
    const SeriesLayout* layouts[] = {&small, &large, &large, &small, &large, &small};
    for (int call = 0; call < 6; ++call) {
        double got[9];
        double want[9];
        kept.Evaluate(record.data(), *layouts[call], 3, taus[call], 16.0, orders[call], got);
        ChebyshevSeries fresh;
        fresh.Reserve(14);
        fresh.Evaluate(record.data(), *layouts[call], 3, taus[call], 16.0, orders[call], want);
        for (int k = 0; k < 9; ++k) EXPECT_EQ(got[k], want[k]) << "call " << call << " value " << k;
        // Orders not asked for come out as zeros.
        for (int k = 3 * orders[call]; k < 9; ++k) EXPECT_EQ(got[k], 0.0);
    }
}

}  // namespace
