// The paths of orbits on the diagram: the angular steps by scale and q, the cut
// at the nodes into the arcs above and below the ecliptic, and the cut at
// (100 + q) AU that ends open and very long orbits on the circle of 100 AU.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tasks/orbit_path.h"

using namespace orvane;

namespace {

DiagramCamera Camera(double lat, double lon, int zoom) {
    DiagramCamera c;
    c.lat = lat;
    c.lon = lon;
    c.zoom = zoom;
    c.centerX = 1000;
    c.centerY = 1000;
    return c;
}

double DistanceFromSun(const ScreenPoint& p) { return std::hypot(p.x - 1000.0, p.y - 1000.0); }

// Every point of the path.
template <typename F>
void ForEachPoint(const OrbitPath& path, F f) {
    for (int k = 0; k < path.upperCount; ++k) {
        const ArcPolyline& arc = path.upper[static_cast<std::size_t>(k)];
        for (int n = 0; n < arc.count; ++n) f(arc.points[static_cast<std::size_t>(n)], true);
    }
    for (int k = 0; k < path.lowerCount; ++k) {
        const ArcPolyline& arc = path.lower[static_cast<std::size_t>(k)];
        for (int n = 0; n < arc.count; ++n) f(arc.points[static_cast<std::size_t>(n)], false);
    }
}

const ScreenPoint& First(const ArcPolyline& arc) { return arc.points[0]; }
const ScreenPoint& Last(const ArcPolyline& arc) { return arc.points[static_cast<std::size_t>(arc.count - 1)]; }

// Ends of the polylines that lie on the circle of 100 AU at 5 pixels an AU.
int EndsOnTheCircle(const OrbitPath& path) {
    int n = 0;
    const auto count = [&](const ArcPolyline& arc) {
        n += std::fabs(DistanceFromSun(First(arc)) - 500.0) <= 1.5;
        n += std::fabs(DistanceFromSun(Last(arc)) - 500.0) <= 1.5;
    };
    for (int k = 0; k < path.upperCount; ++k) count(path.upper[static_cast<std::size_t>(k)]);
    for (int k = 0; k < path.lowerCount; ++k) count(path.lower[static_cast<std::size_t>(k)]);
    return n;
}

}  // namespace

TEST(AngularStep, PlanetsBy5BandsOfScale) {
    EXPECT_EQ(PlanetAngularStep(5), 10.0);
    EXPECT_EQ(PlanetAngularStep(29), 10.0);
    EXPECT_EQ(PlanetAngularStep(30), 8.0);
    EXPECT_EQ(PlanetAngularStep(59), 8.0);
    EXPECT_EQ(PlanetAngularStep(60), 6.0);
    EXPECT_EQ(PlanetAngularStep(89), 6.0);
    EXPECT_EQ(PlanetAngularStep(90), 4.0);
    EXPECT_EQ(PlanetAngularStep(119), 4.0);
    EXPECT_EQ(PlanetAngularStep(120), 2.0);
    EXPECT_EQ(PlanetAngularStep(155), 2.0);
}

TEST(AngularStep, CometsAbove0Point1AuAsThePlanets) {
    for (int s : {5, 29, 30, 59, 60, 89, 90, 119, 120, 155}) {
        EXPECT_EQ(CometAngularStep(s, 0.10000001), PlanetAngularStep(s)) << s;
        EXPECT_EQ(CometAngularStep(s, 35.0), PlanetAngularStep(s)) << s;
    }
}

TEST(AngularStep, CometsUpTo0Point1AuTwiceThat) {
    EXPECT_EQ(CometAngularStep(25, 0.1), 20.0);
    EXPECT_EQ(CometAngularStep(55, 0.05), 16.0);
    EXPECT_EQ(CometAngularStep(85, 0.01), 12.0);
    EXPECT_EQ(CometAngularStep(115, 0.0059), 8.0);
    EXPECT_EQ(CometAngularStep(150, 0.1), 4.0);
}

TEST(OrbitPath, AnEllipseIsTwoArcsJoinedAtTheNodes) {
    const DiagramProjection view(Camera(45, 135, 10));
    OrbitPath path;
    SampleOrbit({0.9833, 0.0167, 102.9, 174.8, 0.0}, 6.0, view, path);
    ASSERT_EQ(path.upperCount, 1);
    ASSERT_EQ(path.lowerCount, 1);
    // Half a turn at 6 degrees: 30 steps, 31 points.
    EXPECT_EQ(path.upper[0].count, 31);
    EXPECT_EQ(path.lower[0].count, 31);
    EXPECT_EQ(Last(path.upper[0]), First(path.lower[0]));
    EXPECT_EQ(Last(path.lower[0]), First(path.upper[0]));
}

TEST(OrbitPath, TheFinestStepFillsHalfATurnWithinTheFixedArrays) {
    const DiagramProjection view(Camera(45, 135, 25));
    OrbitPath path;
    SampleOrbit({5.0, 0.05, 10, 20, 1.3}, 2.0, view, path);
    EXPECT_EQ(path.upper[0].count, 91);
    SampleOrbit({5.0, 0.05, 10, 20, 1.3}, 0.01, view, path);
    EXPECT_LE(path.upper[0].count, kMaxArcPoints);
    EXPECT_GT(path.upper[0].count, 91);
}

TEST(OrbitPath, TheUpperArcLiesAboveTheEclipticAndTheLowerBelow) {
    // Edge on, z is up the screen.
    const DiagramProjection view(Camera(90, 0, 10));
    for (double inclination : {30.0, 150.0}) {
        OrbitPath path;
        SampleOrbit({1.2, 0.4, 63.0, 200.0, inclination}, 4.0, view, path);
        int above = 0, below = 0;
        ForEachPoint(path, [&](const ScreenPoint& p, bool upper) {
            if (upper) {
                EXPECT_LE(p.y, 1000);
                above += p.y < 999;
            } else {
                EXPECT_GE(p.y, 999);
                below += p.y > 1000;
            }
        });
        EXPECT_GT(above, 20) << inclination;
        EXPECT_GT(below, 20) << inclination;
    }
}

TEST(OrbitPath, TheArcsStartAtTheNodes) {
    // Face on from the pole, lon 0: the ascending node at longitude 40 degrees
    // lies at q (1 + e) / (1 + e cos v) with v = -omega.
    const DiagramProjection view(Camera(0, 0, 10));
    const double q = 1.0, e = 0.5, omega = 70.0, node = 40.0;
    OrbitPath path;
    SampleOrbit({q, e, omega, node, 20.0}, 8.0, view, path);
    const double rad = 3.14159265358979323846 / 180.0;
    const double rAsc = q * (1 + e) / (1 + e * std::cos(-omega * rad));
    const ScreenPoint asc = view.Project(rAsc * std::cos(node * rad), rAsc * std::sin(node * rad), 0.0);
    EXPECT_NEAR(First(path.upper[0]).x, asc.x, 1);
    EXPECT_NEAR(First(path.upper[0]).y, asc.y, 1);
    const double rDesc = q * (1 + e) / (1 + e * std::cos((180.0 - omega) * rad));
    const ScreenPoint desc = view.Project(-rDesc * std::cos(node * rad), -rDesc * std::sin(node * rad), 0.0);
    EXPECT_NEAR(First(path.lower[0]).x, desc.x, 1);
    EXPECT_NEAR(First(path.lower[0]).y, desc.y, 1);
}

// A parabolic orbit is cut to the part within (100 + q) AU and ends on the circle
// of 100 AU; r is never taken where 1 + e cos v = 0 (there it has no value, and a
// point there would leave the circle for the edge of the pixel range).
TEST(OrbitPath, AParabolaEndsOnTheCircleOf100Au) {
    const DiagramProjection view(Camera(0, 0, -5));  // 5 pixels an AU: the circle is 500 pixels
    for (double omega : {0.0, 10.0, 90.0, 180.0, 250.0, 359.0}) {
        for (double step : {10.0, 20.0}) {
            OrbitPath path;
            SampleOrbit({1.0, 1.0, omega, 30.0, 0.0}, step, view, path);
            ASSERT_GE(path.upperCount + path.lowerCount, 2) << omega;
            // Points inside the cut lie within (100 + q) AU.
            ForEachPoint(path, [&](const ScreenPoint& p, bool) {
                EXPECT_LE(DistanceFromSun(p), 505.0 + 1.5) << omega << " " << step;
            });
            // The two ends of the orbit lie on the circle, the other ends at the nodes.
            EXPECT_EQ(EndsOnTheCircle(path), 2) << omega << " " << step;
        }
    }
}

TEST(OrbitPath, TheArcThatHoldsTheCutFallsApartInTwo) {
    // omega 90: the ascending node at v = -90, the upper arc is [-90, 90] around the
    // perihelion and the lower one runs through the open far side.
    const DiagramProjection view(Camera(0, 0, -5));
    OrbitPath path;
    SampleOrbit({1.0, 1.0, 90.0, 0.0, 0.0}, 10.0, view, path);
    EXPECT_EQ(path.upperCount, 1);
    ASSERT_EQ(path.lowerCount, 2);
    // Each lower piece joins the upper arc at a node and ends on the circle.
    EXPECT_EQ(First(path.lower[0]), Last(path.upper[0]));
    EXPECT_EQ(Last(path.lower[1]), First(path.upper[0]));
    EXPECT_NEAR(DistanceFromSun(Last(path.lower[0])), 500.0, 1.5);
    EXPECT_NEAR(DistanceFromSun(First(path.lower[1])), 500.0, 1.5);
}

TEST(OrbitPath, AHyperbolaEndsOnTheCircleBeforeItsAsymptote) {
    // e = 2: the asymptotes are at v = +-120, which the grid of 10 degrees from the
    // node at the perihelion would hit.
    const DiagramProjection view(Camera(0, 0, -5));
    OrbitPath path;
    SampleOrbit({0.5, 2.0, 0.0, 0.0, 0.0}, 10.0, view, path);
    ASSERT_EQ(path.upperCount, 1);
    ASSERT_EQ(path.lowerCount, 1);
    ForEachPoint(path, [&](const ScreenPoint& p, bool) { EXPECT_LE(DistanceFromSun(p), 502.5 + 1.5); });
    EXPECT_EQ(EndsOnTheCircle(path), 2);
    EXPECT_NEAR(DistanceFromSun(Last(path.upper[0])), 500.0, 1.5);
    EXPECT_NEAR(DistanceFromSun(First(path.lower[0])), 500.0, 1.5);
    // The end lies toward the orbit's own far point, inside the asymptote's angle.
    const double angle = std::atan2(-(Last(path.upper[0]).y - 1000.0), Last(path.upper[0]).x - 1000.0) * 180.0 /
                         3.14159265358979323846;
    EXPECT_GT(angle, 110.0);
    EXPECT_LT(angle, 120.0);
}

TEST(OrbitPath, ALongEllipseIsCutToo) {
    // Aphelion at 199 AU: beyond the cut.
    const DiagramProjection view(Camera(0, 0, -5));
    OrbitPath path;
    SampleOrbit({1.0, 0.99, 45.0, 0.0, 3.0}, 10.0, view, path);
    ForEachPoint(path, [&](const ScreenPoint& p, bool) { EXPECT_LE(DistanceFromSun(p), 505.0 + 1.5); });
    EXPECT_EQ(EndsOnTheCircle(path), 2);
    // Halley's aphelion at 35 AU stays whole: two arcs, closed.
    SampleOrbit({0.586, 0.967, 111.3, 58.4, 162.2}, 10.0, view, path);
    EXPECT_EQ(path.upperCount, 1);
    EXPECT_EQ(path.lowerCount, 1);
    EXPECT_EQ(Last(path.lower[0]), First(path.upper[0]));
}

TEST(OrbitPath, ACircleOfRadiusQ) {
    const DiagramProjection view(Camera(0, 0, 10));
    OrbitPath path;
    SampleOrbit({2.0, 0.0, 0.0, 0.0, 0.0}, 10.0, view, path);
    ForEachPoint(path, [&](const ScreenPoint& p, bool) { EXPECT_NEAR(DistanceFromSun(p), 160.0, 1.5); });
}

TEST(OrbitPath, UnusableElementsGiveNoPath) {
    const DiagramProjection view(Camera(45, 135, 10));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const ConicOrbit bad[] = {{0.0, 0.5, 0, 0, 0},  {-1.0, 0.5, 0, 0, 0}, {nan, 0.5, 0, 0, 0},
                              {1.0, -0.1, 0, 0, 0}, {1.0, nan, 0, 0, 0},  {1.0, 0.5, inf, 0, 0},
                              {1.0, 0.5, 0, nan, 0}, {1.0, 0.5, 0, 0, nan}, {inf, 0.5, 0, 0, 0}};
    for (const ConicOrbit& o : bad) {
        OrbitPath path;
        path.upperCount = 7;
        SampleOrbit(o, 10.0, view, path);
        EXPECT_EQ(path.upperCount, 0);
        EXPECT_EQ(path.lowerCount, 0);
    }
    OrbitPath path;
    SampleOrbit({1.0, 0.5, 0, 0, 0}, 0.0, view, path);
    EXPECT_EQ(path.upperCount, 0);
}
