#include "dynamics/nongrav.h"

#include <cmath>

namespace orvane {

double NonGravityLaw(double r) {
    const double r0 = 2.808;
    const double x = std::pow(r / r0, 5.093);
    return 0.111262 * std::pow(r0 / r, 2.15) * std::pow(1.0 / (1.0 + x), 4.6142);
}

std::array<double, 3> NonGravityAcceleration(const std::array<double, 3>& r,
                                             const std::array<double, 3>& v, double law,
                                             const NonGravity& ng) {
    const double rLength = std::sqrt(r[0] * r[0] + r[1] * r[1] + r[2] * r[2]);
    const double radialSpeed = (r[0] * v[0] + r[1] * v[1] + r[2] * v[2]) / rLength;
    const std::array<double, 3> h = {r[1] * v[2] - r[2] * v[1], r[2] * v[0] - r[0] * v[2],
                                     r[0] * v[1] - r[1] * v[0]};
    const double hLength = std::sqrt(h[0] * h[0] + h[1] * h[1] + h[2] * h[2]);
    std::array<double, 3> a{};
    for (std::size_t k = 0; k < 3; ++k) {
        const double radial = r[k] / rLength;
        const double transverse = (rLength * v[k] - radialSpeed * r[k]) / hLength;
        const double normal = h[k] / hLength;
        a[k] = 1e-08 * law * (ng.A1 * radial + ng.A2 * transverse + ng.A3 * normal);
    }
    return a;
}

}  // namespace orvane
