#include "dynamics/encke.h"

#include <cmath>

#include "astro/constants.h"

namespace orvane {

double EnckeFactor(double q) {
    const double onePlusQ = 1.0 + q;
    const double root = std::sqrt(onePlusQ);
    return q * ((q + 3.0) * q + 3.0) / (root * root * root + onePlusQ * onePlusQ * onePlusQ);
}

std::array<double, 3> EnckeCentralTerm(const std::array<double, 3>& rho,
                                       const std::array<double, 3>& dr) {
    const double rho2 = rho[0] * rho[0] + rho[1] * rho[1] + rho[2] * rho[2];
    const double rhoLength = std::sqrt(rho2);
    const double q = 2.0 *
                     ((rho[0] + dr[0] / 2.0) * dr[0] + (rho[1] + dr[1] / 2.0) * dr[1] +
                      (rho[2] + dr[2] / 2.0) * dr[2]) /
                     rho2;
    const double f = EnckeFactor(q);
    const double scale = kGaussSquared / (rhoLength * rhoLength * rhoLength);
    std::array<double, 3> a{};
    for (std::size_t k = 0; k < 3; ++k) {
        const double r = rho[k] + dr[k];
        a[k] = scale * (f * r - dr[k]);
    }
    return a;
}

}  // namespace orvane
