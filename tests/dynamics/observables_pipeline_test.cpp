// The observable pipeline: frames, light time, the apparent place, the
// triangle of elongation and phase, magnitudes, horizon coordinates and the
// smallest distance between two orbits.
#include <gtest/gtest.h>

#include <cmath>

#include "astro/constants.h"
#include "astro/nutation.h"
#include "astro/timescales.h"
#include "dynamics/ephemeris.h"
#include "dynamics/observables.h"
#include "support/temp_home.h"

namespace orvane {
namespace {

constexpr double kDeg = kPi / 180.0;

BodyStatesResult EarthAt(double x, double y, double z, double vx, double vy, double vz) {
    BodyStatesResult b;
    b.position[2] = {x, y, z};
    b.velocity[2] = {vx, vy, vz};
    return b;
}

TaskOptions Geocentric(int type, int kind, int plane, int reference) {
    TaskOptions o;
    o.ephemerisType = type;
    o.coordinateKind = kind;
    o.mainPlane = plane;
    o.referenceSystem = reference;
    o.centralBody = 3;
    o.observerPlace = 0;
    return o;
}

CometAtInstant CometAt(const StateVector& s) {
    CometAtInstant c;
    c.state = s;
    c.elements.q = 0.5;
    return c;
}

TEST(ObservablesPipeline, SunCentredRectangularGivesMoidEqualToQ) {
    TaskOptions o = Geocentric(1, 1, 0, 0);
    o.centralBody = 0;
    CometAtInstant c = CometAt({1.0, 2.0, 0.5, 0.01, 0.0, 0.0});
    c.elements = {2451545.0, 0.7312, 0.97, 0, 10, 20, 30, 0, 0, 24.37, 0};
    const EphemerisLine line = PositionPipeline(c, o, BodyStatesResult{}, 2451545.0);
    EXPECT_EQ(line.moid, 0.7312);
    // Around the Sun the position is the comet's own.
    EXPECT_EQ(line.position.x, 1.0);
    EXPECT_EQ(line.position.y, 2.0);
    EXPECT_DOUBLE_EQ(line.centreDistance, std::sqrt(5.25));
    EXPECT_DOUBLE_EQ(line.speed, 0.01);
}

TEST(ObservablesPipeline, ZeroAbsoluteMagnitudeGivesZeroTotalMagnitude) {
    CometAtInstant c = CometAt({2.0, 0.0, 0.0, 0.0, 0.01, 0.0});
    c.H = 0.0;
    c.G = 8.0;
    c.H2 = 14.0;
    const EphemerisLine line = PositionPipeline(c, Geocentric(0, 1, 0, 0),
                                                EarthAt(1.0, 0.0, 0.0, 0.0, 0.0172, 0.0), 2451545.0);
    EXPECT_EQ(line.totalMagnitude, 0.0);
    // Comet at opposition: 1 AU from the Earth, 2 from the Sun, phase 0.
    EXPECT_DOUBLE_EQ(line.nuclearMagnitude, 14.0 + 5.0 * std::log10(2.0));
    EXPECT_EQ(TotalMagnitude(0.0, 4.0, 2.0, 3.0), 0.0);
    EXPECT_EQ(NuclearMagnitude(0.0, 4.0, 2.0, 3.0, 10.0), 0.0);
}

TEST(ObservablesPipeline, MissingSlopesDefaultToTenAndFive) {
    EXPECT_DOUBLE_EQ(TotalMagnitude(6.0, 0.0, 2.0, 4.0), 6.0 + 5.0 * std::log10(2.0) + 10.0 * std::log10(4.0));
    EXPECT_DOUBLE_EQ(TotalMagnitude(6.0, 12.0, 2.0, 4.0), 6.0 + 5.0 * std::log10(2.0) + 12.0 * std::log10(4.0));
    EXPECT_DOUBLE_EQ(NuclearMagnitude(10.0, 0.0, 2.0, 4.0, 30.0),
                     10.0 + 5.0 * std::log10(2.0) + 5.0 * std::log10(4.0) + 0.9);
    EXPECT_DOUBLE_EQ(NuclearMagnitude(10.0, 7.5, 2.0, 4.0, 30.0),
                     10.0 + 5.0 * std::log10(2.0) + 7.5 * std::log10(4.0) + 0.9);
}

TEST(ObservablesPipeline, ApparentDiffersFromGeometricByTheRateTimesLightTime) {
    const BodyStatesResult earth = EarthAt(0.2, 0.97, 0.01, -0.0172, 0.0035, 0.0);
    const CometAtInstant c = CometAt({1.3, -0.4, 0.6, 0.004, 0.012, -0.007});
    for (int plane = 0; plane <= 1; ++plane) {
        const EphemerisLine g = PositionPipeline(c, Geocentric(0, 1, plane, 0), earth, 2451545.0);
        const EphemerisLine a = PositionPipeline(c, Geocentric(0, 2, plane, 0), earth, 2451545.0);
        EXPECT_EQ(a.distance, g.distance);
        EXPECT_EQ(a.firstAngleRate, g.firstAngleRate);
        const double shiftFirst = g.firstAngleRate * g.distance * kLightTimePerAu;
        const double shiftSecond = g.secondAngleRate * g.distance * kLightTimePerAu;
        EXPECT_NE(shiftFirst, 0.0);
        EXPECT_NEAR(g.firstAngle - a.firstAngle, shiftFirst, 1e-15);
        EXPECT_NEAR(g.secondAngle - a.secondAngle, shiftSecond, 1e-15);
    }
}

TEST(ObservablesPipeline, LightTimeLoopEndsAfterOneExtraPassWithoutVelocity) {
    PipelineVectors v;
    v.S = {1.0, 2.0, 2.0, 0.0, 0.0, 0.0};
    v.C = {0.5, 0.0, 0.0, 0.0, 0.0, 0.0};
    int passes = 0;
    const StateVector x = AstrometricVector(v, passes);
    EXPECT_EQ(passes, 2);
    EXPECT_EQ(x.x, 1.5);
    EXPECT_EQ(x.z, 2.0);
}

TEST(ObservablesPipeline, LightTimeRetardsOnlyTheCometsVelocity) {
    PipelineVectors v;
    v.S = {3.0, 0.0, 4.0, 0.01, 0.02, 0.0};
    v.C = {0.0, 0.0, 0.0, 0.5, 0.5, 0.5};  // the Sun's motion is not retarded
    v.O = {0.0, 0.0, 0.0, 0.3, 0.3, 0.3};
    int passes = 0;
    const StateVector x = AstrometricVector(v, passes);
    EXPECT_GT(passes, 2);
    const double rho = std::sqrt(x.x * x.x + x.y * x.y + x.z * x.z);
    const double tau = rho * kLightTimePerAu;
    EXPECT_NEAR(x.x, 3.0 - tau * 0.01, 1e-9 * 0.02);
    EXPECT_NEAR(x.y, -tau * 0.02, 1e-9 * 0.02);
    EXPECT_EQ(x.z, 4.0);
    // The velocity stays the plain sum.
    EXPECT_DOUBLE_EQ(x.vx, 0.81);
    EXPECT_DOUBLE_EQ(x.vz, 0.8);
}

TEST(ObservablesPipeline, AstrometricDistanceIsTheRetardedOne) {
    const BodyStatesResult earth = EarthAt(1.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    const CometAtInstant c = CometAt({1.0, 1.0, 0.0, 0.0, 0.02, 0.0});  // moving away
    const EphemerisLine g = PositionPipeline(c, Geocentric(0, 1, 0, 0), earth, 2451545.0);
    const EphemerisLine a = PositionPipeline(c, Geocentric(0, 0, 0, 0), earth, 2451545.0);
    EXPECT_EQ(g.distance, 1.0);
    // rho = 1 - 0.02 rho 0.00577551831 at the fixed point.
    EXPECT_NEAR(a.distance, 1.0 / (1.0 + 0.02 * kLightTimePerAu), 1e-10);
}

TEST(ObservablesPipeline, ElongationAndPhaseByTheTriangle) {
    // Earth at (1, 0, 0), comet at (1, 1, 0): 90 degrees from the Sun, phase 45.
    const ElongationPhase ep = ElongationAndPhase({1, 1, 0, 0, 0, 0}, {-1, 0, 0, 0, 0, 0});
    EXPECT_NEAR(ep.elongation, kHalfPi, 1e-14);
    EXPECT_NEAR(ep.phase, kPi / 4.0, 1e-14);
    EXPECT_EQ(ep.side, 1);
    const ElongationPhase other = ElongationAndPhase({1, -1, 0, 0, 0, 0}, {-1, 0, 0, 0, 0, 0});
    EXPECT_EQ(other.side, 0);
    // At opposition and in conjunction behind the Sun.
    const ElongationPhase opposition = ElongationAndPhase({2, 0, 0, 0, 0, 0}, {-1, 0, 0, 0, 0, 0});
    EXPECT_EQ(opposition.elongation, kPi);
    EXPECT_EQ(opposition.phase, 0.0);
    const ElongationPhase behind = ElongationAndPhase({-2, 0, 0, 0, 0, 0}, {-1, 0, 0, 0, 0, 0});
    EXPECT_EQ(behind.elongation, 0.0);
    EXPECT_EQ(behind.phase, 0.0);
    // Between the Sun and the Earth: elongation 0, phase 180.
    const ElongationPhase between = ElongationAndPhase({0.5, 0, 0, 0, 0, 0}, {-1, 0, 0, 0, 0, 0});
    EXPECT_EQ(between.elongation, 0.0);
    EXPECT_EQ(between.phase, kPi);
    // Around the Sun there is no triangle.
    const ElongationPhase sun = ElongationAndPhase({1, 1, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0});
    EXPECT_EQ(sun.elongation, 0.0);
    EXPECT_EQ(sun.phase, 0.0);
}

TEST(ObservablesPipeline, PrintedValuesInHoursDegreesAndArcsecondsAnHour) {
    const BodyStatesResult earth = EarthAt(1.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    // Geocentric direction (0, 1, 1)/sqrt2: RA 90 deg = 6 h, Dec 45 deg.
    const CometAtInstant c = CometAt({1.0, 1.0, 1.0, -0.001, 0.0, 0.0});
    const EphemerisLine eq = PositionPipeline(c, Geocentric(0, 1, 0, 0), earth, 2451545.0);
    EXPECT_NEAR(eq.firstCoordinate, 6.0, 1e-13);
    EXPECT_NEAR(eq.secondCoordinate, 45.0, 1e-13);
    // RA rate = (x y' - y x')/rho_xy^2 = 0.001 rad/day.
    EXPECT_NEAR(eq.firstAngleRate, 0.001, 1e-16);
    EXPECT_NEAR(eq.firstRate, 0.001 * kArcsecondsPerRadian / 24.0 * std::cos(45.0 * kDeg), 1e-12);
    EXPECT_NEAR(eq.secondRate, 0.0, 1e-16);
    TaskOptions ecl = Geocentric(0, 1, 1, 0);
    const EphemerisLine el = PositionPipeline(c, ecl, earth, 2451545.0);
    // Ecliptic longitude printed in degrees, not hours.
    EXPECT_GT(el.firstCoordinate, 24.0);
    // The stored ecliptic matrix is rounded to ten digits; lengths follow.
    EXPECT_NEAR(el.distance, std::sqrt(2.0), 1e-9);
}

TEST(ObservablesPipeline, ObserverIsNotRotatedOnTheEquatorRows) {
    const double jd = 2460000.5;
    for (int ref = 0; ref <= 2; ++ref) {
        const FrameMatrices f = FrameRotation(0, ref, jd);
        for (int k = 0; k < 9; ++k) EXPECT_EQ(f.observer.m[k], IdentityMatrix().m[k]);
    }
    const FrameMatrices e1950 = FrameRotation(1, 1, jd);
    const Matrix3 both = MultiplyMatrices(kEquator1950ToEcliptic1950, kEquator2000To1950);
    for (int k = 0; k < 9; ++k) {
        EXPECT_EQ(e1950.observer.m[k], kEquator1950ToEcliptic1950.m[k]);
        EXPECT_EQ(e1950.comet.m[k], both.m[k]);
        EXPECT_EQ(FrameRotation(1, 0, jd).observer.m[k], kEquator2000ToEcliptic2000.m[k]);
        EXPECT_EQ(FrameRotation(0, 1, jd).comet.m[k], kEquator2000To1950.m[k]);
        EXPECT_EQ(FrameRotation(2, 2, jd).comet.m[k], IdentityMatrix().m[k]);
    }
    // True equator: N P; true ecliptic: E N P with E alone for the observer.
    const FrameMatrices t = FrameRotation(1, 2, jd);
    const Nutation n = NutationMatrices(0, 0, jd);
    const Matrix3 np = MultiplyMatrices(n.N, PrecessionMatrix(0, jd).matrix);
    const Matrix3 enp = MultiplyMatrices(n.E, np);
    for (int k = 0; k < 9; ++k) {
        EXPECT_EQ(FrameRotation(0, 2, jd).comet.m[k], np.m[k]);
        EXPECT_EQ(t.comet.m[k], enp.m[k]);
        EXPECT_EQ(t.observer.m[k], n.E.m[k]);
    }
}

TEST(ObservablesPipeline, TopocentreAddsTheObserverOnlyAroundTheEarth) {
    TaskOptions o = Geocentric(1, 1, 0, 0);
    o.observerPlace = 1;
    o.longitudeDegrees = 30.3274;
    o.observerRhoCos = 0.5;
    o.observerRhoSin = 0.86;
    const double jd = 2451545.0;
    const BodyStatesResult earth = EarthAt(1.0, 0.0, 0.0, 0.0, 0.0172, 0.0);
    const PipelineVectors v = MakePipelineVectors({2, 0, 0, 0, 0, 0}, o, earth, jd);
    const StateVector expected = ObserverState(TerrestrialToUniversal(jd), 30.3274, 0.5, 0.86);
    EXPECT_EQ(v.O.x, expected.x);
    EXPECT_EQ(v.O.vy, expected.vy);
    EXPECT_EQ(v.C.x, -1.0);
    EXPECT_EQ(v.C.vy, -0.0172);
    o.centralBody = 5;
    EXPECT_EQ(MakePipelineVectors({2, 0, 0, 0, 0, 0}, o, earth, jd).O.x, 0.0);
    o.centralBody = 0;
    const PipelineVectors sun = MakePipelineVectors({2, 0, 0, 0, 0, 0}, o, earth, jd);
    EXPECT_EQ(sun.C.x, 0.0);
    EXPECT_EQ(sun.O.x, 0.0);
}

TEST(ObservablesPipeline, HorizonCoordinates) {
    const double lat = 60.0 * kDeg;
    const Horizon zenith = HorizonCoordinates(0.0, lat, lat);
    EXPECT_NEAR(zenith.altitude, kHalfPi, 1e-12);
    const Horizon south = HorizonCoordinates(0.0, 0.0, lat);
    EXPECT_NEAR(south.altitude, 30.0 * kDeg, 1e-14);
    EXPECT_NEAR(south.azimuth, kPi, 1e-14);
    const Horizon east = HorizonCoordinates(-kHalfPi, 0.0, lat);
    EXPECT_NEAR(east.altitude, 0.0, 1e-14);
    EXPECT_NEAR(east.azimuth, kHalfPi, 1e-14);
    const Horizon west = HorizonCoordinates(kHalfPi, 0.0, lat);
    EXPECT_NEAR(west.azimuth, 3.0 * kHalfPi, 1e-14);
    // Lower culmination of a circumpolar star: due north, at phi + delta - 90.
    const Horizon north = HorizonCoordinates(kPi, 80.0 * kDeg, lat);
    EXPECT_NEAR(std::fmod(north.azimuth, kTwoPi), 0.0, 1e-14);
    EXPECT_NEAR(north.altitude, 50.0 * kDeg, 1e-14);
}

TEST(ObservablesPipeline, MoidOfCoplanarCircles) {
    const WalkOrbit earth{1.0, 0.0, 1.0, 0.0, 0.0, 0.0};
    const WalkOrbit outer{1.5, 0.0, 1.5, 40.0, 0.0, 0.0};
    EXPECT_NEAR(MinimumOrbitDistance(outer, earth), 0.5, 1e-12);
    // Inclined by 90 degrees about the line of nodes: the circles of radius
    // 1 and 1.5 come closest at the nodes, 0.5 apart.
    const WalkOrbit polar{1.5, 0.0, 1.5, 0.0, 0.0, 90.0};
    EXPECT_NEAR(MinimumOrbitDistance(polar, earth), 0.5, 1e-12);
}

TEST(ObservablesPipeline, MoidOfAParabolaCrossingTheEarthsOrbit) {
    // q = 0.5 in the ecliptic: the parabola crosses the circle of 1 AU.
    const WalkOrbit parabola{0.5, 1.0, 0.0, 0.0, 0.0, 0.0};
    const WalkOrbit earth{1.0, 0.0, 1.0, 0.0, 0.0, 0.0};
    // The fine walk steps about 1 degree along the circle and 0.5 along the
    // parabola at the crossing: the pairs miss the crossing by a few 1e-3 AU.
    const double moid = MinimumOrbitDistance(parabola, earth);
    EXPECT_LT(moid, 0.009);
    // Perpendicular to the ecliptic with the perihelion at the node, 2 AU out:
    // every point is at least 2 AU from the Sun, the node exactly 1 AU from
    // the circle.
    const WalkOrbit raised{2.0, 1.0, 0.0, 0.0, 0.0, 90.0};
    EXPECT_NEAR(MinimumOrbitDistance(raised, earth), 1.0, 1e-12);
    // A hyperbola's far branch is never placed.
    const WalkOrbit hyperbola{1.5, 1.2, -7.5, 0.0, 0.0, 0.0};
    EXPECT_NEAR(MinimumOrbitDistance(hyperbola, earth), 0.5, 1e-9);
}

TEST(ObservablesPipeline, GeometricRectangularIsTheCometLessTheEarthFromTheFile) {
    Ephemeris eph;
    ASSERT_EQ(eph.OpenEphemerisFile(testing::sharedPath("ephemerides/de405-1960-2060.dat")),
              EphemerisStatus::Ok);
    const double jd = 2451545.0;
    const CometAtInstant c = CometAt({1.2, -0.3, 0.4, 0.002, 0.011, -0.004});
    EphemerisLine line;
    ASSERT_EQ(PositionPipeline(c, Geocentric(1, 1, 0, 0), eph, jd, line), EphemerisStatus::Ok);
    State9 earth{};
    ASSERT_EQ(eph.RelativeState(jd, 3, 11, earth), EphemerisStatus::Ok);
    EXPECT_NEAR(line.position.x, 1.2 - earth[0], 1e-15);
    EXPECT_NEAR(line.position.y, -0.3 - earth[1], 1e-15);
    EXPECT_NEAR(line.position.z, 0.4 - earth[2], 1e-15);
    EXPECT_NEAR(line.position.vy, 0.011 - earth[4], 1e-17);
}

}  // namespace
}  // namespace orvane
