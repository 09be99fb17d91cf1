// The numbers of the golden tables against values computed without the run and
// without the pipeline: the comet integrated straight to each output instant by
// the integrator, the Earth from the planetary file, elements by ElementsFromState.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "astro/constants.h"
#include "dynamics/radau.h"
#include "golden_support.h"
#include "support/temp_home.h"

namespace {

using namespace orvane;
using namespace orvane::golden;

// The comet's heliocentric state (equator J2000) at jd, integrated from its epoch.
StateVector DirectState(Ephemeris& eph, const RunObject& object, double jd) {
    const IntegrationBlock& b = object.epochBlock;
    ForceModel force(eph);
    force.SetRunEpoch(b.time);
    force.SetNonGravity({b.A1, b.A2, b.A3, b.NGE_DT});
    Integrator integrator(force);
    StateVector end{b.x, b.y, b.z, b.vx, b.vy, b.vz};
    if (jd == b.time) return end;
    integrator.Run(end, jd - b.time, [&](const StepReport& r) {
        end = r.state;
        return true;
    });
    return end;
}

StateVector Minus(const StateVector& a, const State9& b) {
    return {a.x - b[0], a.y - b[1], a.z - b[2], a.vx - b[3], a.vy - b[4], a.vz - b[5]};
}

double Norm(const StateVector& s) { return std::sqrt(s.x * s.x + s.y * s.y + s.z * s.z); }

TEST(IndependentValues, GeometricGeocentricPlacesFollowTheDirectIntegration) {
    if (!planetaryFileAvailable()) GTEST_SKIP() << "no planetary file";
    orvane::testing::TempHome home;
    TaskOptions o = ephemerisOptions(home.root());
    o.coordinateKind = 1;
    o.observerPlace = 0;
    const RunResult result = runGoldenComets(o, TaskKind::Ephemerides);
    ASSERT_TRUE(result.ok);
    ASSERT_GE(result.lines.size(), 10u);
    Ephemeris eph;
    ASSERT_EQ(eph.OpenEphemerisFile(planetaryFile()), EphemerisStatus::Ok);
    const std::vector<RunObject> start = goldenComets(kEphemerisTarget);
    double worstDistance = 0.0, worstAngle = 0.0;
    for (const EmittedLine& emitted : result.lines) {
        const EphemerisLine& line = emitted.line;
        State9 earth{};
        ASSERT_EQ(eph.RelativeState(line.jd, 3, 11, earth), EphemerisStatus::Ok);
        const StateVector x = Minus(DirectState(eph, start[static_cast<std::size_t>(emitted.objectIndex)], line.jd), earth);
        const double rho = Norm(x);
        double ra = std::atan2(x.y, x.x) * 12.0 / std::numbers::pi;
        if (ra < 0.0) ra += 24.0;
        const double dec = std::asin(x.z / rho) * 180.0 / std::numbers::pi;
        worstDistance = std::max(worstDistance, std::fabs(line.distance - rho));
        const double dRa = (line.firstCoordinate - ra) * 15.0 * std::cos(dec * std::numbers::pi / 180.0);
        worstAngle = std::max(worstAngle, std::hypot(dRa, line.secondCoordinate - dec) * 3600.0);
    }
    std::printf("geometric places: worst distance %.3e AU, worst direction %.3e arcsec\n", worstDistance, worstAngle);
    // Between the integrator's steps the run interpolates the elements linearly.
    EXPECT_LT(worstDistance, 1e-6);
    EXPECT_LT(worstAngle, 0.05);
}

TEST(IndependentValues, OrbitalElementsAreThoseOfTheDirectState) {
    if (!planetaryFileAvailable()) GTEST_SKIP() << "no planetary file";
    orvane::testing::TempHome home;
    TaskOptions o = ephemerisOptions(home.root());
    o.ephemerisType = 2;
    o.mainPlane = 1;
    o.centralBody = 0;
    const RunResult result = runGoldenComets(o, TaskKind::Ephemerides);
    ASSERT_TRUE(result.ok);
    Ephemeris eph;
    ASSERT_EQ(eph.OpenEphemerisFile(planetaryFile()), EphemerisStatus::Ok);
    const std::vector<RunObject> start = goldenComets(kEphemerisTarget);
    double worstQ = 0.0, worstE = 0.0, worstAngle = 0.0, worstTp = 0.0;
    for (const EmittedLine& emitted : result.lines) {
        const EphemerisLine& line = emitted.line;
        const StateVector s = DirectState(eph, start[static_cast<std::size_t>(emitted.objectIndex)], line.jd);
        const OrbitElements direct = ElementsFromState(line.jd, s, kGaussSquared, kObliquityJ2000);
        const OrbitElements& shown = line.osculating;
        worstQ = std::max(worstQ, std::fabs(shown.q - direct.q));
        worstE = std::max(worstE, std::fabs(shown.e - direct.e));
        worstTp = std::max(worstTp, std::fabs(shown.Tp - direct.Tp));
        for (double d : {shown.i - direct.i, shown.node - direct.node, shown.omega - direct.omega}) {
            worstAngle = std::max(worstAngle, std::fabs(d));
        }
    }
    std::printf("orbital elements: worst q %.3e AU, e %.3e, angles %.3e deg, Tp %.3e d\n", worstQ, worstE,
                worstAngle, worstTp);
    // The elements hang on the velocity, which the linear interpolation of the
    // elements between two steps carries less closely than the place (seen: q
    // 6.7e-7 AU, e 2.8e-8, angles 2.0e-5 degrees, Tp 2.7e-5 days).
    EXPECT_LT(worstQ, 2e-6);
    EXPECT_LT(worstE, 1e-7);
    EXPECT_LT(worstAngle, 1e-4);
    EXPECT_LT(worstTp, 1e-3);
}

TEST(IndependentValues, KnownEncountersOfTheCloseApproachRun) {
    if (!planetaryFileAvailable()) GTEST_SKIP() << "no planetary file";
    TaskOptions o;
    o.showPerihelionPassages = true;
    o.planetSizeCounted = false;
    const RunResult result = runGoldenComets(o, TaskKind::CloseApproaches, kApproachTarget);
    ASSERT_TRUE(result.ok);
    // 81P passed Jupiter within 0.006 AU on 1974-09-10; Hale-Bopp passed Jupiter
    // at 0.77 AU in April 1996 and the Sun at 0.914 AU on 1997-04-01.
    EXPECT_NE(result.approachText.find("Jupiter   : 1974-09-09 19:53:00 ->  0.005808850920 (AU)"), std::string::npos)
        << result.approachText;
    EXPECT_NE(result.approachText.find("Jupiter   : 1996-04-05"), std::string::npos);
    EXPECT_NE(result.approachText.find("Sun       : 1997-04-01"), std::string::npos);
}

}  // namespace
