#pragma once
// The path of a two-body orbit on the diagram: r = q (1 + e) / (1 + e cos v)
// sampled in true anomaly, cut at the nodes into the arc above the ecliptic (from
// the ascending to the descending node) and the arc below, and cut at (100 + q) AU
// from the Sun, where the arc ends with a point on the circle of 100 AU. An open
// orbit, or a very long one, thus ends on that circle, and r is only ever taken
// where 1 + e cos v is positive.
//
// The points go into fixed arrays: a paint samples hundreds of orbits and
// allocates nothing for them.
#include <array>

#include "tasks/diagram_camera.h"

namespace orvane {

// A path ends this far from the Sun (plus q).
inline constexpr double kPathLimitAu = 100.0;
// Comets with q up to this take twice the angular step.
inline constexpr double kSmallPerihelion = 0.1;

// Degrees of true anomaly between two points of a planet's orbit: 10 below 30
// pixels per AU, 8 to 59, 6 to 89, 4 to 119, 2 from 120.
double PlanetAngularStep(int pixelsPerAu);
// A comet's: the same bands for q above 0.1, twice that for q up to 0.1.
double CometAngularStep(int pixelsPerAu, double q);

// The elements that fix the path: AU and degrees, ecliptic and equinox J2000.
struct ConicOrbit {
    double q = 0.0;
    double e = 0.0;
    double omega = 0.0;
    double node = 0.0;
    double i = 0.0;
};

// The longest arc is half a turn at the finest step, 2 degrees, ends included;
// a finer step is coarsened to fit.
inline constexpr int kMaxArcPoints = 96;

struct ArcPolyline {
    std::array<ScreenPoint, kMaxArcPoints> points{};
    int count = 0;
};

// Each arc is at most two polylines: where the far end of an orbit is cut, the
// arc that holds it falls apart in two pieces.
struct OrbitPath {
    std::array<ArcPolyline, 2> upper{};
    std::array<ArcPolyline, 2> lower{};
    int upperCount = 0;
    int lowerCount = 0;
};

// The path of `orbit` with points `stepDegrees` apart in true anomaly, each arc
// starting at its node (or where the cut begins). An orbit without a usable
// q or e (not positive, not finite) has no path.
void SampleOrbit(const ConicOrbit& orbit, double stepDegrees, const DiagramProjection& view, OrbitPath& path);

}  // namespace orvane
