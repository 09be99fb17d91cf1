#pragma once
// The comet's own push: the non-gravitational acceleration of outgassing,
// radial, transverse and normal, scaled by the water-ice law g(r).
#include <array>

namespace orvane {

// Copied from the orbit record at the start of a run and taken as they stand.
struct NonGravity {
    double A1 = 0.0;  // radial, 1e-8 AU/day^2
    double A2 = 0.0;  // transverse, 1e-8 AU/day^2
    double A3 = 0.0;  // normal, 1e-8 AU/day^2
    double dt = 0.0;  // NGE_DT: days by which the law lags (or leads) perihelion
};

// g(r) = 0.111262 (2.808/r)^2.15 (1/(1 + (r/2.808)^5.093))^4.6142; the
// constants make g(1) = 0.99999962, one at 1 AU to seven digits.
double NonGravityLaw(double r);

// 1e-8 g (A1 R + A2 T + A3 N) with R, T, N the radial, transverse and
// normal unit vectors of the true place r, v; `law` is g(r') from
// NonGravityLaw.
std::array<double, 3> NonGravityAcceleration(const std::array<double, 3>& r,
                                             const std::array<double, 3>& v, double law,
                                             const NonGravity& ng);

}  // namespace orvane
