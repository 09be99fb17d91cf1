#pragma once
// What an ephemeris line shows, from the comet's state at one instant: the
// direction with its rates, distance, elongation and phase, magnitudes,
// horizon coordinates, or the rectangular values with the smallest distance
// between the orbits of the comet and the centre body.
#include <array>

#include "astro/frames.h"
#include "astro/twobody.h"
#include "dynamics/ephemeris.h"
#include "dynamics/ephemeris_line.h"
#include "dynamics/task_options.h"

namespace orvane {

// Light time of one AU in days.
inline constexpr double kLightTimePerAu = 0.00577551831;
// Arc seconds in a radian.
inline constexpr double kArcsecondsPerRadian = 206264.806247;
// Closing tolerance of the light-time loop, AU.
inline constexpr double kLightTimeTolerance = 1e-08;

// The comet at the instant: heliocentric elements (ecliptic J2000) and state
// (equator J2000), with its magnitude parameters.
struct CometAtInstant {
    OrbitElements elements;
    StateVector state;
    double H = 0.0, G = 0.0;    // total magnitude: absolute value and slope
    double H2 = 0.0, G2 = 0.0;  // nuclear magnitude
};

// The three vectors that light time treats differently: S the comet from the
// Sun, C the Sun from the centre, O the observer from the centre.
struct PipelineVectors {
    StateVector S, C, O;
};

// S, C and O at `jd` (TT) before any rotation. `bodies` are the states of the
// bodies relative to the Sun at jd. The observer is placed only for a
// topocentre on the Earth: the options put every other centre at its middle.
PipelineVectors MakePipelineVectors(const StateVector& comet, const TaskOptions& options,
                                    const BodyStatesResult& bodies, double jd);

// The matrices of the chosen frame: one for S and C, one for O. O comes on
// the true equator of date and is left alone on the Equator rows.
struct FrameMatrices {
    Matrix3 comet;
    Matrix3 observer;
};
FrameMatrices FrameRotation(int mainPlane, int referenceSystem, double jd);

// The direction of x with its rates (radians, radians a day) and distance.
struct Direction {
    double first = 0.0, second = 0.0;
    double firstRate = 0.0, secondRate = 0.0;
    double rho = 0.0, rhoRate = 0.0;
};
Direction DirectionOf(const StateVector& x);

// The astrometric vector: X = S + C + O - tau v(S), tau = rho 0.00577551831,
// repeated from tau = 0 until rho changes by at most 1e-08 AU. Only the
// comet's velocity is retarded; the Sun and the observer are not. The
// velocity is the plain sum. `passes` counts the rounds.
StateVector AstrometricVector(const PipelineVectors& v, int& passes);

// Elongation and phase by the triangle of the sides |S|, |C| and |S + C|,
// with the side of the Sun the comet stands on (0 or 1). Radians.
struct ElongationPhase {
    double elongation = 0.0;
    double phase = 0.0;
    int side = 0;
};
ElongationPhase ElongationAndPhase(const StateVector& S, const StateVector& C);

// H + 5 log10(delta) + (G = 0 ? 10 : G) log10(r); 0 when H is 0.
double TotalMagnitude(double H, double G, double delta, double r);
// H2 + 5 log10(delta) + (G2 = 0 ? 5 : G2) log10(r) + 0.03 phase (degrees);
// 0 when H2 is 0.
double NuclearMagnitude(double H2, double G2, double delta, double r, double phaseDegrees);

// Azimuth (from the north through the east) and altitude, radians, of a
// direction at local hour angle `hourAngle`, declination `declination` for
// the latitude `latitude`.
struct Horizon {
    double azimuth = 0.0;
    double altitude = 0.0;
};
Horizon HorizonCoordinates(double hourAngle, double declination, double latitude);

// An orbit for the distance walk: perihelion distance, eccentricity,
// semi-major axis (any value when e is exactly 1) and the three angles in
// degrees.
struct WalkOrbit {
    double q = 0.0, e = 0.0, a = 0.0;
    double omega = 0.0, node = 0.0, i = 0.0;
};
WalkOrbit WalkOrbitOf(const OrbitElements& elements);

// Smallest distance between the two orbits: a coarse walk of both in true
// anomaly, the best pair of all, then a fine walk 10 degrees either side of
// each of the two points. AU.
double MinimumOrbitDistance(const WalkOrbit& comet, const WalkOrbit& planet);

// The values of one line. `bodies` hold the bodies' states relative to the
// Sun at jd (TT).
EphemerisLine PositionPipeline(const CometAtInstant& comet, const TaskOptions& options,
                               const BodyStatesResult& bodies, double jd);

// The same with the bodies read from the planetary file; the status of that
// read is returned and the line is computed whatever it is.
EphemerisStatus PositionPipeline(const CometAtInstant& comet, const TaskOptions& options,
                                 Ephemeris& ephemeris, double jd, EphemerisLine& line);

}  // namespace orvane
