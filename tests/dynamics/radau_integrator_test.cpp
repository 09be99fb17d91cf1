// Everhart's Radau integrator: its tables, its size rules, the end of a span,
// backward runs, refusals and the observer.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "astro/constants.h"
#include "astro/twobody.h"
#include "astro/universal.h"
#include "dynamics/ephemeris.h"
#include "dynamics/force_model.h"
#include "dynamics/radau.h"
#include "support/temp_home.h"

namespace orvane {
namespace {

constexpr double kEpoch = 2451545.0;

double Legendre(int n, double x) {
    double p0 = 1.0, p1 = x;
    for (int k = 1; k < n; ++k) {
        const double p2 = ((2 * k + 1) * x * p1 - k * p0) / (k + 1);
        p0 = p1;
        p1 = p2;
    }
    return n == 0 ? p0 : p1;
}

TEST(RadauTables, NodesAreTheGaussRadauSpacingsOfOrderEleven) {
    const RadauTables& t = Radau();
    EXPECT_EQ(t.h[0], 0.0);
    EXPECT_EQ(t.h[1], 0.0985350857988264);
    EXPECT_EQ(t.h[5], 0.9601901429485313);
    // Radau points with the left end fixed are the roots of P5 + P6 on [-1, 1].
    for (double h : t.h) EXPECT_NEAR(Legendre(5, 2 * h - 1) + Legendre(6, 2 * h - 1), 0.0, 1e-14) << h;
    const double w[5] = {1.0 / 6, 1.0 / 12, 1.0 / 20, 1.0 / 30, 1.0 / 42};
    const double u[5] = {1.0 / 2, 1.0 / 3, 1.0 / 4, 1.0 / 5, 1.0 / 6};
    for (std::size_t n = 0; n < 5; ++n) {
        EXPECT_EQ(t.w[n], w[n]);
        EXPECT_EQ(t.u[n], u[n]);
    }
    EXPECT_EQ(kSizeExponent, 1.0 / 7.0);
}

// C turns divided differences G into power coefficients B, D turns them back;
// both are laid out column by column: entries 1 | 2 3 | 4 5 6 | 7 8 9 10.
TEST(RadauTables, CAndDAreInverseTransformations) {
    const RadauTables& t = Radau();
    double c[5][5] = {}, d[5][5] = {};
    int entry = 0;
    for (int j = 1; j < 5; ++j) {
        for (int i = 0; i < j; ++i, ++entry) {
            c[i][j] = t.c[static_cast<std::size_t>(entry)];
            d[i][j] = t.d[static_cast<std::size_t>(entry)];
        }
    }
    for (int i = 0; i < 5; ++i) c[i][i] = d[i][i] = 1.0;
    for (int i = 0; i < 5; ++i) {
        for (int j = 0; j < 5; ++j) {
            double sum = 0.0;
            for (int k = 0; k < 5; ++k) sum += d[i][k] * c[k][j];
            EXPECT_NEAR(sum, i == j ? 1.0 : 0.0, 1e-14) << i << "," << j;
        }
    }
    // s (s - h2) = s^2 - h2 s, so the first entry of C is -h2; R(1) = 1/(h3 - h2).
    EXPECT_EQ(t.c[0], -t.h[1]);
    EXPECT_EQ(t.r[0], 1.0 / (t.h[2] - t.h[1]));
    EXPECT_EQ(t.r[9], 1.0 / (t.h[5] - t.h[4]));
}

TEST(RadauSizes, FirstSizeAndHalfOfAShortSpan) {
    const double first = 0.5 * std::pow(0.5, 5.6000000000000005);
    EXPECT_EQ(FirstSequenceSize(100.0), first);
    EXPECT_NEAR(first, 0.01031, 5e-6);
    EXPECT_EQ(FirstSequenceSize(-100.0), -first);
    EXPECT_EQ(FirstSequenceSize(0.015), 0.0075);
    EXPECT_EQ(FirstSequenceSize(-0.015), -0.0075);
    EXPECT_EQ(FirstSequenceSize(2.0 * first), first);
}

TEST(RadauSizes, SeventhRootOfTheAccuracyOverHv) {
    EXPECT_NEAR(SequenceSizeFor(1e-14 / 128.0, 1.0), 2.0, 1e-15);
    EXPECT_NEAR(SequenceSizeFor(1e-14 / 128.0, -1.0), -2.0, 1e-15);
    EXPECT_EQ(SequenceSizeFor(1e-14, 1.0), 1.0);
    // No force at all asks for an unlimited size; NaN asks for nothing.
    EXPECT_EQ(SequenceSizeFor(0.0, 1.0), std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(SequenceSizeFor(std::nan(""), 1.0)));
}

class RadauRun : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(eph_.OpenEphemerisFile(testing::sharedPath("ephemerides/de405-1960-2060.dat")),
                  EphemerisStatus::Ok);
        const DerivedOrbit d = DerivedElements(kEpoch, kEpoch + 60.0, 1.3, 0.55);
        GaussianGravity gravity;
        start_ = StateFromElements(1.3, 0.55, 12.0, 95.0, 8.0, d.M, d.a, 0.0, kObliquityJ2000, gravity);
    }

    std::vector<StepReport> Run(double tf, IntegrationStatus expected = IntegrationStatus::Completed,
                                long long* evaluations = nullptr) {
        ForceModel force(eph_);
        force.SetRunEpoch(kEpoch);
        Integrator integrator(force);
        std::vector<StepReport> steps;
        const IntegrationStatus status = integrator.Run(start_, tf, [&](const StepReport& r) {
            steps.push_back(r);
            EXPECT_EQ(force.lastStep(), r.step);
            EXPECT_EQ(static_cast<double>(force.referenceOrbit().t0), r.tm);
            EXPECT_EQ(force.referenceState().x, r.state.x);
            return true;
        });
        EXPECT_EQ(status, expected);
        EXPECT_EQ(integrator.sequences(), static_cast<long long>(steps.size()));
        if (evaluations != nullptr) *evaluations = force.evaluations();
        return steps;
    }

    Ephemeris eph_;
    StateVector start_;
};

TEST_F(RadauRun, BackwardRunsOnNegativeSizes) {
    const auto steps = Run(-400.0);
    ASSERT_GT(steps.size(), 10u);
    double tm = 0.0;
    for (const StepReport& r : steps) {
        EXPECT_LT(r.step, 0.0);
        EXPECT_EQ(r.tm, tm + r.step);
        tm = r.tm;
    }
    EXPECT_EQ(steps.back().tm, -400.0);
    EXPECT_TRUE(steps.back().last);
    EXPECT_EQ(steps.front().step, -0.5 * std::pow(0.5, 5.6000000000000005));
}

TEST_F(RadauRun, SpanShorterThanTwoFirstSizesIsHalved) {
    const auto steps = Run(0.015);
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[0].step, 0.0075);
    EXPECT_EQ(steps[1].step, 0.0075);
    EXPECT_EQ(steps[1].tm, 0.015);
    EXPECT_TRUE(steps[1].last);
}

TEST_F(RadauRun, SizesGrowAtMostByOneAndAHalf) {
    const auto steps = Run(800.0);
    int capped = 0;
    for (std::size_t i = 1; i + 1 < steps.size(); ++i) {
        EXPECT_LE(steps[i].step, 1.5 * steps[i - 1].step);
        if (steps[i].step == 1.5 * steps[i - 1].step) ++capped;
    }
    // From the tiny first size the run climbs at the cap for a while.
    EXPECT_GE(capped, 10);
    EXPECT_EQ(steps[1].step, 1.5 * steps[0].step);
}

TEST_F(RadauRun, ElevenForceEvaluationsASequenceAfterTheFirst) {
    long long evaluations = 0;
    const auto steps = Run(300.0, IntegrationStatus::Completed, &evaluations);
    const long long later = 11 * (static_cast<long long>(steps.size()) - 1);
    const long long first = evaluations - later;
    // The first sequence: F1 and five substeps an iteration, 2 to 32 iterations.
    EXPECT_EQ((first - 1) % 5, 0);
    EXPECT_GE(first, 11);
    EXPECT_LE(first, 161);
}

TEST_F(RadauRun, WholeNumberOfSequencesEndsThroughTheSlackRule) {
    const auto free = Run(500.0);
    ASSERT_GT(free.size(), 30u);
    const std::size_t n = 25;
    // A span that ends exactly where sequence n ended.
    const double whole = free[n - 1].tm;
    const auto exact = Run(whole);
    ASSERT_EQ(exact.size(), n);
    EXPECT_TRUE(exact.back().last);
    EXPECT_DOUBLE_EQ(exact.back().tm, whole);
    for (std::size_t i = 0; i + 1 < n; ++i) EXPECT_EQ(exact[i].step, free[i].step);
    // Up to 1.001 times the size asked for is still one last sequence ...
    const double asked = free[n - 1].step;
    const auto stretched = Run(free[n - 2].tm + 1.0009 * asked);
    ASSERT_EQ(stretched.size(), n);
    EXPECT_NEAR(stretched.back().step / asked, 1.0009, 1e-12);
    // ... beyond it another one follows.
    const auto longer = Run(free[n - 2].tm + 1.0011 * asked);
    ASSERT_EQ(longer.size(), n + 1);
    EXPECT_EQ(longer[n - 1].step, asked);
}

// The wings are the old reference orbit six days either side with the
// deviation at tm added unpropagated: the two-body orbit through the new state
// only to the deviation's velocity times six days, some 1e-7 AU here; the
// comet itself moves about 0.1 AU in those six days.
TEST_F(RadauRun, WingsAreTheOrbitSixDaysEitherSide) {
    const auto steps = Run(100.0);
    for (const StepReport& r : steps) {
        for (const auto& [wing, dt] : {std::pair{r.before, -6.0}, std::pair{r.after, 6.0}}) {
            const StateVector kepler = PropagateUniversal(r.state, 0.0, dt);
            EXPECT_NEAR(wing.x, kepler.x, 1e-6);
            EXPECT_NEAR(wing.y, kepler.y, 1e-6);
            EXPECT_NEAR(wing.z, kepler.z, 1e-6);
            EXPECT_GT(std::hypot(wing.x - r.state.x, wing.y - r.state.y, wing.z - r.state.z), 0.05);
        }
    }
}

TEST_F(RadauRun, NanIsRefusedElevenTimesThenTheRunEnds) {
    start_.x = std::nan("");
    long long evaluations = 0;
    const auto steps = Run(100.0, IntegrationStatus::Refused, &evaluations);
    EXPECT_TRUE(steps.empty());
    // Each try: F1 and 32 iterations of five substeps.
    EXPECT_EQ(evaluations, 11 * (1 + 32 * 5));
}

TEST_F(RadauRun, ObserverStopsTheRun) {
    ForceModel force(eph_);
    force.SetRunEpoch(kEpoch);
    Integrator integrator(force);
    int calls = 0;
    const auto status = integrator.Run(start_, 100.0, [&](const StepReport&) { return ++calls < 3; });
    EXPECT_EQ(status, IntegrationStatus::Stopped);
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(integrator.sequences(), 3);
    EXPECT_EQ(integrator.refusals(), 0);
}

}  // namespace
}  // namespace orvane
