#pragma once
// Kepler's equation for every conic, by the branch that the eccentricity selects.

namespace orvane {

enum class KeplerBranch {
    Parabola,      // e == 1 exactly: s + s^3/3 = M
    NearParabola,  // 1e-14 < |1 - e| < 1e-10: the series in w = (1 - e)/2 s^2
    Hyperbola,     // e > 1 outside the band, including 1 < e <= 1 + 1e-14
    Ellipse,       // e < 1 outside the band
};

// The band is tested first; outside it only e == 1 exactly is a parabola, so an
// eccentricity a hair above 1 is solved as a hyperbola.
KeplerBranch SelectKeplerBranch(double e);

// Each loop stops when two successive values differ by less than `tolerance`,
// or after 10001 rounds, and returns the last value.
double SolveParabolic(double M, double tolerance);
double SolveNearParabolic(double M, double e, double tolerance);
double SolveHyperbolic(double M, double e, double tolerance);
double SolveElliptic(double M, double e, double tolerance);

// M in radians. Returns the eccentric anomaly, the hyperbolic anomaly, or for the
// parabola and the band the parabolic variable (tan of half the true anomaly).
double SolveKepler(double M, double e, double tolerance);

}  // namespace orvane
