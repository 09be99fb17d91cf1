// Elements, states, Kepler's equation, orbit classes and spheres of influence.
#include "astro/twobody.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "astro/kepler.h"
#include "astro/orbit_class.h"

namespace orvane {
namespace {

constexpr double kJ2000 = 2451545.0;

// Difference of two angles in degrees, folded into [0, 180].
double AngleGap(double a, double b) {
    double d = std::fmod(a - b, 360.0);
    if (d > 180.0) d -= 360.0;
    if (d < -180.0) d += 360.0;
    return std::fabs(d);
}

// ---------------------------------------------------------------- WrapTwoPi

TEST(WrapTwoPi, PositiveAnglesLoseWholeTurns) {
    EXPECT_DOUBLE_EQ(WrapTwoPi(7.0), 7.0 - 6.283185307179586);
    EXPECT_DOUBLE_EQ(WrapTwoPi(1.0), 1.0);
    EXPECT_DOUBLE_EQ(WrapTwoPi(20.0), 20.0 - 3.0 * 6.283185307179586);
}

TEST(WrapTwoPi, NegativeAnglesGainATurnBecauseTheInputWasNegative) {
    EXPECT_DOUBLE_EQ(WrapTwoPi(-1.0), 6.283185307179586 - 1.0);
    EXPECT_DOUBLE_EQ(WrapTwoPi(-7.0), -7.0 + 6.283185307179586 + 6.283185307179586);
    // A whole negative turn reduces to 0 and then gains 2pi, since the test is on the input.
    EXPECT_EQ(WrapTwoPi(-6.283185307179586), 6.283185307179586);
}

// ---------------------------------------------------------------- SolveKepler

double NearParabolicSeriesLD(long double w) {
    return static_cast<double>(1.0L / 3 + w / 10 + 3 * w * w / 56 + 5 * w * w * w / 144 +
                               35 * w * w * w * w / 1408 + 63 * w * w * w * w * w / 3328 +
                               231 * w * w * w * w * w * w / 15360);
}

// The root of s (s^2 A(w) + sqrt(1 - w)) = M, w = (1 - e)/2 s^2, by bisection, scaled
// as the near-parabolic solver hands it back.
long double NearParabolicRoot(long double M, long double e) {
    const long double lambda = (1.0L - e) / 2.0L;
    long double lo = 0.0L, hi = 10.0L;
    for (int round = 0; round < 200; ++round) {
        const long double mid = (lo + hi) / 2.0L;
        const long double w = lambda * mid * mid;
        const long double g = mid * (mid * mid * NearParabolicSeriesLD(w) + std::sqrt(1.0L - w));
        (g < M ? lo : hi) = mid;
    }
    const long double w = lambda * lo * lo;
    return std::sqrt(1.0L - lambda) / std::sqrt(1.0L - w) * lo;
}

TEST(SolveKepler, ExactParabolaGoesThroughTheCubeSolver) {
    EXPECT_EQ(SelectKeplerBranch(1.0), KeplerBranch::Parabola);
    // s + s^3/3 = 4/3 has the root s = 1.
    EXPECT_NEAR(SolveKepler(4.0 / 3.0, 1.0, 1e-15), 1.0, 1e-15);
    const double s = SolveKepler(0.7, 1.0, 1e-15);
    EXPECT_NEAR(s + s * s * s / 3.0, 0.7, 1e-15);
    EXPECT_EQ(s, SolveParabolic(0.7, 1e-15));
}

TEST(SolveKepler, FiveTimesTenToTheMinusElevenAboveOneGoesThroughTheNearParabolicSeries) {
    const double e = 1.0 + 5e-11;
    EXPECT_EQ(SelectKeplerBranch(e), KeplerBranch::NearParabola);
    EXPECT_EQ(SelectKeplerBranch(1.0 - 5e-11), KeplerBranch::NearParabola);
    const double s = SolveKepler(1.0, e, 1e-15);
    EXPECT_EQ(s, SolveNearParabolic(1.0, e, 1e-15));
    EXPECT_NEAR(s, static_cast<double>(NearParabolicRoot(1.0L, e)), 1e-12);
    // The band's correction to the parabola is of the order of (1 - e) s^2.
    EXPECT_NE(s, SolveParabolic(1.0, 1e-15));
}

TEST(SolveKepler, NearParabolicStepKeepsTheFactorKOverRootTwo) {
    // Each step moves only k/sqrt(2) = 0.0122 of the way to the root, so the loop
    // stops about sqrt(2)/k = 82 tolerances short of it.
    const double e = 1.0 + 5e-11;
    const double tolerance = 1e-14;
    const double root = static_cast<double>(NearParabolicRoot(1.0L, e));
    const double shortfall = std::fabs(SolveNearParabolic(1.0, e, tolerance) - root) / tolerance;
    EXPECT_GT(shortfall, 75.0);
    EXPECT_LT(shortfall, 85.0);
}

TEST(SolveKepler, OneBillionthAboveOneGoesThroughTheHyperbolicLoop) {
    const double e = 1.0 + 1e-9;
    EXPECT_EQ(SelectKeplerBranch(e), KeplerBranch::Hyperbola);
    const double H = SolveKepler(0.1, e, 1e-15);
    EXPECT_EQ(H, SolveHyperbolic(0.1, e, 1e-15));
    EXPECT_NEAR(e * std::sinh(H) - H, 0.1, 1e-15);
}

TEST(SolveKepler, WithinTenToTheMinusFourteenOfOneItIsTheHyperbolicLoopSinceOnlyEEqualOneIsAParabola) {
    const double e = 1.0 + 1e-15;
    EXPECT_LE(std::fabs(1.0 - e), 1e-14);
    EXPECT_EQ(SelectKeplerBranch(e), KeplerBranch::Hyperbola);
    const double H = SolveKepler(0.1, e, 1e-15);
    EXPECT_EQ(H, SolveHyperbolic(0.1, e, 1e-15));
    EXPECT_NEAR(e * std::sinh(H) - H, 0.1, 1e-14);
    // Not the parabola's variable: s + s^3/3 = 0.1 has s = 0.0997; here H^3/6 + ... = 0.1.
    EXPECT_GT(std::fabs(H - SolveParabolic(0.1, 1e-15)), 0.5);
}

TEST(SolveKepler, EllipsesSolveKeplersEquation) {
    EXPECT_EQ(SelectKeplerBranch(0.5), KeplerBranch::Ellipse);
    EXPECT_EQ(SelectKeplerBranch(0.0), KeplerBranch::Ellipse);
    for (double e : {0.0, 0.1, 0.5, 0.9, 0.99}) {
        for (double M : {0.0, 0.3, 1.0, 3.0, 6.0}) {
            const double E = SolveKepler(M, e, 1e-15);
            EXPECT_NEAR(E - e * std::sin(E), M, 2e-15) << "e=" << e << " M=" << M;
        }
    }
}

TEST(SolveKepler, ExhaustedLoopsReturnTheLastValue) {
    // A tolerance of zero is never met by a converged loop that stalls on the same value:
    // all 10001 rounds run and the value is still the root.
    const double E = SolveElliptic(1.0, 0.5, 0.0);
    EXPECT_NEAR(E - 0.5 * std::sin(E), 1.0, 1e-15);
    EXPECT_TRUE(std::isnan(SolveKepler(std::nan(""), 0.5, 1e-15)));
    EXPECT_TRUE(std::isnan(SolveKepler(std::nan(""), 1.0, 1e-15)));
    EXPECT_TRUE(std::isnan(SolveKepler(std::nan(""), 2.0, 1e-15)));
    EXPECT_TRUE(std::isnan(SolveKepler(std::nan(""), 1.0 + 5e-11, 1e-15)));
}

// ---------------------------------------------------------------- DerivedElements

TEST(DerivedElements, ParabolaHasTheScaledTimeAsMeanAnomaly) {
    const DerivedOrbit d = DerivedElements(2460030.0, 2460000.0, 2.0, 1.0);
    EXPECT_EQ(d.a, 0.0);
    EXPECT_EQ(d.n, -1.0);
    EXPECT_EQ(d.P, 0.0);
    EXPECT_EQ(d.Q, 0.0);
    // k (t - Tp) / sqrt(2 q^3), in degrees.
    EXPECT_NEAR(d.M, 0.01720209895 * 30.0 / std::sqrt(2.0 * 8.0) * 57.2957795130823, 1e-13);
}

TEST(DerivedElements, EllipseReducesOnlyAnOutOfRangeMeanAnomaly) {
    const double n0 = 0.01720209895 / std::sqrt(8.0);  // a = 2
    DerivedOrbit d = DerivedElements(2460000.0 + 1000.0, 2460000.0, 1.0, 0.5);
    EXPECT_DOUBLE_EQ(d.a, 2.0);
    EXPECT_DOUBLE_EQ(d.P, std::sqrt(2.0) * 2.0);
    EXPECT_DOUBLE_EQ(d.Q, 3.0);
    EXPECT_DOUBLE_EQ(d.n, n0 * 57.2957795130823);
    EXPECT_NEAR(d.M, 1000.0 * n0 * 57.2957795130823, 1e-11);  // 6.08 rad, left alone

    d = DerivedElements(2460000.0 + 2000.0, 2460000.0, 1.0, 0.5);
    EXPECT_NEAR(d.M, (2000.0 * n0 - 6.283185307179586) * 57.2957795130823, 1e-11);

    d = DerivedElements(2460000.0 - 100.0, 2460000.0, 1.0, 0.5);
    EXPECT_NEAR(d.M, (6.283185307179586 - 100.0 * n0) * 57.2957795130823, 1e-11);
}

TEST(DerivedElements, HyperbolaHasNegativeAxisAndUnreducedMeanAnomaly) {
    const double n0 = 0.01720209895 / std::sqrt(8.0);  // |a| = 2
    const DerivedOrbit d = DerivedElements(2460000.0 - 3000.0, 2460000.0, 1.0, 1.5);
    EXPECT_DOUBLE_EQ(d.a, -2.0);
    EXPECT_EQ(d.P, 0.0);
    EXPECT_EQ(d.Q, 0.0);
    EXPECT_EQ(d.n, -1.0);
    EXPECT_NEAR(d.M, -3000.0 * n0 * 57.2957795130823, 1e-10);
}

// ---------------------------------------------------------------- StateFromElements

double Speed(const StateVector& s) { return std::sqrt(s.vx * s.vx + s.vy * s.vy + s.vz * s.vz); }
double Distance(const StateVector& s) { return std::sqrt(s.x * s.x + s.y * s.y + s.z * s.z); }

TEST(StateFromElements, PerihelionStateHasVisVivaSpeed) {
    GaussianGravity gravity;
    for (double e : {0.0, 0.3, 0.9, 1.0, 1.7}) {
        const double q = 1.25;
        const double a = e == 1.0 ? 0.0 : q / (1.0 - e);
        const StateVector s = StateFromElements(q, e, 20.0, 50.0, 70.0, 0.0, a, 0.0, kObliquityJ2000, gravity);
        EXPECT_NEAR(Distance(s), q, 1e-15);
        EXPECT_NEAR(Speed(s), 0.01720209895 * std::sqrt((1.0 + e) / q), 1e-17) << "e=" << e;
        EXPECT_NEAR(s.x * s.vx + s.y * s.vy + s.z * s.vz, 0.0, 1e-17);
    }
}

TEST(StateFromElements, NodeAndInclinationPlaceTheOrbit) {
    // Ascending node at 90 degrees, perihelion at the node, i = 90: perihelion on the
    // ecliptic y axis, motion towards the ecliptic north pole.
    GaussianGravity gravity;
    const StateVector s = StateFromElements(1.0, 0.5, 0.0, 90.0, 90.0, 0.0, 2.0, 0.0, 0.0, gravity);
    EXPECT_NEAR(s.x, 0.0, 1e-15);
    EXPECT_NEAR(s.y, 1.0, 1e-15);
    EXPECT_NEAR(s.z, 0.0, 1e-15);
    EXPECT_NEAR(s.vx, 0.0, 1e-16);
    EXPECT_NEAR(s.vy, 0.0, 1e-16);
    EXPECT_NEAR(s.vz, 0.01720209895 * std::sqrt(1.5), 1e-17);
    // The same orbit turned to the equator of J2000.
    const StateVector eq = StateFromElements(1.0, 0.5, 0.0, 90.0, 90.0, 0.0, 2.0, 0.0, kObliquityJ2000, gravity);
    EXPECT_NEAR(eq.y, std::cos(0.4090928042223), 1e-15);
    EXPECT_NEAR(eq.z, std::sin(0.4090928042223), 1e-15);
    EXPECT_NEAR(eq.vy, -std::sin(0.4090928042223) * s.vz, 1e-17);
    EXPECT_NEAR(eq.vz, std::cos(0.4090928042223) * s.vz, 1e-17);
}

TEST(StateFromElements, MassFactorRescalesKForGoodForWhoeverSharesTheGravity) {
    GaussianGravity plain;
    const StateVector before = StateFromElements(1.0, 0.5, 10.0, 20.0, 30.0, 40.0, 2.0, 0.0, kObliquityJ2000, plain);
    EXPECT_EQ(plain.k, 0.01720209895);

    GaussianGravity program;
    const StateVector heavy = StateFromElements(1.0, 0.5, 10.0, 20.0, 30.0, 40.0, 2.0, 4.0, kObliquityJ2000, program);
    EXPECT_DOUBLE_EQ(program.k, 0.01720209895 / 2.0);
    EXPECT_DOUBLE_EQ(heavy.x, before.x);
    EXPECT_DOUBLE_EQ(heavy.vx, before.vx / 2.0);

    // A later call with the usual 0 still sees the rescaled k ...
    const StateVector later = StateFromElements(1.0, 0.5, 10.0, 20.0, 30.0, 40.0, 2.0, 0.0, kObliquityJ2000, program);
    EXPECT_DOUBLE_EQ(later.vy, before.vy / 2.0);
    // ... a second factor compounds it ...
    StateFromElements(1.0, 0.5, 10.0, 20.0, 30.0, 40.0, 2.0, 4.0, kObliquityJ2000, program);
    EXPECT_DOUBLE_EQ(program.k, 0.01720209895 / 4.0);
    // ... and a fresh gravity knows nothing of it.
    GaussianGravity fresh;
    const StateVector again = StateFromElements(1.0, 0.5, 10.0, 20.0, 30.0, 40.0, 2.0, 0.0, kObliquityJ2000, fresh);
    EXPECT_EQ(again.vz, before.vz);
}

TEST(StateFromElements, NearParabolicBandReadsTheUnscaledMeanAnomaly) {
    // 30 days after perihelion with q = 1: the exact parabola and e = 1 + 1e-9 agree,
    // while inside the band the tiny unscaled M leaves the comet at perihelion (up to
    // the digits that 1 - e^2 loses there).
    GaussianGravity gravity;
    auto distanceAt = [&](double e) {
        const DerivedOrbit d = DerivedElements(2460030.0, 2460000.0, 1.0, e);
        return Distance(StateFromElements(1.0, e, 0.0, 0.0, 0.0, d.M, d.a, 0.0, 0.0, gravity));
    };
    const double parabola = distanceAt(1.0);
    EXPECT_NEAR(distanceAt(1.0 + 1e-9), parabola, 1e-8);
    EXPECT_NEAR(distanceAt(1.0 + 5e-11), 1.0, 1e-10);
    EXPECT_NEAR(distanceAt(1.0 - 5e-11), 1.0, 1e-10);
    EXPECT_GT(parabola, 1.12);
    // Barker: r = q (1 + D^2), D + D^3/3 = k t / sqrt(2 q^3).
    const double D = SolveParabolic(0.01720209895 * 30.0 / std::sqrt(2.0), 1e-16);
    EXPECT_NEAR(parabola, 1.0 + D * D, 1e-14);
}

// ---------------------------------------------------------------- ElementsFromState

TEST(ElementsFromState, EllipsesComeBackToTenToTheMinusTwelve) {
    const double q = 1.3;
    int cases = 0;
    for (double e : {0.01, 0.1, 0.3, 0.5, 0.7, 0.9, 0.95, 0.99}) {
        for (double i : {1.0, 10.0, 45.0, 89.0, 90.0, 91.0, 135.0, 170.0, 179.0}) {
            for (double omega : {30.0, 200.0}) {
                for (double node : {80.0, 300.0}) {
                    for (double M : {0.0, 10.0, 179.9, 180.0, 181.0, 350.0}) {
                        GaussianGravity gravity;
                        const double a = q / (1.0 - e);
                        const StateVector s =
                            StateFromElements(q, e, omega, node, i, M, a, 0.0, kObliquityJ2000, gravity);
                        const OrbitElements el = ElementsFromState(kJ2000, s, kGaussSquared, kObliquityJ2000);
                        SCOPED_TRACE(::testing::Message() << "e=" << e << " i=" << i << " w=" << omega
                                                          << " node=" << node << " M=" << M);
                        EXPECT_NEAR(el.q, q, 1e-12 * q);
                        EXPECT_NEAR(el.e, e, 1e-12);
                        EXPECT_NEAR(el.a, a, 1e-12 * a);
                        // Angles to 1e-12 radians.
                        EXPECT_LT(AngleGap(el.omega, omega), 1e-12 * kDegreesPerRadian);
                        EXPECT_LT(AngleGap(el.node, node), 1e-12 * kDegreesPerRadian);
                        EXPECT_LT(std::fabs(el.i - i), 1e-12 * kDegreesPerRadian);
                        EXPECT_LT(AngleGap(el.M, M), 1e-12 * kDegreesPerRadian);
                        EXPECT_GE(el.M, 0.0);
                        EXPECT_LE(el.M, 360.0);
                        EXPECT_NEAR(el.P, std::sqrt(a) * a, 1e-12 * a * std::sqrt(a));
                        EXPECT_NEAR(el.Q, q * (1.0 + e) / (1.0 - e), 1e-12 * el.Q);
                        EXPECT_NEAR(el.n, 0.01720209895 / std::sqrt(a * a * a) * kDegreesPerRadian, 1e-12 * el.n);
                        ++cases;
                    }
                }
            }
        }
    }
    EXPECT_EQ(cases, 8 * 9 * 2 * 2 * 6);
}

TEST(ElementsFromState, PerihelionTimeIsTheNearestPassage) {
    const double q = 1.3, e = 0.6, Tp = 2460000.0;
    const double n0 = 0.01720209895 / std::pow(q / (1.0 - e), 1.5);
    const double period = 6.283185307179586 / n0;
    for (double since : {-0.4 * period, -10.0, 0.0, 10.0, 0.3 * period, 0.49 * period, 0.51 * period}) {
        const double t = Tp + since;
        const DerivedOrbit d = DerivedElements(t, Tp, q, e);
        GaussianGravity gravity;
        const StateVector s = StateFromElements(q, e, 60.0, 70.0, 80.0, d.M, d.a, 0.0, kObliquityJ2000, gravity);
        const OrbitElements el = ElementsFromState(t, s, kGaussSquared, kObliquityJ2000);
        const double expected = since > 0.5 * period ? Tp + period : Tp;
        EXPECT_LT(std::fabs(el.Tp - expected) * n0, 1e-12) << "since=" << since;
    }
}

TEST(ElementsFromState, ParabolaReturnsZeroAxisAndMinusDegreesPerRadianAsMeanMotion) {
    for (double q : {1.0, 2.0}) {
        const double t = 2460030.0, Tp = 2460000.0;
        const DerivedOrbit d = DerivedElements(t, Tp, q, 1.0);
        GaussianGravity gravity;
        const StateVector s = StateFromElements(q, 1.0, 10.0, 20.0, 30.0, d.M, d.a, 0.0, kObliquityJ2000, gravity);
        const OrbitElements el = ElementsFromState(t, s, kGaussSquared, kObliquityJ2000);
        EXPECT_EQ(el.a, 0.0);
        EXPECT_EQ(el.n, -57.2957795130823);
        EXPECT_EQ(el.e, 1.0);
        EXPECT_EQ(el.P, 0.0);
        EXPECT_EQ(el.Q, 0.0);
        EXPECT_NEAR(el.q, q, 1e-12 * q);
        EXPECT_NEAR(el.omega, 10.0, 1e-12);
        EXPECT_NEAR(el.node, 20.0, 1e-12);
        EXPECT_NEAR(el.i, 30.0, 1e-12);
        // M is the scaled time (t - Tp)/sqrt(q^3) in degrees, and Tp divides it by sqrt(q^3)
        // once more: right for q = 1, t - 30/q^3 days otherwise.
        EXPECT_NEAR(el.M, 30.0 / std::sqrt(q * q * q) * 57.2957795130823, 1e-10);
        EXPECT_NEAR(el.Tp, t - 30.0 / (q * q * q), 1e-9);
    }
}

TEST(ElementsFromState, HyperbolaeComeBack) {
    const double q = 1.2, t = 2460000.0;
    for (double e : {1.0001, 1.01, 1.5, 3.0, 10.0}) {
        for (double since : {-400.0, -30.0, 0.0, 25.0, 500.0}) {
            const DerivedOrbit d = DerivedElements(t, t - since, q, e);
            GaussianGravity gravity;
            const StateVector s =
                StateFromElements(q, e, 250.0, 40.0, 120.0, d.M, d.a, 0.0, kObliquityJ2000, gravity);
            const OrbitElements el = ElementsFromState(t, s, kGaussSquared, kObliquityJ2000);
            SCOPED_TRACE(::testing::Message() << "e=" << e << " since=" << since);
            // q = a (1 - e) loses digits as 1/(e - 1): 1e-11 at e = 1.0001.
            EXPECT_NEAR(el.q, q, 1e-11 * q);
            EXPECT_NEAR(el.e, e, 1e-12 * e);
            EXPECT_NEAR(el.a, -q / (e - 1.0), 1e-11 * std::fabs(el.a));
            EXPECT_EQ(el.n, -57.2957795130823);
            EXPECT_EQ(el.P, 0.0);
            EXPECT_EQ(el.Q, 0.0);
            EXPECT_LT(AngleGap(el.omega, 250.0), 1e-12 * kDegreesPerRadian);
            EXPECT_LT(AngleGap(el.node, 40.0), 1e-12 * kDegreesPerRadian);
            EXPECT_NEAR(el.i, 120.0, 1e-12 * kDegreesPerRadian);
            EXPECT_NEAR(el.M, d.M, 1e-12 * std::max(1.0, std::fabs(d.M)));
            EXPECT_NEAR(el.Tp, t - since, 1e-9);
        }
    }
}

TEST(ElementsFromState, OrbitInTheReferencePlaneHasNoNodeAndNoArgumentOfLatitude) {
    // z = 0 and vz = 0 with no rotation: hx = 0 and w = 0, so the node is 0, and the
    // argument of latitude divides 0 by sin 0.
    const StateVector s{1.1, 0.2, 0.0, -0.003, 0.016, 0.0};
    const OrbitElements el = ElementsFromState(kJ2000, s, kGaussSquared, 0.0);
    EXPECT_EQ(el.i, 0.0);
    EXPECT_EQ(el.node, 0.0);
    EXPECT_TRUE(std::isnan(el.omega));
    // Shape and timing do not depend on the plane.
    const double r = std::sqrt(1.1 * 1.1 + 0.2 * 0.2);
    const double v2 = 0.003 * 0.003 + 0.016 * 0.016;
    EXPECT_NEAR(el.a, 1.0 / (2.0 / r - v2 / kGaussSquared), 1e-12);
    EXPECT_FALSE(std::isnan(el.e));
    EXPECT_FALSE(std::isnan(el.M));
}

TEST(ElementsFromState, EquatorialOrbitLiesAtTheObliquityWithItsNodeAtTheAutumnalEquinox) {
    const StateVector s{1.1, 0.2, 0.0, -0.003, 0.016, 0.0};
    const OrbitElements el = ElementsFromState(kJ2000, s, kGaussSquared, kObliquityJ2000);
    EXPECT_NEAR(el.i, 0.4090928042223 * 57.2957795130823, 1e-12);
    EXPECT_LT(AngleGap(el.node, 180.0), 1e-12);
}

TEST(ElementsFromState, EclipticOrbitsKeepShapeInclinationAndMeanAnomaly) {
    // i = 0 or 180 exactly: after the turn to the equator and back, the plane is known
    // only to rounding, so the node and the argument of perihelion are not recovered.
    for (double i : {0.0, 180.0}) {
        for (double M : {10.0, 200.0}) {
            GaussianGravity gravity;
            const StateVector s = StateFromElements(1.3, 0.5, 30.0, 80.0, i, M, 2.6, 0.0, kObliquityJ2000, gravity);
            const OrbitElements el = ElementsFromState(kJ2000, s, kGaussSquared, kObliquityJ2000);
            EXPECT_NEAR(el.q, 1.3, 1e-12);
            EXPECT_NEAR(el.e, 0.5, 1e-12);
            EXPECT_NEAR(el.i, i, 1e-12 * kDegreesPerRadian);
            EXPECT_LT(AngleGap(el.M, M), 1e-12 * kDegreesPerRadian);
        }
    }
}

TEST(ElementsFromState, CircularOrbitsKeepTheArgumentOfLatitudeUnlessTheTrueAnomalyIsZeroOverZero) {
    int undefined = 0, cases = 0;
    for (double i : {1.0, 10.0, 45.0, 90.0, 135.0, 179.0}) {
        for (double omega : {30.0, 200.0}) {
            for (double M : {0.0, 10.0, 180.0, 350.0}) {
                GaussianGravity gravity;
                const StateVector s = StateFromElements(1.3, 0.0, omega, 80.0, i, M, 1.3, 0.0, kObliquityJ2000, gravity);
                const OrbitElements el = ElementsFromState(kJ2000, s, kGaussSquared, kObliquityJ2000);
                ++cases;
                EXPECT_NEAR(el.i, i, 1e-12 * kDegreesPerRadian);
                EXPECT_LT(AngleGap(el.node, 80.0), 1e-12 * kDegreesPerRadian);
                if (std::isnan(el.e)) {
                    // r.v and p - r both came out exactly 0; nothing guards the quotient.
                    ++undefined;
                    EXPECT_TRUE(std::isnan(el.q));
                    EXPECT_TRUE(std::isnan(el.omega));
                    continue;
                }
                EXPECT_NEAR(el.q, 1.3, 1e-12);
                EXPECT_LT(el.e, 1e-15);
                EXPECT_LT(AngleGap(el.omega + el.M, omega + M), 1e-12 * kDegreesPerRadian);
            }
        }
    }
    EXPECT_LT(undefined, cases / 10);
}

// ---------------------------------------------------------------- ClassifyOrbit

TEST(ClassifyOrbit, EachClassByItsRule) {
    EXPECT_EQ(ClassifyOrbit(1.0, 1.01, 0.0, 10.0, -100.0).name, "Hyperbolic");
    EXPECT_EQ(ClassifyOrbit(1.0, 1.0, 0.0, 10.0, 0.0).number, 2);
    EXPECT_EQ(ClassifyOrbit(1.0, 1.0, 0.0, 10.0, 0.0).name, "Parabolic");
    // 67P: T = 2.75.
    EXPECT_EQ(ClassifyOrbit(1.243, 0.641, 6.44, 7.04, 3.46).number, 3);
    EXPECT_EQ(ClassifyOrbit(1.243, 0.641, 6.44, 7.04, 3.46).name, "Jupiter-family");
    // 2P/Encke: T = 3.03, a < 5.204.
    EXPECT_EQ(ClassifyOrbit(0.336, 0.848, 3.3, 11.8, 2.21).name, "Encke-type");
    // 95P/Chiron: T = 3.36, a > 5.204.
    EXPECT_EQ(ClassifyOrbit(8.45, 0.38, 50.4, 6.9, 13.63).name, "Chiron-type");
    // Retrograde short period: T = 1.54.
    EXPECT_EQ(ClassifyOrbit(1.0, 0.5, 2.83, 170.0, 2.0).name, "Jupiter-family*");
    // 1P/Halley: T = -0.6.
    EXPECT_EQ(ClassifyOrbit(0.586, 0.967, 75.3, 162.26, 17.8).name, "Halley-type");
    const OrbitClass none = ClassifyOrbit(1.0, 0.99, 1000.0, 90.0, 100.0);
    EXPECT_EQ(none.number, 0);
    EXPECT_EQ(none.name, "No class");
}

TEST(ClassifyOrbit, PeriodBordersAreTwentyAndTwoHundred) {
    EXPECT_EQ(ClassifyOrbit(1.0, 0.99, 19.999, 90.0, 100.0).number, 6);
    EXPECT_EQ(ClassifyOrbit(1.0, 0.99, 20.0, 90.0, 100.0).number, 7);
    EXPECT_EQ(ClassifyOrbit(1.0, 0.99, 199.999, 90.0, 100.0).number, 7);
    EXPECT_EQ(ClassifyOrbit(1.0, 0.99, 200.0, 90.0, 100.0).number, 0);
}

TEST(ClassifyOrbit, TisserandExactlyThreeFallsToThePeriodRules) {
    // Jupiter's own orbit: a' = 5.204, e = 0, i = 0 gives T = 1 + 2 exactly.
    ASSERT_EQ(TisserandValue(5.204, 0.0, 0.0), 3.0);
    EXPECT_EQ(ClassifyOrbit(5.204, 0.0, 11.87, 0.0, 5.204).number, 6);
    EXPECT_EQ(ClassifyOrbit(5.204, 0.0, 25.0, 0.0, 5.204).number, 7);
}

TEST(ClassifyOrbit, TisserandAtOrBelowTwoFallsToThePeriodRules) {
    ASSERT_EQ(TisserandValue(2.601999999999999, 0.0, 90.0), 2.0);
    EXPECT_EQ(ClassifyOrbit(2.601999999999999, 0.0, 4.2, 90.0, 2.602).number, 6);
    EXPECT_EQ(ClassifyOrbit(2.601999999999999, 0.0, 400.0, 90.0, 2.602).number, 0);
    ASSERT_LT(TisserandValue(0.586, 0.967, 162.26), 2.0);
    EXPECT_EQ(ClassifyOrbit(0.586, 0.967, 5.0, 162.26, 17.8).number, 6);
}

TEST(ClassifyOrbit, SemiMajorAxisExactlyJupitersWithTisserandAboveThreeFallsToThePeriodRules) {
    ASSERT_GT(TisserandValue(1.0, 0.5, 0.0), 3.0);
    EXPECT_EQ(ClassifyOrbit(1.0, 0.5, 2.83, 0.0, 5.204).number, 6);
    EXPECT_EQ(ClassifyOrbit(1.0, 0.5, 150.0, 0.0, 5.204).number, 7);
    EXPECT_EQ(ClassifyOrbit(1.0, 0.5, 2.83, 0.0, 5.2039).number, 4);
    EXPECT_EQ(ClassifyOrbit(1.0, 0.5, 2.83, 0.0, 5.2041).number, 5);
}

TEST(ClassifyOrbit, NameComesFromTheLanguageTableCutToForty) {
    OrbitClassNames names;
    const std::string longName(90, 'x');
    names.text[4] = longName;
    names.text[1] = "Hyperbolisch";
    EXPECT_EQ(ClassifyOrbit(0.336, 0.848, 3.3, 11.8, 2.21, names).name, std::string(40, 'x'));
    EXPECT_EQ(ClassifyOrbit(1.0, 1.01, 0.0, 10.0, -100.0, names).name, "Hyperbolisch");
}

// ---------------------------------------------------------------- SphereOfInfluence

std::array<Position, 10> SpreadBodies() {
    std::array<Position, 10> bodies{};
    for (std::size_t j = 0; j < bodies.size(); ++j) bodies[j] = {static_cast<double>(j + 1) * 10.0, 0.0, 0.0};
    return bodies;
}

TEST(SphereOfInfluence, InsideAHillSphereNamesTheBody) {
    const auto bodies = SpreadBodies();
    const SphereOfInfluenceResult jupiter = SphereOfInfluence({50.0, 0.3, 0.0}, bodies);
    EXPECT_EQ(jupiter.body, 5);
    EXPECT_EQ(jupiter.name, "Jupiter");
    EXPECT_EQ(SphereOfInfluence({100.0, 0.0, 0.0003}, bodies).name, "Moon");
    EXPECT_EQ(SphereOfInfluence({10.0, 0.001, 0.001}, bodies).name, "Mercury");
}

TEST(SphereOfInfluence, OutsideEverySphereIsTheSun) {
    const auto bodies = SpreadBodies();
    const SphereOfInfluenceResult sun = SphereOfInfluence({55.0, 0.0, 0.0}, bodies);
    EXPECT_EQ(sun.body, 0);
    EXPECT_EQ(sun.name, "Sun");
    // The border itself is outside: the test is strictly less than the radius.
    EXPECT_EQ(SphereOfInfluence({50.0 + 0.5, 0.0, 0.0}, bodies).body, 0);
    EXPECT_EQ(SphereOfInfluence({64.0, 0.0, 0.0}, bodies).name, "Sun");
}

TEST(SphereOfInfluence, EarthIsTestedBeforeTheMoon) {
    std::array<Position, 10> bodies = SpreadBodies();
    bodies[2] = {1.0, 0.0, 0.0};     // Earth
    bodies[9] = {1.0, 0.00257, 0.0};  // Moon
    EXPECT_EQ(SphereOfInfluence({1.0, 0.00257, 0.0001}, bodies).name, "Earth");
}

TEST(SphereOfInfluence, NamesComeFromTheCallersTable) {
    BodyNames names;
    names.text[0] = "Sonne";
    names.text[5] = "Jupiter (de)";
    const auto bodies = SpreadBodies();
    EXPECT_EQ(SphereOfInfluence({50.0, 0.1, 0.0}, bodies, names).name, "Jupiter (de)");
    EXPECT_EQ(SphereOfInfluence({0.0, 0.0, 0.0}, bodies, names).name, "Sonne");
}

}  // namespace
}  // namespace orvane
