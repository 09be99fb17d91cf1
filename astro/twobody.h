#pragma once
// Two-body orbits: elements to state and back, and the quantities that follow from
// q, e and the time of perihelion. Distances in AU, time in days, angles in degrees
// at this interface and radians inside.
//
// The Kepler solvers are in astro/kepler.h, the universal-variable propagators of the
// reference orbit in astro/universal.h and astro/universal_quad.h, the orbit classes
// and spheres of influence in astro/orbit_class.h.
#include "astro/constants.h"

namespace orvane {

// Heliocentric, equator and equinox of J2000 unless a routine says otherwise; AU and AU/day.
struct StateVector {
    double x = 0.0, y = 0.0, z = 0.0;
    double vx = 0.0, vy = 0.0, vz = 0.0;
};

// Osculating elements. Angles in degrees, ecliptic and equinox J2000.
// Parabola: a = 0, P = 0, Q = 0, n = -1 (DerivedElements) or -57.2957795130823
// (ElementsFromState). Hyperbola: a < 0, P = 0, Q = 0, n as for the parabola.
struct OrbitElements {
    double Tp = 0.0;     // perihelion time, Julian date
    double q = 0.0;      // perihelion distance, AU
    double e = 0.0;
    double P = 0.0;      // period, years
    double omega = 0.0;  // argument of perihelion
    double node = 0.0;   // longitude of the ascending node
    double i = 0.0;      // inclination
    double M = 0.0;      // mean anomaly (for the parabola the scaled time of ElementsFromState)
    double n = 0.0;      // mean motion, degrees a day
    double a = 0.0;      // semi-major axis, AU
    double Q = 0.0;      // aphelion distance, AU
};

// What DerivedElements adds to Tp, q and e.
struct DerivedOrbit {
    double P = 0.0, M = 0.0, n = 0.0, a = 0.0, Q = 0.0;
};

// x - trunc(x/2pi)*2pi, plus 2pi when x itself was negative. The sign tested is that of
// the input, so -2pi gives 2pi, not 0.
double WrapTwoPi(double x);

// P, M, n, a, Q at time t from Tp, q, e. The parabola's M is the scaled time
// k (t - Tp) / sqrt(2 q^3) in degrees; an ellipse's M is reduced to [0, 2pi) only
// when it is out of range; a hyperbola's M is left as it is.
DerivedOrbit DerivedElements(double t, double Tp, double q, double e);

// Osculating elements at time t of `state`, which is rotated from the equator to the
// ecliptic by `eps` (radians). `mu` is the Sun's GM (kGaussSquared for every caller).
// Nothing is guarded: a state with no angular momentum gives what the arithmetic gives.
OrbitElements ElementsFromState(double t, const StateVector& state, double mu, double eps);

// The Sun's attraction as StateFromElements sees it. A positive mass factor rescales
// k for good, for this call and every later call that is handed the same object;
// whoever owns the object decides how long that lasts.
struct GaussianGravity {
    double k = kGauss;
};

// State from elements (angles in degrees, M as DerivedElements gives it, a as
// DerivedElements gives it) in the ecliptic frame, rotated to the equator by `eps`.
// With massFactor > 0, gravity.k becomes gravity.k * sqrt(1/massFactor) first, and stays so.
StateVector StateFromElements(double q, double e, double omega, double node, double i, double M,
                              double a, double massFactor, double eps, GaussianGravity& gravity);

}  // namespace orvane
